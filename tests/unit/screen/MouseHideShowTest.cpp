#include "screen/MouseHideShow.h"

#include <gtest/gtest.h>

#include <limits>
#include <memory>
#include <vector>

#include "fakes/FakeSystem.h"
#include "fakes/FakeThreadTimers.h"

namespace tessivo {
namespace {

constexpr std::int32_t kLargest = std::numeric_limits<std::int32_t>::max();
constexpr std::int32_t kSmallest = std::numeric_limits<std::int32_t>::min();
constexpr int kDayMs = 24 * 60 * 60 * 1000;

/// The pointer stands over a video window (3) in an engine's window (2) in the playback window (1).
/// The first tick, at 300 ms, notes where the pointer is: a rest of 6 seconds has passed at the
/// tick at 6600 ms.
class MouseHideShowTest : public testing::Test {
 protected:
  MouseHideShowTest() {
    windows.windows = {{1, {0, "", "Tessivo 播放窗口"}}, {2, {1, "", ""}}, {3, {2, "", "video"}}};
    windows.underPoint = 3;
    pointer.at = {1900, 500};
    makeHider();
  }
  void makeHider() {
    hider = std::make_unique<MouseHideShow>(MouseHideServices{time, pointer, windows, timers});
    hider->tellMePlayArea.listen([this](PlayArea& asked) {
      ++questions;
      asked = area;
    });
    questions = 0;
  }
  void startNow() {
    hider->boolEnabled(true);
    time.advance(300);
  }
  void rest() { time.advance(6300); }

