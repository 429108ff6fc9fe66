#include "panel/frmMain.h"

#include "app/StartUp.h"
#include "unit/app/ControlerFixture.h"

namespace tessivo {
namespace {

/// The whole program but for windows and engines: panel, controller, playlist, playback window.
class FrmMainTest : public ControlerFixture {
 protected:
  void SetUp() override {
    ControlerFixture::SetUp();
    main.load({0, 0, 1280, 984});
    controler.setReferences(main, screen, playList);
    main.setFaceBySysConfigPara(controler.config());
    trace.take();
  }
  void plays(const std::string& path) {
    time.advance(1);
    EXPECT_EQ(trace.take().find("wmp url " + path + " | real play"), 0U);
    real().notify(RealPlayState::playing);
    trace.take();
  }
  void endOfItem() {
    time.advance(1500);
    real().notify(RealPlayState::stopped);
    trace.take();
  }
  void startFirst() {
    addThree();
    trace.take();
    main.cmdPlay.click();
    plays("C:\\v\\a.avi");
  }
  std::string rows() {
    std::string text;
    for (int i = 0; i < main.lvPlayList.rowCount(); ++i) {
      const ui::ListRow& row = main.lvPlayList.row(i);
      text += row.subItems[0].substr(0, 1) + (row.tag == "1" ? "1" : "0") + (row.bold ? "b" : "") +
              (main.lvPlayList.selected() == i ? "!" : "") + " ";
    }
    return text;
  }

