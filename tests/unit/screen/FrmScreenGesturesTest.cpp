#include "unit/screen/ScreenFixture.h"

namespace tessivo {
namespace {

class FrmScreenGesturesTest : public ScreenFixture {
 protected:
  ui::MenuItem& entry(const std::string& name) {
    ui::MenuItem& menu = screen.menu().mnuPopuMenu();
    for (std::size_t i = 0; i < menu.count(); ++i) {
      if (menu.item(i).name() == name) return menu.item(i);
    }
    throw std::runtime_error(name);
  }
  /// The entries as the user sees them: "-" a line, "(off)" behind those that cannot be chosen.
  std::string shown() {
    std::string text;
    ui::MenuItem& menu = screen.menu().mnuPopuMenu();
    for (std::size_t i = 0; i < menu.count(); ++i) {
      const ui::MenuItem& item = menu.item(i);
      if (!item.visible()) continue;
      text += (text.empty() ? "" : " ") + item.caption() + (item.enabled() ? "" : "(off)");
    }
    return text;
  }
};

TEST_F(FrmScreenGesturesTest, ASingleClickIsReportedAfterTheDoubleClickTime) {
  wmp().click.raise(MouseButton::left);
  time.advance(279);
  EXPECT_EQ(trace.take(), "");
  time.advance(1);
  EXPECT_EQ(trace.take(), "ClickPlayer");
  time.advance(5000);
  EXPECT_EQ(trace.take(), "");
}

TEST_F(FrmScreenGesturesTest, ARightClickIsNoClick) {
  time.advance(1000);
  ASSERT_FALSE(screen.timSetTimShowBackZOrder.enabled());
  wmp().click.raise(MouseButton::right);
  EXPECT_TRUE(screen.timSetTimShowBackZOrder.enabled());
  time.advance(5000);
  EXPECT_EQ(trace.take(), "");
}

TEST_F(FrmScreenGesturesTest, ADoubleClickInNormalPlacementDropsTheSingleClick) {
  wmp().click.raise(MouseButton::left);
  wmp().doubleClick.raise();
  EXPECT_EQ(trace.take(), "DbClickPlayer normal");
  time.advance(1);
  EXPECT_EQ(trace.take(), "DbClickPlayer normal");
  time.advance(1000);
  EXPECT_EQ(trace.take(), "");
}

TEST_F(FrmScreenGesturesTest, ADoubleClickInFullScreenKeepsTheSingleClick) {
  screen.boolMaxSize(true);
  trace.take();
  real().pictureMouse.raise(PictureMouse::leftUp);
  real().pictureMouse.raise(PictureMouse::leftDoubleClick);
  time.advance(280);
  EXPECT_EQ(trace.take(), "DbClickPlayer full | ClickPlayer");
}

TEST_F(FrmScreenGesturesTest, ADoubleClickOnRealPlayersPictureIsReportedOnTheNextTurn) {
  real().pictureMouse.raise(PictureMouse::leftUp);
  real().pictureMouse.raise(PictureMouse::leftDoubleClick);
  EXPECT_EQ(trace.take(), "");
  time.advance(1);
  EXPECT_EQ(trace.take(), "DbClickPlayer normal");
  time.advance(1000);
  EXPECT_EQ(trace.take(), "");
}

TEST_F(FrmScreenGesturesTest, TheReleaseAfterRealPlayersDoubleClickCountsAsAClick) {
  real().pictureMouse.raise(PictureMouse::leftUp);
  real().pictureMouse.raise(PictureMouse::leftDoubleClick);
  time.advance(50);
  real().pictureMouse.raise(PictureMouse::leftUp);
  time.advance(280);
  EXPECT_EQ(trace.take(), "DbClickPlayer normal | ClickPlayer");
}

TEST_F(FrmScreenGesturesTest, TheRightButtonRebuildsTheScreensAndOpensTheMenu) {
  int popups = 0;
  screen.onPopup.listen([&popups](ui::MenuItem&) { ++popups; });
  displays.add({3200, 0, 800, 600});
  wmp().mouseDown.raise(MouseButton::left);
  EXPECT_EQ(screen.menu().screenCount(), 2U);
  wmp().mouseDown.raise(MouseButton::right);
  EXPECT_EQ(screen.menu().screenCount(), 3U);
  EXPECT_EQ(popups, 0);
  wmp().mouseUp.raise(MouseButton::left);
  EXPECT_EQ(popups, 0);
  wmp().mouseUp.raise(MouseButton::right);
  EXPECT_EQ(popups, 1);
}

TEST_F(FrmScreenGesturesTest, OnRealPlayersPictureBothHappenAtTheRelease) {
  int popups = 0;
  screen.onPopup.listen([&popups](ui::MenuItem&) { ++popups; });
  displays.add({3200, 0, 800, 600});
  real().pictureMouse.raise(PictureMouse::rightUp);
  EXPECT_EQ(screen.menu().screenCount(), 3U);
  EXPECT_EQ(popups, 1);
}

TEST_F(FrmScreenGesturesTest, TheMenuOffersWhatTheStateAllows) {
  const std::string sound = " - 放音(off) 静音 - 全屏到> - 显示控制面板";
  screen.popuCtrlMenu();
  EXPECT_EQ(shown(), "播放 暂停(off) 停止(off)" + sound);
  screen.strFilePath("C:\\a.avi");
  screen.play();
  screen.popuCtrlMenu();
  EXPECT_EQ(shown(), "播放(off) 暂停(off) 停止" + sound);
  time.advance(1);
  real().notify(RealPlayState::playing);
  screen.popuCtrlMenu();
  EXPECT_EQ(shown(), "播放(off) 暂停 停止" + sound);
  screen.pause();
  screen.popuCtrlMenu();
  EXPECT_EQ(shown(), "播放 暂停(off) 停止" + sound);
}

TEST_F(FrmScreenGesturesTest, TheMenuFollowsMuteAndPlacement) {
  screen.boolMute(true);
  screen.boolMaxSize(true);
  screen.popuCtrlMenu();
  EXPECT_EQ(shown(), "播放 暂停(off) 停止(off) - 放音 静音(off) - 退出全屏 - 显示控制面板");
}

TEST_F(FrmScreenGesturesTest, EveryEntryRaisesItsCodeAndDoesNothingElse) {
  screen.popuCtrlMenu();
  for (const char* name : {"mnuExitFullScreen", "mnuPlay", "mnuPause", "mnuStop", "mnuFangYin",
                           "mnuJingYin", "mnuShowMainFace"}) {
    entry(name).onClick.raise();
  }
  EXPECT_EQ(trace.take(),
            "clickPopuMenu 1 | clickPopuMenu 3 | clickPopuMenu 4 | clickPopuMenu 5 | "
            "clickPopuMenu 6 | clickPopuMenu 7 | clickPopuMenu 8");
}

TEST_F(FrmScreenGesturesTest, ResizingLaysBothEnginesOut) {
  screen.noteMoved({0, 0, 6000, 4500});
  const std::int32_t width = toPixels(screen.scaleWidth(), 15);
  const std::int32_t height = toPixels(screen.scaleHeight(), 15);
  EXPECT_EQ(wmp().area, (Rect{0, 0, width, height}));
  EXPECT_EQ(real().area, wmp().area);
  EXPECT_EQ(
      trace.take(),
      "wmp move | wmp no menu | wmp no dialogs | wmp no urls | wmp no full screen | "
      "real 277 on | real 353 off | real 295 off | real 338 off | real 326 on | real 307 on | "
      "real 225 off | real move");
  EXPECT_TRUE(screen.timSetTimShowBackZOrder.enabled());
}

TEST_F(FrmScreenGesturesTest, EveryResizeArmsTheTimePanelsTimer) {
  for (const std::int32_t width : {6000, 7500}) {
    time.advance(1000);
    ASSERT_FALSE(screen.timSetTimShowBackZOrder.enabled());
    screen.noteMoved({0, 0, width, 4500});
    EXPECT_TRUE(screen.timSetTimShowBackZOrder.enabled()) << width;
  }
}

TEST_F(FrmScreenGesturesTest, ClicksThatArePendingAreDroppedByUnloading) {
  screen.boolMaxSize(true);  // there the double click leaves the single click pending
  wmp().click.raise(MouseButton::left);
  wmp().doubleClick.raise();
  ASSERT_TRUE(screen.timDelayRaiseClickEvent.enabled());
  ASSERT_TRUE(screen.timDBClickEvent.enabled());
  screen.unloadScreen();
  EXPECT_EQ(time.running(), 0U);
  trace.take();
  time.advance(1000);
  EXPECT_EQ(trace.take(), "");
}

/// Notes when the time panel is brought to the front.
struct FrontPeer : ui::Peer {
  explicit FrontPeer(Trace& t) : trace(t) {}
  void changed(ui::Aspect) override {}
  void bringToFront() override { trace.add("time panel front"); }
  void setFocus() override {}
  void repaint() override {}
  WindowHandle nativeHandle() const override { return 0; }
  Trace& trace;
};

TEST_F(FrmScreenGesturesTest, TheTimePanelComesToTheFrontWhenPlayingAndASecondLater) {
  time.advance(1000);
  screen.picTimShowBack.attachPeer(std::make_unique<FrontPeer>(trace));
  screen.strFilePath("C:\\a.avi");
  screen.play();
  time.advance(1);
  trace.take();
  real().notify(RealPlayState::playing);
  EXPECT_EQ(trace.take(), "time panel front | real position 0 | real sound");
  time.advance(1000);
  EXPECT_EQ(trace.take(), "time panel front");
  time.advance(5000);
  EXPECT_EQ(trace.take(), "");
}

TEST_F(FrmScreenGesturesTest, MediaPlayerPlaysFirstThenComesTheTimePanelThenTheMuteState) {
  struct StatePeer : FrontPeer {
    StatePeer(Trace& t, const frmScreen& s) : FrontPeer(t), screen(s) {}
    void bringToFront() override {
      trace.add("time panel front in state " + std::to_string(screen.lngState()));
    }
    const frmScreen& screen;
  };
  time.advance(1000);
  screen.picTimShowBack.attachPeer(std::make_unique<StatePeer>(trace, screen));
  screen.lngPlayRuler(playRule::kMediaOnly);
  screen.strFilePath("C:\\a.avi");
  screen.play();
  time.advance(1);
  trace.take();
  wmp().notify(MediaPlayState::playing);
  EXPECT_EQ(trace.take(), "time panel front in state 1 | wmp sound");
  EXPECT_TRUE(screen.timSetTimShowBackZOrder.enabled());
}

TEST_F(FrmScreenGesturesTest, TheTimePanelTimerIsOneShot) {
  time.advance(1000);
  EXPECT_FALSE(screen.timSetTimShowBackZOrder.enabled());
  startPlaying(playRule::kRealOnly);
  EXPECT_TRUE(screen.timSetTimShowBackZOrder.enabled());
}

TEST_F(FrmScreenGesturesTest, TheRectangleIsReportedEveryTwoSecondsUntilUnload) {
  std::vector<Rect> reports;
  screen.reportPosition.listen([&reports](const Rect& rect) { reports.push_back(rect); });
  screen.noteMoved({15 * 100, 15 * 50 + 7, 15 * 640 + 8, 15 * 480});
  time.advance(4000);
  EXPECT_EQ(reports, std::vector<Rect>(2, Rect{100, 50, 641, 480}));
  screen.unloadScreen();
  time.advance(4000);
  EXPECT_EQ(reports.size(), 2U);
}

/// What the second monitor of the fixture covers, in twips.
constexpr Rect kSecondInTwips{15 * 1280, 0, 15 * 1920, 15 * 1080};

class MovedFullScreenTest : public ScreenFixture {
 protected:
  /// Over the second monitor; then something makes the window smaller, and two seconds go by.
  void moveAway() {
    screen.setMaximum({1280, 0, 1920, 1080});
    screen.boolMaxSize(true);
    screen.setMaximum({0, 0, 1280, 1024});  // for the next time
    screen.noteMoved(elsewhere);
  }
  const Rect elsewhere{15 * 1280, 0, 15 * 1920, 15 * 741};
};

TEST_F(MovedFullScreenTest, IsBackOverItsMonitorWithTheNextReport) {
  moveAway();
  time.advance(1999);
  EXPECT_EQ(screen.bounds(), elsewhere);
  std::vector<Rect> reports;
  screen.reportPosition.listen([&reports](const Rect& rect) { reports.push_back(rect); });
  time.advance(1);
  EXPECT_EQ(screen.bounds(), kSecondInTwips);
  EXPECT_EQ(reports, (std::vector<Rect>{{1280, 0, 1920, 1080}}));
}

TEST_F(MovedFullScreenTest, AnOrdinaryWindowMayBeMoved) {
  moveAway();
  screen.boolMaxSize(false);
  screen.noteMoved(elsewhere);
  time.advance(2000);
  EXPECT_EQ(screen.bounds(), elsewhere);
}

/// A display whose pixels are not square.
class FrmScreenOblongTest : public ScreenFixture {
 protected:
  FrmScreenOblongTest() : ScreenFixture({15, 10}) {}
};

TEST_F(FrmScreenOblongTest, TheReportedLeftEdgeGoesByTheVerticalFactor) {
  std::vector<Rect> reports;
  screen.reportPosition.listen([&reports](const Rect& rect) { reports.push_back(rect); });
  screen.noteMoved({3000, 3000, 6000, 3000});
  time.advance(2000);
  EXPECT_EQ(reports, (std::vector<Rect>{{300, 300, 400, 300}}));
}

TEST_F(FrmScreenOblongTest, TheSavedLeftEdgeGoesByTheVerticalFactorAndBackByTheHorizontal) {
  screen.noteMoved({3000, 3000, 6000, 3000});
  screen.boolMaxSize(true);
  EXPECT_EQ(screen.normal(), (Rect{300, 300, 400, 300}));
  screen.boolMaxSize(false);
  EXPECT_EQ(screen.bounds(), (Rect{4500, 3000, 6000, 3000}));
}

}  // namespace
}  // namespace tessivo