  VirtualTime time;
  FakePointer pointer;
  FakeDesktopWindows windows;
  FakeThreadTimers system{time};
  MTimer timers{system};
  PlayArea area{1280, 0, 1920, 1080, true, "Tessivo 播放窗口"};
  int questions = 0;
  std::unique_ptr<MouseHideShow> hider;
};

TEST_F(MouseHideShowTest, IsDisabledWithARestOfSixSecondsAtFirst) {
  EXPECT_FALSE(hider->boolEnabled());
  EXPECT_EQ(hider->lngBeforeHideMouseSecondNum(), 6);
  time.advance(20000);
  EXPECT_EQ(questions, 0);
  EXPECT_EQ(pointer.calls, 0);
}

TEST_F(MouseHideShowTest, PollsEvery300Milliseconds) {
  hider->boolEnabled(true);
  ASSERT_EQ(system.running.size(), 1U);
  EXPECT_EQ(system.running.begin()->second.intervalMs, 300);
}

TEST_F(MouseHideShowTest, HidesTheRestingPointerWhenTheRestIsLongerThanTheDelay) {
  startNow();
  time.advance(6000);  // exactly the delay is not longer
  EXPECT_TRUE(pointer.seen());
  EXPECT_EQ(questions, 0);
  time.advance(300);
  EXPECT_FALSE(pointer.seen());
  EXPECT_EQ(questions, 1);
}

TEST_F(MouseHideShowTest, TheDelayIsTheOwners) {
  hider->lngBeforeHideMouseSecondNum(2);
  EXPECT_EQ(hider->lngBeforeHideMouseSecondNum(), 2);
  startNow();
  time.advance(1800);
  EXPECT_TRUE(pointer.seen());
  time.advance(300);
  EXPECT_FALSE(pointer.seen());
}

TEST_F(MouseHideShowTest, AMovementRestartsTheRest) {
  startNow();
  time.advance(5700);
  pointer.at.y += 1;
  time.advance(300);  // the movement is noted
  time.advance(6000);
  EXPECT_TRUE(pointer.seen());
  time.advance(300);
  EXPECT_FALSE(pointer.seen());
}

TEST_F(MouseHideShowTest, AMovementInEitherDirectionShowsTheHiddenPointerAtTheNextTick) {
  for (const Point step : {Point{1, 0}, Point{0, -1}}) {
    makeHider();
    startNow();
    rest();
    ASSERT_FALSE(pointer.seen());
    pointer.at = {pointer.at.x + step.x, pointer.at.y + step.y};
    time.advance(299);
    EXPECT_FALSE(pointer.seen());
    time.advance(1);
    EXPECT_TRUE(pointer.seen());
  }
}

TEST_F(MouseHideShowTest, HidesAgainAfterAFurtherRest) {
  startNow();
  rest();
  pointer.at.x += 5;
  time.advance(300);
  ASSERT_TRUE(pointer.seen());
  rest();
  EXPECT_FALSE(pointer.seen());
}

TEST_F(MouseHideShowTest, AHiddenPointerStaysAsItIsWhileItRests) {
  startNow();
  rest();
  const int calls = pointer.calls;
  time.advance(60000);
  EXPECT_FALSE(pointer.seen());
  EXPECT_EQ(pointer.calls, calls);
}

TEST_F(MouseHideShowTest, AMovementOfASeenPointerLeavesTheCounterAlone) {
  startNow();
  const int calls = pointer.calls;
  pointer.at.x += 5;
  time.advance(300);
  EXPECT_EQ(pointer.calls, calls);
}

TEST_F(MouseHideShowTest, AllFourEdgesOfTheAreaAreInside) {
  for (const Point edge : {Point{1280, 500}, Point{3200, 500}, Point{1900, 0}, Point{1900, 1080},
                           Point{1280, 0}, Point{3200, 1080}}) {
    makeHider();
    pointer.at = edge;
    startNow();
    rest();
    EXPECT_FALSE(pointer.seen()) << edge.x << "," << edge.y;
  }
}

TEST_F(MouseHideShowTest, OnePixelBeyondAnEdgeIsOutside) {
  for (const Point beyond :
       {Point{1279, 500}, Point{3201, 500}, Point{1900, -1}, Point{1900, 1081}}) {
    makeHider();
    pointer.at = beyond;
    startNow();
    rest();
    EXPECT_EQ(questions, 1);
    EXPECT_TRUE(pointer.seen()) << beyond.x << "," << beyond.y;
  }
}

TEST_F(MouseHideShowTest, AnAreaThatDoesNotCountIsNowhere) {
  area.boolAreaValid = false;
  startNow();
  rest();
  EXPECT_EQ(questions, 1);
  EXPECT_TRUE(pointer.seen());
}

TEST_F(MouseHideShowTest, WithoutAnAnswerThePointerStays) {
  MouseHideShow alone({time, pointer, windows, timers});
  alone.boolEnabled(true);
  time.advance(20000);
  EXPECT_TRUE(pointer.seen());
}

TEST_F(MouseHideShowTest, OutsideTheRestBeginsAnew) {
  area.boolAreaValid = false;
  startNow();
  rest();
  area.boolAreaValid = true;
  time.advance(6000);
  EXPECT_EQ(questions, 1);
  EXPECT_TRUE(pointer.seen());
  time.advance(300);
  EXPECT_EQ(questions, 2);
  EXPECT_FALSE(pointer.seen());
}

TEST_F(MouseHideShowTest, AHiddenPointerWhoseAreaIsGoneStaysHiddenUntilItMoves) {
  startNow();
  rest();
  area.boolAreaValid = false;
  time.advance(6300);
  EXPECT_FALSE(pointer.seen());
  EXPECT_EQ(questions, 2);  // a new rest began with the first of its ticks
  pointer.at.x += 1;
  time.advance(300);
  EXPECT_TRUE(pointer.seen());
}

TEST_F(MouseHideShowTest, LooksForTheWindowWhereThePointerIs) {
  startNow();
  rest();
  EXPECT_EQ(windows.lastPoint, (Point{1900, 500}));
}

TEST_F(MouseHideShowTest, TheWindowItselfDoesNotCount) {
  windows.underPoint = 1;
  startNow();
  rest();
  EXPECT_TRUE(pointer.seen());
}

TEST_F(MouseHideShowTest, TheNearestParentCounts) {
  windows.underPoint = 2;
  startNow();
  rest();
  EXPECT_FALSE(pointer.seen());
}

TEST_F(MouseHideShowTest, NoWindowUnderThePointerCountsAsNone) {
  windows.underPoint = 0;
  startNow();
  rest();
  EXPECT_TRUE(pointer.seen());
}

TEST_F(MouseHideShowTest, OverAnotherWindowTheRestBeginsAnew) {
  windows.windows[1].title = "something else";
  startNow();
  rest();
  EXPECT_TRUE(pointer.seen());
  windows.windows[1].title = "Tessivo 播放窗口";
  time.advance(6000);
  EXPECT_EQ(questions, 1);
  EXPECT_TRUE(pointer.seen());
  time.advance(300);
  EXPECT_FALSE(pointer.seen());
}

TEST_F(MouseHideShowTest, TitlesAreComparedInUpperCase) {
  windows.windows[1].title = "tESSIVO 播放窗口";
  startNow();
  rest();
  EXPECT_FALSE(pointer.seen());
}

TEST_F(MouseHideShowTest, TitlesAreComparedWhole) {
  for (const char* title : {"Tessivo 播放", "Tessivo 播放窗口 2", "Tessivo 播放窗囗"}) {
    windows.windows[1].title = title;
    makeHider();
    startNow();
    rest();
    EXPECT_EQ(questions, 1);
    EXPECT_TRUE(pointer.seen()) << title;
  }
}

TEST_F(MouseHideShowTest, AnEmptyTitleMatchesNoWindow) {
  area.strWinCaption = "";  // window 2 has an empty title, too
  startNow();
  rest();
  EXPECT_EQ(questions, 1);
  EXPECT_TRUE(pointer.seen());
  time.advance(6000);  // the rest began anew
  EXPECT_EQ(questions, 1);
}

TEST_F(MouseHideShowTest, ARestAcrossMidnightHidesAtOnce) {
  time.setDate({2026, 1, 1, kDayMs - 600});
  startNow();
  time.setDate({2026, 1, 2, -600});  // the next tick is at midnight
  time.advance(300);
  EXPECT_FALSE(pointer.seen());
}

TEST_F(MouseHideShowTest, AfterMidnightAnotherRestIsMeasuredAsEver) {
  time.setDate({2026, 1, 1, kDayMs - 600});
  startNow();
  time.setDate({2026, 1, 2, -600});
  pointer.at.x += 1;
  time.advance(300);
  time.advance(6000);
  EXPECT_TRUE(pointer.seen());
  time.advance(300);
  EXPECT_FALSE(pointer.seen());
}

TEST_F(MouseHideShowTest, AClockThatIsSetByAnHourHidesAtOnceAndAMovementShows) {
  for (const int hours : {-1, 1}) {
    SCOPED_TRACE(hours);
    time.setDate({2026, 1, 1, kDayMs / 2});
    pointer.at.x += 1;
    startNow();
    time.advance(300);
    EXPECT_TRUE(pointer.seen());
    time.setDate({2026, 1, 1, kDayMs / 2 + hours * 3'600'000});
    time.advance(300);
    EXPECT_FALSE(pointer.seen());
    pointer.at.x += 1;
    time.advance(300);
    EXPECT_TRUE(pointer.seen());
    hider->boolEnabled(false);
  }
}

TEST_F(MouseHideShowTest, AClockThatIsSetBackByLessThanTheRestProlongsItByThatAtMost) {
  time.setDate({2026, 1, 1, kDayMs / 2});
  pointer.at.x += 1;
  startNow();
  time.advance(300);
  time.setDate({2026, 1, 1, kDayMs / 2 - 4000});
  time.advance(5700);
  EXPECT_TRUE(pointer.seen());
  time.advance(4600);
  EXPECT_FALSE(pointer.seen());
}

TEST_F(MouseHideShowTest, AnUnmovedPointerHasRestedLongWhenHidingIsEnabledAnew) {
  time.setDate({2026, 1, 1, kDayMs / 2});
  startNow();
  hider->boolEnabled(false);
  startNow();
  EXPECT_FALSE(pointer.seen());
}

TEST_F(MouseHideShowTest, DisablingShowsTheHiddenPointer) {
  startNow();
  rest();
  ASSERT_FALSE(pointer.seen());
  hider->boolEnabled(false);
  EXPECT_TRUE(pointer.seen());
  EXPECT_TRUE(system.running.empty());
  time.advance(60000);
  EXPECT_TRUE(pointer.seen());
}

TEST_F(MouseHideShowTest, EnablingShowsAPointerThatSomebodyElseHid) {
  pointer.displayCount = -3;
  hider->boolEnabled(true);
  EXPECT_EQ(pointer.displayCount, 0);
}

TEST_F(MouseHideShowTest, TheSameStateOnceMoreChangesNothing) {
  startNow();
  rest();
  const int calls = pointer.calls;
  hider->boolEnabled(true);
  EXPECT_EQ(pointer.calls, calls);
  EXPECT_FALSE(pointer.seen());
}

TEST_F(MouseHideShowTest, EndingShowsThePointer) {
  startNow();
  rest();
  ASSERT_FALSE(pointer.seen());
  hider.reset();
  EXPECT_TRUE(pointer.seen());
  EXPECT_TRUE(system.running.empty());
}

TEST_F(MouseHideShowTest, WhateverTheCounterWasItIsHiddenAndShownByOneCallEach) {
  for (const int odd : {-7, -1, 0, 1, 9}) {
    makeHider();
    startNow();
    pointer.displayCount = odd;
    rest();
    EXPECT_FALSE(pointer.seen()) << odd;
    pointer.displayCount = odd;
    pointer.at.x += 1;
    time.advance(300);
    EXPECT_TRUE(pointer.seen()) << odd;
  }
}

TEST_F(MouseHideShowTest, HidingStopsJustBelowZeroAndShowingAtZero) {
  startNow();
  pointer.displayCount = 4;
  rest();
  EXPECT_EQ(pointer.displayCount, -1);
  pointer.displayCount = -4;
  pointer.at.x += 1;
  time.advance(300);
  EXPECT_EQ(pointer.displayCount, 0);
}

TEST_F(MouseHideShowTest, ACounterThatDoesNotMoveHangsNothing) {
  pointer.stuck = true;
  pointer.displayCount = 5;
  startNow();
  rest();
  EXPECT_EQ(questions, 1);
  pointer.displayCount = -5;
  hider.reset();
  EXPECT_EQ(pointer.displayCount, -5);
  EXPECT_LT(pointer.calls, 100000);
}

TEST_F(MouseHideShowTest, AnAreaBeyond32BitsEndsTheTickWithoutEffect) {
  const std::vector<PlayArea> tooLarge = {{kLargest, 0, 1, 1080, true, ""},
                                          {1280, kLargest, 1920, 1, true, ""},
                                          {1280, 0, kLargest, 1080, true, ""},
                                          {1280, 1, 1920, kLargest, true, ""},
                                          {kSmallest, 0, kSmallest, 10, false, ""}};
  for (const PlayArea& one : tooLarge) {
    area = one;
    makeHider();
    startNow();
    rest();
    EXPECT_EQ(questions, 1);
    time.advance(600);  // the rest goes on: each further tick asks again
    EXPECT_EQ(questions, 3);
    EXPECT_TRUE(pointer.seen());
  }
}

TEST_F(MouseHideShowTest, AnAreaUpToTheLastOf32BitsCounts) {
  area.lngWidth = kLargest - area.lngLeft;
  area.lngHeight = kLargest - area.lngTop;
  startNow();
  rest();
  EXPECT_FALSE(pointer.seen());
}

TEST_F(MouseHideShowTest, ADelayBeyond32BitsEndsTheTickBeforeTheQuestion) {
  for (const std::int32_t seconds : {kLargest, 2147484, -2147484, kSmallest}) {
    makeHider();
    hider->lngBeforeHideMouseSecondNum(seconds);
    startNow();
    time.advance(kDayMs / 24);
    EXPECT_EQ(questions, 0) << seconds;
  }
}

TEST_F(MouseHideShowTest, ADelayBeyond32BitsStillShowsAMovedPointer) {
  startNow();
  rest();
  ASSERT_FALSE(pointer.seen());
  hider->lngBeforeHideMouseSecondNum(kLargest);
  pointer.at.x += 1;
  time.advance(300);
  EXPECT_TRUE(pointer.seen());
}

TEST_F(MouseHideShowTest, ANegativeDelayHidesAtTheFirstTickWithoutMovement) {
  hider->lngBeforeHideMouseSecondNum(-2147483);
  startNow();
  EXPECT_TRUE(pointer.seen());
  time.advance(300);
  EXPECT_FALSE(pointer.seen());
}

TEST_F(MouseHideShowTest, WithoutASystemTimerItIsEnabledAndHidesNothing) {
  system.fails = true;
  startNow();
  EXPECT_TRUE(hider->boolEnabled());
  rest();
  EXPECT_TRUE(pointer.seen());
  hider->boolEnabled(false);
  system.fails = false;
  startNow();
  rest();
  EXPECT_FALSE(pointer.seen());
}

}  // namespace
}  // namespace tessivo