  frmMain main{toolkit, {}, controler};
};

TEST_F(FrmMainTest, ShowsWhatWasAdded) {
  addThree();
  EXPECT_EQ(rows(), "a1b! b0 c0 ");
  EXPECT_EQ(main.labFileCount.caption(), "3");
  EXPECT_EQ(main.lvPlayList.row(1).subItems[1], "C:\\v\\b.avi");
}

TEST_F(FrmMainTest, HasTheStatedColumnsAndRules) {
  ASSERT_EQ(main.lvPlayList.columns().size(), 3U);
  EXPECT_EQ(main.lvPlayList.columns()[1].header, "名称");
  EXPECT_EQ(main.lvPlayList.columns()[2].header, "路径");
  ASSERT_EQ(main.comboPlayRuler.items().size(), 4U);
  EXPECT_EQ(main.comboPlayRuler.items()[0].text, "仅使用RealPlayer播放引擎");
  EXPECT_EQ(main.comboPlayRuler.items()[0].data, 2);
  EXPECT_EQ(main.comboPlayRuler.items()[3].text, "优先使用MediaPlayer播放引擎");
  EXPECT_EQ(main.comboPlayRuler.items()[3].data, 1);
}

TEST_F(FrmMainTest, PlayAndPauseShareAButton) {
  startFirst();
  EXPECT_EQ(main.cmdPlay.caption(), "暂停");
  EXPECT_EQ(main.labPlayState1.caption(), "正在播放: ");
  EXPECT_EQ(main.txtFileName.caption(), "a.avi");
  main.cmdPlay.click();
  EXPECT_EQ(screen.lngState(), playState::kPaused);
  EXPECT_EQ(main.cmdPlay.caption(), "播放");
  EXPECT_EQ(main.labPlayState1.caption(), "暂停播放: ");
}

TEST_F(FrmMainTest, StopClearsTheProgressAndKeepsTheLength) {
  startFirst();
  real().positionChange.raise(65000, 200000);
  EXPECT_EQ(main.labMoviePosi.caption(), "00:01:05");
  EXPECT_EQ(main.labMovieLen.caption(), "00:03:20");
  EXPECT_EQ(main.labSlidMax.caption(), "200秒");
  EXPECT_EQ(main.lngGetJinDu(), 65);
  EXPECT_EQ(main.lngGetMovieLen(), 200);
  main.cmdStop.click();
  EXPECT_EQ(main.labMoviePosi.caption(), "00:00:00");
  EXPECT_EQ(main.labMovieLen.caption(), "00:03:20");
  EXPECT_EQ(main.lngGetJinDu(), 0);
  EXPECT_EQ(main.cmdPlay.caption(), "播放");
  EXPECT_EQ(main.labPlayState1.caption(), "停止: ");
}

TEST_F(FrmMainTest, WhileTheUserDragsProgressWaitsAndTheSeekComesOnRelease) {
  startFirst();
  real().positionChange.raise(10000, 200000);
  trace.take();
  main.sldJinDu.press();
  main.sldJinDu.drag(120);
  EXPECT_EQ(main.labMoviePosi.caption(), "00:02:00");
  real().positionChange.raise(11000, 200000);
  EXPECT_EQ(main.sldJinDu.value(), 120);
  EXPECT_EQ(trace.take(), "");
  main.sldJinDu.release();
  EXPECT_EQ(trace.take(), "wmp position 120 | real position 120000");
}

TEST_F(FrmMainTest, SequentialPlaysTheListOnceAndThenBringsThePanelUp) {
  startFirst();
  endOfItem();
  EXPECT_EQ(rows(), "a0 b1b! c0 ");
  time.advance(1);
  real().notify(RealPlayState::playing);
  endOfItem();
  time.advance(1);
  real().notify(RealPlayState::playing);
  EXPECT_EQ(rows(), "a0 b0 c1b! ");
  main.hide();
  endOfItem();
  EXPECT_TRUE(main.visible());
  EXPECT_EQ(rows(), "a0 b0 c1b! ");
  EXPECT_EQ(screen.lngState(), playState::kStopped);
  EXPECT_EQ(main.labPlayState1.caption(), "停止: ");
}

TEST_F(FrmMainTest, ListLoopGoesOnAtTheFirst) {
  controler.config().lngRecyclePlayType(2);
  addThree();
  controler.PlayAMovieByFlag(key(3));
  main.setPLItemStateByKey(key(3), 1);
  time.advance(1);
  real().notify(RealPlayState::playing);
  endOfItem();
  EXPECT_EQ(rows(), "a1b! b0 c0 ");
  time.advance(1);
  EXPECT_EQ(trace.take(), "wmp url C:\\v\\a.avi | real play");
}

TEST_F(FrmMainTest, SingleRepeatPlaysTheSameAgain) {
  controler.config().lngRecyclePlayType(1);
  startFirst();
  endOfItem();
  EXPECT_EQ(rows(), "a1b! b0 c0 ");
  plays("C:\\v\\a.avi");
}

TEST_F(FrmMainTest, ADoubleClickPlaysTheRowUnderThePointer) {
  startFirst();
  std::int32_t y = 0;
  while (main.lvPlayList.rowAt(y) != 1) ++y;
  main.lvPlayList.mouseMove({MouseButton::left, 500, y});
  main.lvPlayList.doubleClick();
  EXPECT_EQ(rows(), "a0 b1b! c0 ");
  EXPECT_EQ(trace.take(),
            "wmp stop | wmp position 0 | real stop | "
            "wmp stop | wmp position 0 | wmp url C:\\v\\b.avi | real source C:\\v\\b.avi");
  real().notify(RealPlayState::stopped);
  plays("C:\\v\\b.avi");
}

TEST_F(FrmMainTest, ADoubleClickOnEmptySpaceDoesNothing) {
  startFirst();
  main.lvPlayList.mouseMove({MouseButton::left, 500, 100000});
  main.lvPlayList.doubleClick();
  EXPECT_EQ(rows(), "a1b! b0 c0 ");
  EXPECT_EQ(trace.take(), "");
}

TEST_F(FrmMainTest, AnErrorStopsAndIsShown) {
  startFirst();
  real().errorMessage.raise();
  time.advance(1);
  time.advance(1);
  EXPECT_EQ(main.labPlayErrNote.caption(),
            "a.avi: "
            "Real Play无法播放该文件,请通过播放器选择列表使用Media Player重新尝试播放.");
  EXPECT_EQ(main.labPlayState1.caption(), "停止: ");
  EXPECT_EQ(screen.lngState(), playState::kStopped);
}

TEST_F(FrmMainTest, WithTheSettingAnErrorGoesOnToTheNextAndEndsAtTheLast) {
  controler.config().boolPlayNextOnErr(true);
  controler.config().lngRecyclePlayType(2);
  startFirst();
  for (int i = 0; i < 3; ++i) {
    real().errorMessage.raise();
    time.advance(3);
  }
  EXPECT_EQ(rows(), "a0 b0 c1b! ");
  EXPECT_EQ(screen.lngState(), playState::kStopped);
}

TEST_F(FrmMainTest, ChangingTheRuleStopsAndPlaysOn) {
  startFirst();
  main.comboPlayRuler.choose(1);
  EXPECT_EQ(screen.lngPlayRuler(), playRule::kMediaOnly);
  EXPECT_EQ(screen.lngState(), playState::kStarting);
  trace.take();
  main.comboPlayRuler.choose(1);
  EXPECT_EQ(trace.take(), "");
}

TEST_F(FrmMainTest, ThreeClicksOnTheLoopButtonReturnToTheStart) {
  EXPECT_EQ(main.cmdRecyclePlayPL.caption(), "顺序播放");
  main.cmdRecyclePlayPL.click();
  EXPECT_EQ(main.cmdRecyclePlayPL.caption(), "单曲循环");
  EXPECT_EQ(main.cmdRecyclePlayPL.toolTip(), "正处于单曲循环播放模式");
  main.cmdRecyclePlayPL.click();
  EXPECT_EQ(main.cmdRecyclePlayPL.caption(), "列表循环");
  main.cmdRecyclePlayPL.click();
  EXPECT_EQ(controler.config().lngRecyclePlayType(), 3);
}

TEST_F(FrmMainTest, TheVolumeSliderSetsTheVolumeAsItMoves) {
  main.sldVolume.press();
  main.sldVolume.drag(64);
  EXPECT_EQ(controler.config().intVolumeValue(), 64);
  main.sldVolume.release();
  EXPECT_EQ(screen.intVolume(), 64);
}

TEST_F(FrmMainTest, TheStoredResumePointIsShown) {
  addThree();
  controler.config().lngCurrentPlayPosition(65);
  controler.config().lngCurrentPlayItemLen(200);
  main.setFaceBySysConfigPara(controler.config());
  EXPECT_EQ(main.labMoviePosi.caption(), "00:01:05");
  EXPECT_EQ(main.labMovieLen.caption(), "00:03:20");
  EXPECT_EQ(main.lngGetJinDu(), 65);
  EXPECT_EQ(main.lngGetMovieLen(), 200);
}

struct FakeDrop : ui::DroppedFiles {
  explicit FakeDrop(std::uint32_t files) : files_(files) {}
  std::uint32_t count() const override { return files_; }
  std::string path(std::uint32_t) const override { return "C:\\v\\b.avi"; }
  std::uint32_t files_;
};

TEST_F(FrmMainTest, FiveHundredDroppedFilesAreAddedAndOneMoreIsRefused) {
  main.onFilesDropped.raise(FakeDrop(500));
  EXPECT_EQ(main.lvPlayList.rowCount(), 500);
  main.onFilesDropped.raise(FakeDrop(501));
  EXPECT_EQ(main.lvPlayList.rowCount(), 500);
  EXPECT_EQ(main.labPlayErrNote.caption(), "您选择的文件数量太多！");
}

TEST_F(FrmMainTest, ClosingThePanelLeavesTheProgram) {
  main.close();
  EXPECT_NE(trace.take().find("quit"), std::string::npos);
}

TEST_F(FrmMainTest, NothingOverlapsAtAnySize) {
  for (const std::int32_t width : {7800, 9000, 20000}) {
    main.noteMoved({0, 0, width, width * 3 / 4});
    const auto& controls = main.children();
    for (std::size_t i = 0; i < controls.size(); ++i) {
      const Rect& a = controls[i]->bounds();
      EXPECT_GT(a.width, 0) << controls[i]->name() << " at " << width;
      EXPECT_LE(a.left + a.width, main.scaleWidth()) << controls[i]->name() << " at " << width;
      for (std::size_t j = i + 1; j < controls.size(); ++j) {
        const Rect& b = controls[j]->bounds();
        const bool apart = a.left + a.width <= b.left || b.left + b.width <= a.left ||
                           a.top + a.height <= b.top || b.top + b.height <= a.top;
        EXPECT_TRUE(apart) << controls[i]->name() << " and " << controls[j]->name();
      }
    }
  }
}

}  // namespace
}  // namespace tessivo
