// The playback window while monitors come, go and change.
#include <gtest/gtest.h>

#include "unit/screen/ScreenFixture.h"

namespace tessivo {
namespace {

constexpr Rect kMain{0, 0, 1280, 1024};
constexpr Rect kSecond{1280, 0, 1920, 1080};
constexpr Rect kThird{-1280, 0, 1280, 1024};
constexpr Rect kLeft{0, 0, 1920, 1080};
constexpr Rect kRight{1920, 0, 1920, 1080};
constexpr Rect kNormal{100, 60, 800, 600};
constexpr Rect kMiddle{160, 128, 960, 768};

/// Full screen on the second of two monitors; the normal window stood on the first.
class MonitorChangeTest : public ScreenFixture {
 protected:
  void SetUp() override {
    ScreenFixture::SetUp();
    layOut({kMain, kSecond});
    fullScreenFrom(kNormal);
  }
  void fullScreenFrom(const Rect& normal, const Rect& monitor = kSecond) {
    screen.boolMaxSize(false);
    screen.noteMoved(inTwips(normal));
    screen.setMaximum(monitor);
    screen.boolMaxSize(true);
    report();
  }
  /// The monitors there are from now on, the first one primary: `\\.\DISPLAY1`, ….
  void layOut(const std::vector<Rect>& monitors) {
    displays = FakeDisplays{};
    for (std::size_t i = 0; i < monitors.size(); ++i) displays.add(monitors[i], i == 0);
  }
  void report() { time.advance(2000); }
  Rect place() { return screen.windowRect(); }
};

TEST_F(MonitorChangeTest, WithoutItsMonitorThePictureIsWhereTheWindowWas) {
  layOut({kMain});
  report();
  EXPECT_EQ(place(), kNormal);
  EXPECT_TRUE(screen.boolMaxSize());
  EXPECT_EQ(screen.frameStyle() & ui::frame::kAll, 0U);
}

TEST_F(MonitorChangeTest, WithItsMonitorThePictureComesBack) {
  layOut({kMain});
  report();
  layOut({kMain, kSecond});
  report();
  EXPECT_EQ(place(), kSecond);
}

TEST_F(MonitorChangeTest, WhatTheSystemHasMovedComesBackToo) {
  layOut({kMain});
  screen.noteMoved(inTwips({0, 0, 1920, 1080}));
  report();
  EXPECT_EQ(place(), kNormal);
}

TEST_F(MonitorChangeTest, AMonitorThatComesAndGoesBetweenTwoReportsChangesNothing) {
  trace.take();
  for (int i = 0; i < 4; ++i) {
    time.advance(50);
    i % 2 == 0 ? layOut({kMain}) : layOut({kMain, kSecond});
  }
  report();
  EXPECT_EQ(place(), kSecond);
  EXPECT_EQ(trace.take(), "");
}

TEST_F(MonitorChangeTest, AWindowThatStoodOnThatMonitorGoesToTheMiddleOfThePrimary) {
  fullScreenFrom({1400, 60, 800, 600});
  layOut({kMain});
  report();
  EXPECT_EQ(place(), kMiddle);
  // Out of full screen, too.
  screen.boolMaxSize(false);
  report();
  EXPECT_EQ(place(), kMiddle);
}

TEST_F(MonitorChangeTest, OutOfFullScreenTheWindowStaysAsLongAsAnyOfItIsSeen) {
  screen.boolMaxSize(false);
  screen.noteMoved(inTwips({1200, 1000, 800, 600}));
  layOut({kMain});
  report();
  EXPECT_EQ(place(), (Rect{1200, 1000, 800, 600}));
  screen.noteMoved(inTwips({1280, 0, 800, 600}));
  report();
  EXPECT_EQ(place(), kMiddle);
}

TEST_F(MonitorChangeTest, OfThreeMonitorsAllButOneGo) {
  layOut({kMain, kSecond, kThird});
  report();
  EXPECT_EQ(place(), kSecond);
  layOut({kMain});
  report();
  EXPECT_EQ(place(), kNormal);
  layOut({kMain, kThird, kSecond});
  report();
  EXPECT_EQ(place(), kSecond);
}

TEST_F(MonitorChangeTest, AnotherResolutionOfItsMonitorIsCovered) {
  layOut({kMain, {1280, 0, 800, 600}});
  report();
  EXPECT_EQ(place(), (Rect{1280, 0, 800, 600}));
  layOut({kMain, kSecond});
  report();
  EXPECT_EQ(place(), kSecond);
}

TEST_F(MonitorChangeTest, AnotherResolutionOfThePrimaryMovesItsMonitor) {
  layOut({{0, 0, 1920, 1080}, {1920, 0, 1920, 1080}});
  report();
  EXPECT_EQ(place(), (Rect{1920, 0, 1920, 1080}));
}

TEST_F(MonitorChangeTest, ThePictureStaysOnItsMonitorWhenThatBecomesThePrimary) {
  displays = FakeDisplays{};
  displays.add({-1280, 0, 1280, 1024});    // DISPLAY1, the primary so far
  displays.add({0, 0, 1920, 1080}, true);  // DISPLAY2
  report();
  EXPECT_EQ(place(), (Rect{0, 0, 1920, 1080}));
}

TEST_F(MonitorChangeTest, ThePictureStaysOnItsMonitorWhenTwoOfOneSizeChangePlaces) {
  layOut({kLeft, kRight});
  fullScreenFrom(kNormal, kRight);
  displays = FakeDisplays{};
  displays.add(kRight);       // DISPLAY1
  displays.add(kLeft, true);  // DISPLAY2
  report();
  EXPECT_EQ(place(), kLeft);
  layOut({kLeft, kRight});
  report();
  EXPECT_EQ(place(), kRight);
}

TEST_F(MonitorChangeTest, AMonitorThatHasMovedComesBackAtItsNewPlace) {
  layOut({kLeft, kRight});
  report();
  EXPECT_EQ(place(), kRight);
  layOut({kLeft});
  report();
  EXPECT_EQ(place(), kNormal);
  displays.remove(displays.add(kMain));
  displays.add(kRight);  // DISPLAY3
  report();
  EXPECT_EQ(place(), kRight);
}

TEST_F(MonitorChangeTest, WhenThePrimaryComesBackThePictureStaysOnItsMonitorOfTheSameSize) {
  layOut({kLeft, kRight});
  fullScreenFrom(kNormal, kRight);
  displays = FakeDisplays{};
  displays.remove(displays.add(kLeft));
  displays.add(kLeft, true);  // DISPLAY2, primary as long as it is alone
  report();
  EXPECT_EQ(place(), kLeft);
  layOut({kLeft, kRight});
  report();
  EXPECT_EQ(place(), kRight);
}

TEST_F(MonitorChangeTest, WhereANewMonitorTakesTheNameThePlaceCounts) {
  layOut({kMain, kThird, kSecond});
  report();
  EXPECT_EQ(place(), kSecond);
}

TEST_F(MonitorChangeTest, PluggedInUnderAnotherNameItIsTheSamePlace) {
  displays = FakeDisplays{};
  displays.remove(displays.add(kMain));
  displays.remove(displays.add(kMain));
  displays.add(kMain, true);  // DISPLAY3
  displays.add(kSecond);      // DISPLAY4
  screen.noteMoved(inTwips(kNormal));
  report();
  EXPECT_EQ(place(), kSecond);
}

TEST_F(MonitorChangeTest, WithoutAnyMonitorNothingMoves) {
  layOut({});
  report();
  EXPECT_EQ(place(), kSecond);
}

TEST_F(MonitorChangeTest, AMinimisedWindowStaysMinimised) {
  screen.noteWindowState(ui::WindowState::minimised);
  layOut({kMain});
  report();
  EXPECT_EQ(screen.windowState(), ui::WindowState::minimised);
}

}  // namespace
}  // namespace tessivo
