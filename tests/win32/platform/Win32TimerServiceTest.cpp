#include "platform/win32/Win32TimerService.h"

#include <gtest/gtest.h>

#include "fakes/FakeLog.h"
#include "fakes/Trace.h"
#include "win32/ui/RealControls.h"

namespace tessivo {
namespace {

using ui::eventually;

class Win32TimerServiceTest : public testing::Test {
 protected:
  FakeLog log;
  Win32TimerService timers{log};
  Trace trace;
  int ticks = 0;
};

TEST_F(Win32TimerServiceTest, TicksUntilStopped) {
  const auto id = timers.start(20, [this] { ++ticks; });
  EXPECT_TRUE(eventually([this] { return ticks >= 3; }));
  timers.stop(id);
  const int before = ticks;
  bool later = false;
  timers.start(60, [&] { later = true; });
  EXPECT_TRUE(eventually([&] { return later; }));
  EXPECT_EQ(ticks, before);
}

TEST_F(Win32TimerServiceTest, NeverTicksInsideStart) {
  timers.start(1, [this] { ++ticks; });
  EXPECT_EQ(ticks, 0);
}

TEST_F(Win32TimerServiceTest, ShortIntervalTicksOnTheNextTurnInOrderOfStart) {
  timers.start(1, [this] { trace.add("first"); });
  timers.start(1, [this] { trace.add("second"); });
  ui::handleWaiting();
  EXPECT_EQ(trace.take(), "first | second");
}

TEST_F(Win32TimerServiceTest, ShorterIntervalTicksFirst) {
  bool longerTicked = false;
  timers.start(300, [&] { longerTicked = true; });
  timers.start(30, [&] { trace.add(longerTicked ? "late" : "early"); });
  EXPECT_TRUE(eventually([&] { return longerTicked; }));
  EXPECT_EQ(trace.take().substr(0, 5), "early");
}

TEST_F(Win32TimerServiceTest, TickMayStopItsOwnTimer) {
  TimerService::Id id = 0;
  id = timers.start(1, [&] {
    ++ticks;
    timers.stop(id);
  });
  bool later = false;
  timers.start(60, [&] { later = true; });
  EXPECT_TRUE(eventually([&] { return later; }));
  EXPECT_EQ(ticks, 1);
}

TEST_F(Win32TimerServiceTest, TickUnderWayOfAStoppedTimerFindsNothing) {
  const auto id = timers.start(1, [this] { ++ticks; });
  timers.stop(id);  // its first tick is in the queue
  ui::handleWaiting();
  EXPECT_EQ(ticks, 0);
}

TEST_F(Win32TimerServiceTest, TickUnderWayDoesNotReachATimerStartedAnew) {
  const auto first = timers.start(1, [this] { trace.add("old"); });
  timers.stop(first);
  const auto second = timers.start(1000, [this] { trace.add("new"); });
  ui::handleWaiting();
  EXPECT_EQ(trace.take(), "");
  EXPECT_NE(first, second);
}

TEST_F(Win32TimerServiceTest, UnknownIdIsIgnored) {
  timers.start(1, [this] { ++ticks; });
  timers.stop(0);
  timers.stop(12345);
  ui::handleWaiting();
  EXPECT_EQ(ticks, 1);
}

TEST_F(Win32TimerServiceTest, TickMayEndTheService) {
  auto own = std::make_unique<Win32TimerService>(log);
  own->start(1, [&] {
    ++ticks;
    own.reset();
  });
  own->start(1, [this] { ++ticks; });
  ui::handleWaiting();
  EXPECT_EQ(ticks, 1);
}

}  // namespace
}  // namespace tessivo
