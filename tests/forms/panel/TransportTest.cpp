#include "forms/panel/PanelFixture.h"
#include "screen/PlayRule.h"
#include "ui/Icons.h"

namespace tessivo {
namespace {

class TransportTest : public PanelFixture {
 protected:
  std::string progress() {
    return world->text(main.labMoviePosi) + " " + std::to_string(world->position(main.sldJinDu)) +
           "/" + std::to_string(world->maximum(main.sldJinDu)) + " " +
           world->text(main.labSlidMax) + " " + world->text(main.labMovieLen);
  }
  std::string screenButton() {
    return main.cmdSetScreen.tag() + " " + world->text(main.cmdSetScreen);
  }
  /// The loop button's texts.
  std::string loopMode() {
    return std::to_string(controler.config().lngRecyclePlayType()) + " " +
           world->text(main.cmdRecyclePlayPL) + " " + main.cmdRecyclePlayPL.toolTip();
  }
};

TEST_F(TransportTest, BeginsStoppedWithSoundAndTheStatedTexts) {
  EXPECT_EQ(stateLine(), "停止:  播放");
  EXPECT_EQ(main.cmdPlay.tag(), "2");
  EXPECT_EQ(screenButton(), "1 全屏到>");
  EXPECT_EQ(main.picJingFangYin.icon(), icon::kSoundOn);
  EXPECT_EQ(main.picJingFangYin.toolTip(), "放/静音");
}

TEST_F(TransportTest, TheRulesAreInTheirOwnOrder) {
  const auto& items = main.comboPlayRuler.items();
  ASSERT_EQ(items.size(), 4U);
  EXPECT_EQ(items[0].text, "仅使用RealPlayer播放引擎");
  EXPECT_EQ(items[0].data, 2);
  EXPECT_EQ(items[1].text, "仅使用MediaPlayer播放引擎");
  EXPECT_EQ(items[1].data, 3);
  EXPECT_EQ(items[2].text, "优先使用RealPlayer播放引擎");
  EXPECT_EQ(items[2].data, 0);
  EXPECT_EQ(items[3].text, "优先使用MediaPlayer播放引擎");
  EXPECT_EQ(items[3].data, 1);
}

TEST_F(TransportTest, PlayAndPauseShareAButton) {
  startFirst();
  EXPECT_EQ(stateLine(), "正在播放: a.avi 暂停");
  EXPECT_EQ(main.cmdPlay.tag(), "1");
  world->click(main.cmdPlay);
  EXPECT_EQ(screen.lngState(), playState::kPaused);
  EXPECT_EQ(stateLine(), "暂停播放: a.avi 播放");
  EXPECT_EQ(main.cmdPlay.tag(), "2");
}

TEST_F(TransportTest, APlayThatDoesNotBeginLooksPaused) {
  world->click(main.cmdPlay);
  EXPECT_EQ(stateLine(), "暂停播放:  播放");
}

TEST_F(TransportTest, StopClearsTheProgressAndKeepsTheLength) {
  startFirst();
  real().positionChange.raise(65000, 200000);
  EXPECT_EQ(progress(), "00:01:05 65/200 200秒 00:03:20");
  EXPECT_EQ(main.lngGetJinDu(), 65);
  EXPECT_EQ(main.lngGetMovieLen(), 200);
  world->click(main.cmdStop);
  EXPECT_EQ(progress(), "00:00:00 0/200 200秒 00:03:20");
  EXPECT_EQ(stateLine(), "停止: a.avi 播放");
}

TEST_F(TransportTest, PlayButtonStatesOtherThanOneAndTwoChangeNothing) {
  main.setPlayButtonState(1);
  for (const int state : {0, 3, -1}) main.setPlayButtonState(state);
  EXPECT_EQ(world->text(main.cmdPlay), "暂停");
  main.setPlayButtonState(2);
  EXPECT_EQ(world->text(main.cmdPlay) + main.cmdPlay.tag(), "播放2");
}

TEST_F(TransportTest, EachPanelStateShowsWhatIsStated) {
  addThree();
  main.setFaceToAPlayState(1, false);
  EXPECT_EQ(stateLine(), "正在播放: a.avi 暂停");
  main.setFaceToAPlayState(2, false);
  EXPECT_EQ(stateLine(), "暂停播放: a.avi 播放");
  main.setFaceToAPlayState(3, true);
  EXPECT_EQ(stateLine(), "停止: a.avi 播放");
  main.setFaceToAPlayState(5, false);
  EXPECT_EQ(main.picJingFangYin.icon(), icon::kMuted);
  main.setFaceToAPlayState(4, false);
  EXPECT_EQ(main.picJingFangYin.icon(), icon::kSoundOn);
  main.setFaceToAPlayState(6, false);
  EXPECT_EQ(screenButton(), "2 退出全屏");
  main.setFaceToAPlayState(7, false);
  EXPECT_EQ(screenButton(), "1 全屏到>");
  main.setFaceToAPlayState(8, false);
  EXPECT_EQ(stateLine() + screenButton(), "停止: a.avi 播放1 全屏到>");
}

TEST_F(TransportTest, TheStoppedStateShowsTheItemsNameOrNothing) {
  main.txtFileName.setCaption("old");
  main.setFaceToAPlayState(3, false);
  EXPECT_EQ(world->text(main.txtFileName), "");
}

TEST_F(TransportTest, ThePausedStateLeavesTheName) {
  main.txtFileName.setCaption("old");
  main.setFaceToAPlayState(2, false);
  EXPECT_EQ(world->text(main.txtFileName), "old");
}

// Progress.

TEST_F(TransportTest, ALengthOfZeroChangesNothing) {
  main.setJinDu(5, "00:00:05", 100, "00:01:40");
  main.setJinDu(9, "00:00:09", 0, "00:00:00");
  EXPECT_EQ(progress(), "00:00:05 5/100 100秒 00:01:40");
}

TEST_F(TransportTest, ALengthOfMinusOneLeavesTheEndAndXTheLengthText) {
  main.setJinDu(5, "00:00:05", 100, "00:01:40");
  main.setJinDu(9, "00:00:09", -1, "x");
  EXPECT_EQ(progress(), "00:00:09 9/100 100秒 00:01:40");
  main.setJinDu(10, "00:00:10", -1, "00:02:00");
  EXPECT_EQ(progress(), "00:00:10 10/100 100秒 00:02:00");
}

TEST_F(TransportTest, ProgressFromTheControllerHasThePercentageInFront) {
  main.setJinDu(50, 100, "00:01:40", 200, "00:03:20");
  EXPECT_EQ(progress(), "00:01:40 100/200 200秒 00:03:20");
}

TEST_F(TransportTest, WhileTheUserDragsProgressWaitsAndTheSeekComesOnRelease) {
  startFirst();
  real().positionChange.raise(10000, 200000);
  trace.take();
  main.sldJinDu.press();
  main.sldJinDu.drag(120);
  EXPECT_EQ(world->text(main.labMoviePosi), "00:02:00");
  EXPECT_EQ(main.sldJinDu.toolTip(), "00:02:00 / 00:03:20 (60%)");
  real().positionChange.raise(11000, 200000);
  EXPECT_EQ(world->position(main.sldJinDu), 120);
  EXPECT_EQ(trace.take(), "");
  main.sldJinDu.release();
  EXPECT_EQ(trace.take(), "wmp position 120 | real position 120000");
  real().positionChange.raise(121000, 200000);
  EXPECT_EQ(world->position(main.sldJinDu), 121);
}

TEST_F(TransportTest, DraggingWithTheMouseSeeksOnce) {
  startFirst();
  real().positionChange.raise(10000, 200000);
  trace.take();
  world->dragTo(main.sldJinDu, 120);
  const std::string seek = trace.take();
  EXPECT_EQ(seek.rfind("wmp position 1", 0), 0U) << seek;
  EXPECT_EQ(seek.find("wmp", 3), std::string::npos) << seek;
}

TEST_F(TransportTest, ThePercentageIsCutOffAndAnEmptySliderHasNone) {
  main.setJinDu(0, "00:00:00", 3, "00:00:03");
  main.sldJinDu.press();
  main.sldJinDu.drag(2);
  EXPECT_EQ(main.sldJinDu.toolTip(), "00:00:02 / 00:00:03 (66%)");
  main.sldJinDu.release();
}

TEST_F(TransportTest, TheStatedKeysMoveTheSliderAndSeekOnRelease) {
  startFirst();
  real().positionChange.raise(10000, 200000);
  for (const int code : {33, 34, 37, 38, 39, 40}) {
    trace.take();
    main.sldJinDu.keyDown(code);
    real().positionChange.raise(50000, 200000);
    EXPECT_NE(main.sldJinDu.value(), 50) << code;
    trace.take();
    main.sldJinDu.keyUp(code);
    EXPECT_NE(trace.take().find("wmp position"), std::string::npos) << code;
  }
}

TEST_F(TransportTest, OtherKeysNeitherHoldTheSliderNorSeek) {
  startFirst();
  real().positionChange.raise(10000, 200000);
  for (const int code : {32, 35, 36, 41}) {
    main.sldJinDu.keyDown(code);
    real().positionChange.raise((code + 10) * 1000, 200000);
    EXPECT_EQ(main.sldJinDu.value(), code + 10);
    trace.take();
    main.sldJinDu.keyUp(code);
    EXPECT_EQ(trace.take(), "") << code;
  }
}

TEST_F(TransportTest, AMoveWithoutARelaseSeeksAtOnce) {
  startFirst();
  real().positionChange.raise(10000, 200000);
  trace.take();
  main.sldJinDu.drag(200);  // the End key, the wheel
  main.sldJinDu.commit();
  EXPECT_EQ(trace.take(), "wmp position 200 | real position 200000");
}

TEST_F(TransportTest, LosingTheKeyboardEndsTheDragging) {
  startFirst();
  real().positionChange.raise(10000, 200000);
  main.sldJinDu.keyDown(39);
  main.sldJinDu.drag(11);
  trace.take();
  main.sldJinDu.loseFocus();
  EXPECT_EQ(trace.take(), "wmp position 11 | real position 11000");
  real().positionChange.raise(12000, 200000);
  EXPECT_EQ(world->position(main.sldJinDu), 12);
}

// Volume and mute.

TEST_F(TransportTest, TheVolumeIsSetAsTheThumbMovesAndTheSoundIsShownOn) {
  main.setFaceToAPlayState(panelState::kMuted, false);
  main.sldVolume.press();
  main.sldVolume.drag(64);
  EXPECT_EQ(controler.config().intVolumeValue(), 64);
  EXPECT_EQ(screen.intVolume(), 64);
  EXPECT_EQ(main.picJingFangYin.icon(), icon::kSoundOn);
  main.sldVolume.release();
  EXPECT_EQ(screen.intVolume(), 64);
}

TEST_F(TransportTest, AChangeWithoutAScrollSetsTheVolumeToo) {
  main.sldVolume.setValue(20);
  main.sldVolume.onChange.raise();
  EXPECT_EQ(screen.intVolume(), 20);
}

TEST_F(TransportTest, TheMutePictureSwitchesTheSoundAndShowsIt) {
  world->mouse(main.picJingFangYin, {MouseButton::left, 45, 45});
  EXPECT_TRUE(screen.boolMute());
  EXPECT_EQ(main.picJingFangYin.icon(), icon::kMuted);
  world->mouse(main.picJingFangYin, {MouseButton::left, 45, 45});
  EXPECT_FALSE(screen.boolMute());
  EXPECT_EQ(main.picJingFangYin.icon(), icon::kSoundOn);
}

TEST_F(TransportTest, TheSpaceBarOnTheMutePictureSwitchesToo) {
  main.picJingFangYin.setFocus();
  world->key(main, main.picJingFangYin, ' ');
  EXPECT_TRUE(screen.boolMute());
}

TEST_F(TransportTest, UnderThePointerTheMutePictureHasABorder) {
  struct Window : ui::Peer {
    void changed(ui::Aspect) override {}
    void bringToFront() override {}
    void setFocus() override {}
    void repaint() override {}
    WindowHandle nativeHandle() const override { return 77; }
  };
  if (main.picJingFangYin.nativeHandle() == 0) {
    main.picJingFangYin.attachPeer(std::make_unique<Window>());
  }
  time.advance(100);
  EXPECT_FALSE(main.picJingFangYin.border());
  windows.underPoint = main.picJingFangYin.nativeHandle();
  pointer.at = {300, 200};
  time.advance(99);
  EXPECT_FALSE(main.picJingFangYin.border());
  time.advance(1);
  EXPECT_TRUE(main.picJingFangYin.border());
  EXPECT_EQ(main.picJingFangYin.tag(), "1");
  EXPECT_EQ(windows.lastPoint.x, 300);
  // Not set again with every tick.
  main.picJingFangYin.setBorder(false);
  time.advance(100);
  EXPECT_FALSE(main.picJingFangYin.border());
  windows.underPoint = 0;
  time.advance(100);
  EXPECT_EQ(main.picJingFangYin.tag(), "0");
}

// Engine rule and loop mode.

TEST_F(TransportTest, ChangingTheRuleWhilePlayingStopsAndPlaysOn) {
  startFirst();
  world->choose(main.comboPlayRuler, 1);
  EXPECT_EQ(screen.lngPlayRuler(), playRule::kMediaOnly);
  EXPECT_EQ(controler.config().lngPlayRuler(), playRule::kMediaOnly);
  EXPECT_EQ(screen.lngState(), playState::kStarting);
  EXPECT_EQ(stateLine(), "正在播放: a.avi 暂停");
}

TEST_F(TransportTest, TheRuleThatIsAppliedAlreadyChangesNothing) {
  startFirst();
  world->choose(main.comboPlayRuler, 0);
  EXPECT_EQ(trace.take(), "");
  EXPECT_EQ(screen.lngState(), playState::kPlaying);
}

TEST_F(TransportTest, ChangingTheRuleWhilePausedStops) {
  startFirst();
  world->click(main.cmdPlay);
  world->choose(main.comboPlayRuler, 3);
  EXPECT_EQ(screen.lngState(), playState::kStopped);
  EXPECT_EQ(stateLine(), "停止: a.avi 播放");
}

TEST_F(TransportTest, BeforeTheSettingsAreAppliedTheRulesAreIgnored) {
  frmMain other(
      {world->toolkit(), time, time, pointer, windows, fileDialogs, shell, exitQuestion, ""}, {},
      controler);
  other.load({0, 0, 1280, 984});
  other.comboPlayRuler.choose(1);
  EXPECT_EQ(screen.lngPlayRuler(), playRule::kRealOnly);
  EXPECT_EQ(other.comboPlayRuler.listIndex(), 1);
  other.setFaceBySysConfigPara(controler.config());
  EXPECT_EQ(other.comboPlayRuler.listIndex(), 0);
}

TEST_F(TransportTest, ThreeClicksOnTheLoopButtonReturnToTheStart) {
  EXPECT_EQ(loopMode(), "3 顺序播放 正处于顺序播放模式");
  world->click(main.cmdRecyclePlayPL);
  EXPECT_EQ(loopMode(), "1 单曲循环 正处于单曲循环播放模式");
  world->click(main.cmdRecyclePlayPL);
  EXPECT_EQ(loopMode(), "2 列表循环 正处于列表循环播放模式");
  world->click(main.cmdRecyclePlayPL);
  EXPECT_EQ(loopMode(), "3 顺序播放 正处于顺序播放模式");
}

TEST_F(TransportTest, InOrderPlaysTheListOnceAndThenBringsThePanelUp) {
  startFirst();
  endOfItem();
  EXPECT_EQ(rows(), "a0 b1b! c0 ");
  begins();
  endOfItem();
  begins();
  EXPECT_EQ(rows(), "a0 b0 c1b! ");
  EXPECT_EQ(stateLine(), "正在播放: c.avi 暂停");
  main.hide();
  endOfItem();
  EXPECT_TRUE(main.visible());
  EXPECT_EQ(rows(), "a0 b0 c1b! ");
  EXPECT_EQ(stateLine(), "停止: c.avi 播放");
  EXPECT_EQ(screen.lngState(), playState::kStopped);
}

TEST_F(TransportTest, TheListLoopGoesOnAtTheFirst) {
  controler.config().lngRecyclePlayType(2);
  addThree();
  controler.PlayAMovieByFlag(key(3));
  main.setPLItemStateByKey(key(3), 1);
  begins();
  endOfItem();
  EXPECT_EQ(rows(), "a1b! b0 c0 ");
  EXPECT_EQ(stateLine(), "正在播放: a.avi 暂停");
  EXPECT_EQ(screen.lngState(), playState::kStarting);
}

TEST_F(TransportTest, SingleRepeatPlaysTheSameAgain) {
  controler.config().lngRecyclePlayType(1);
  startFirst();
  endOfItem();
  EXPECT_EQ(rows(), "a1b! b0 c0 ");
  EXPECT_EQ(stateLine(), "正在播放: a.avi 暂停");
  EXPECT_EQ(screen.lngState(), playState::kStarting);
}

// Full screen.

TEST_F(TransportTest, TheScreenMenuListsTheMonitorsAndCancel) {
  world->answerMenu(main, -1);
  world->click(main.cmdSetScreen);
  EXPECT_EQ(world->menuShown, "主屏幕|屏幕2|取消");
  world->click(main.cmdSetScreen);
  EXPECT_EQ(world->menuShown, "主屏幕|屏幕2|取消");
}

TEST_F(TransportTest, WithOneMonitorThereIsTheMainScreenAndCancel) {
  displays.remove(displays.enumerate().back());
  world->answerMenu(main, -1);
  world->click(main.cmdSetScreen);
  EXPECT_EQ(world->menuShown, "主屏幕|取消");
}

TEST_F(TransportTest, AMonitorThatIsChosenIsFilled) {
  world->answerMenu(main, 1);
  world->click(main.cmdSetScreen);
  EXPECT_TRUE(screen.boolMaxSize());
  EXPECT_EQ(screen.windowRect(), (Rect{1280, 0, 1920, 1080}));
  EXPECT_EQ(screenButton(), "2 退出全屏");
}

TEST_F(TransportTest, TheMainScreenIsTheFirst) {
  world->answerMenu(main, 0);
  world->click(main.cmdSetScreen);
  EXPECT_EQ(screen.windowRect(), (Rect{0, 0, 1280, 1024}));
}

TEST_F(TransportTest, CancelDoesNothing) {
  world->answerMenu(main, 2);
  world->click(main.cmdSetScreen);
  EXPECT_FALSE(screen.boolMaxSize());
  EXPECT_EQ(screenButton(), "1 全屏到>");
}

TEST_F(TransportTest, InFullScreenTheButtonLeavesIt) {
  controler.showOnMonitor(2);
  EXPECT_EQ(screenButton(), "2 退出全屏");
  world->click(main.cmdSetScreen);
  EXPECT_FALSE(screen.boolMaxSize());
  EXPECT_EQ(screenButton(), "1 全屏到>");
}

// Settings.

TEST_F(TransportTest, TheSettingsAreShown) {
  SysConfig& config = controler.config();
  config.intVolumeValue(77);
  config.lngPlayRuler(1);
  config.lngRecyclePlayType(2);
  main.setFaceBySysConfigPara(config);
  EXPECT_EQ(world->position(main.sldVolume), 77);
  EXPECT_EQ(world->chosenEntry(main.comboPlayRuler), 3);
  EXPECT_EQ(loopMode(), "2 列表循环 正处于列表循环播放模式");
}

TEST_F(TransportTest, TheStoredResumePointIsShown) {
  addThree();
  controler.config().lngCurrentPlayPosition(65);
  controler.config().lngCurrentPlayItemLen(200);
  main.setFaceBySysConfigPara(controler.config());
  EXPECT_EQ(progress(), "00:01:05 65/200 200秒 00:03:20");
  EXPECT_EQ(world->text(main.txtFileName), "a.avi");
}

TEST_F(TransportTest, ClosingThePanelOnlyHidesIt) {
  startFirst();
  world->close(main);
  EXPECT_FALSE(world->isVisible(main));
  EXPECT_EQ(screen.lngState(), playState::kPlaying);
  EXPECT_EQ(trace.take(), "");
  controler.showMainFace();
  EXPECT_TRUE(world->isVisible(main));
}

TEST_F(TransportTest, TheRightButtonDoesNotHoldTheSlider) {
  startFirst();
  main.sldJinDu.mouseDown({MouseButton::right, 15, 15});
  real().positionChange.raise(10000, 200000);
  EXPECT_EQ(world->position(main.sldJinDu), 10);
}

TEST_F(TransportTest, ALoopModeThatDoesNotExistIsFollowedByTheFirst) {
  for (const std::int32_t type : {-2, 0, 4}) {
    controler.config().lngRecyclePlayType(type);
    world->click(main.cmdRecyclePlayPL);
    EXPECT_EQ(controler.config().lngRecyclePlayType(), 1) << type;
  }
}

TEST_F(TransportTest, BeforeAnythingHasPlayedThereIsNoLength) {
  EXPECT_EQ(main.lngGetMovieLen(), 0);
  EXPECT_EQ(main.lngGetJinDu(), 0);
}

TEST_F(TransportTest, WithThePanelItsTimersGo) {
  const std::size_t before = time.running();
  main.unload();
  EXPECT_LE(time.running() + 2, before);
  EXPECT_FALSE(main.timSetFangJingYinButton.enabled());
  EXPECT_FALSE(main.timRecordMainFaceWindowState.enabled());
}

}  // namespace
}  // namespace tessivo
