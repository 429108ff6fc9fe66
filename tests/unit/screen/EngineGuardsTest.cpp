#include "unit/screen/ScreenFixture.h"

namespace tessivo {
namespace {

class EngineGuardsTest : public ScreenFixture {
 protected:
  EngineGuards& guards() { return screen.guards(); }
  static ShownWindow popup(WindowHandle window) { return {window, window, false, true, false}; }

  using Handles = std::vector<WindowHandle>;
};

TEST_F(EngineGuardsTest, TimersHaveTheirIntervals) {
  EXPECT_EQ(guards().timRealPlayerNewWinCheck.interval(), 1000);
  EXPECT_EQ(guards().timDelayCloseMediaPlayerPopuWin.interval(), 100);
  EXPECT_EQ(guards().timDisableWMPFullScreen.interval(), 1);
}

TEST_F(EngineGuardsTest, OnlyTheSearchForThePictureRunsOnceTheWindowIsLaidOut) {
  EXPECT_TRUE(guards().timRealPlayerNewWinCheck.enabled());
  EXPECT_FALSE(guards().timDelayCloseMediaPlayerPopuWin.enabled());
  EXPECT_FALSE(guards().timDisableWMPFullScreen.enabled());
}

TEST_F(EngineGuardsTest, EverySecondThePictureIsLookedForTwentyPixelsInside) {
  windows.origin = {1280, 100};
  windows.windows[2] = {0, "RealAudioCtrlWndClass", "", true};
  windows.windows[3] = {2, "Picture", "", true};
  time.advance(999);
  EXPECT_EQ(windows.lastPoint, (Point{0, 0}));
  time.advance(1);
  EXPECT_EQ(windows.lastPoint, (Point{1300, 120}));
  EXPECT_TRUE(caughtWindows.handles().empty());
  windows.underPoint = 3;
  time.advance(1000);
  EXPECT_EQ(caughtWindows.handles(), (std::vector<std::string>{"3"}));
  time.advance(5000);
  EXPECT_EQ(procedures.attempts, 1);
  EXPECT_TRUE(guards().timRealPlayerNewWinCheck.enabled());
}

TEST_F(EngineGuardsTest, ANotificationWithAPointLooksThere) {
  windows.origin = {10, 20};
  windows.windows[2] = {0, "RealAudioCtrlWndClass", "", true};
  windows.windows[3] = {2, "Picture", "", true};
  windows.underPoint = 3;
  real().mousePoint.raise({300, 200});
  EXPECT_EQ(windows.lastPoint, (Point{310, 220}));
  EXPECT_EQ(caughtWindows.handles(), (std::vector<std::string>{"3"}));
}

TEST_F(EngineGuardsTest, TheCaughtMouseArmsTheClickTimers) {
  caughtWindows.pictureMouse.raise(PictureMouse::leftUp);
  EXPECT_TRUE(screen.timDelayRaiseClickEvent.enabled());
  EXPECT_FALSE(screen.timDBClickEvent.enabled());
  caughtWindows.pictureMouse.raise(PictureMouse::leftDoubleClick);
  EXPECT_TRUE(screen.timDBClickEvent.enabled());
  time.advance(1);
  EXPECT_EQ(trace.take(), "DbClickPlayer normal");
  time.advance(1000);
  EXPECT_EQ(trace.take(), "");
}

TEST_F(EngineGuardsTest, TheCaughtRightButtonOpensTheMenuWithFreshScreens) {
  int popups = 0;
  screen.onPopup.listen([&popups](ui::MenuItem&) { ++popups; });
  displays.add({3200, 0, 800, 600});
  caughtWindows.pictureMouse.raise(PictureMouse::rightUp);
  EXPECT_EQ(screen.menu().screenCount(), 3U);
  EXPECT_EQ(popups, 1);
}

TEST_F(EngineGuardsTest, AfterUnloadingACaughtWindowIsHarmless) {
  screen.unloadScreen();
  caughtWindows.pictureMouse.raise(PictureMouse::leftUp);
  caughtWindows.pictureMouse.raise(PictureMouse::rightUp);
  guards().noteShown(popup(7));
  time.advance(5000);
  EXPECT_EQ(trace.take(), "real gone");
  EXPECT_TRUE(windows.closed.empty());
}

TEST_F(EngineGuardsTest, UnloadingForgetsTheWindowsThatWaitToBeClosed) {
  guards().noteShown(popup(7));
  guards().noteShown(popup(8));
  screen.unloadScreen();
  time.advance(1000);
  EXPECT_TRUE(windows.closed.empty());
  screen.load();
  guards().noteShown(popup(9));
  time.advance(1000);
  EXPECT_EQ(windows.closed, Handles{9});
}

TEST_F(EngineGuardsTest, UnloadingEndsTheTimers) {
  guards().noteShown(popup(7));
  guards().timDisableWMPFullScreen.setEnabled(true);
  screen.unloadScreen();
  EXPECT_FALSE(guards().timRealPlayerNewWinCheck.enabled());
  EXPECT_FALSE(guards().timDelayCloseMediaPlayerPopuWin.enabled());
  EXPECT_FALSE(guards().timDisableWMPFullScreen.enabled());
}

TEST_F(EngineGuardsTest, APoppedUpWindowIsClosedAfterAHundredMilliseconds) {
  guards().noteShown(popup(7));
  EXPECT_EQ(guards().timDelayCloseMediaPlayerPopuWin.tag(), "7");
  time.advance(99);
  EXPECT_TRUE(windows.closed.empty());
  time.advance(1);
  EXPECT_EQ(windows.closed, Handles{7});
  EXPECT_FALSE(guards().timDelayCloseMediaPlayerPopuWin.enabled());
}

TEST_F(EngineGuardsTest, WindowsThatPopUpTogetherAreAllClosed) {
  guards().noteShown(popup(7));
  guards().noteShown(popup(8));
  guards().noteShown(popup(7));
  guards().noteShown(popup(9));
  guards().noteShown(popup(8));
  time.advance(1000);
  EXPECT_EQ(windows.closed, (Handles{7, 8, 9}));
  EXPECT_FALSE(guards().timDelayCloseMediaPlayerPopuWin.enabled());
}

TEST_F(EngineGuardsTest, OneThatBelongsToThePlaybackWindowIsClosed) {
  guards().noteShown({7, screen.nativeHandle(), false, true, false});
  time.advance(100);
  EXPECT_EQ(windows.closed, Handles{7});
}

TEST_F(EngineGuardsTest, OurOwnAndOurDialogsStay) {
  guards().noteShown({7, 7, false, true, true});      // a form of the program
  guards().noteShown({8, 4242, false, true, false});  // a dialog of the panel
  guards().noteShown({9, 9, false, false, false});    // a menu or a tool tip
  guards().noteShown({10, 10, true, true, false});    // a part of a window
  time.advance(1000);
  EXPECT_TRUE(windows.closed.empty());
}

TEST_F(EngineGuardsTest, ATagWithoutANumberClosesNothing) {
  for (const char* tag : {"", " ", "abc", "12abc", "1.5", "99999999999999999999999", "0"}) {
    guards().timDelayCloseMediaPlayerPopuWin.setTag(tag);
    guards().timDelayCloseMediaPlayerPopuWin.setEnabled(true);
    time.advance(100);
    EXPECT_TRUE(windows.closed.empty()) << tag;
    EXPECT_FALSE(guards().timDelayCloseMediaPlayerPopuWin.enabled()) << tag;
  }
}

TEST_F(EngineGuardsTest, ATagWithANumberClosesThatWindow) {
  guards().timDelayCloseMediaPlayerPopuWin.setTag(" 65538 ");
  guards().timDelayCloseMediaPlayerPopuWin.setEnabled(true);
  time.advance(100);
  EXPECT_EQ(windows.closed, Handles{65538});
  time.advance(1000);
  EXPECT_EQ(windows.closed, Handles{65538});
}

TEST_F(EngineGuardsTest, TheEnginesOwnFullScreenIsSwitchedOff) {
  wmp().full = true;
  guards().timDisableWMPFullScreen.setEnabled(true);
  time.advance(1);
  EXPECT_EQ(trace.take(), "wmp no full screen");
  EXPECT_FALSE(guards().timDisableWMPFullScreen.enabled());
}

TEST_F(EngineGuardsTest, WithoutItsFullScreenTheEngineIsLeftAlone) {
  guards().timDisableWMPFullScreen.setEnabled(true);
  time.advance(1);
  EXPECT_EQ(trace.take(), "");
}

TEST_F(EngineGuardsTest, ADoubleClickAndTheStartOfPlayingLookForIt) {
  wmp().full = true;
  wmp().doubleClick.raise();
  time.advance(1);
  EXPECT_NE(trace.take().find("wmp no full screen"), std::string::npos);
  wmp().full = true;
  wmp().notify(MediaPlayState::paused);
  time.advance(1);
  EXPECT_EQ(trace.take().find("wmp no full screen"), std::string::npos);
  wmp().notify(MediaPlayState::playing);
  time.advance(1);
  EXPECT_NE(trace.take().find("wmp no full screen"), std::string::npos);
}

}  // namespace
}  // namespace tessivo
