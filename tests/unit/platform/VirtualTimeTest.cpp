#include "fakes/VirtualTime.h"

#include <gtest/gtest.h>

#include "fakes/Trace.h"

namespace tessivo {
namespace {

TEST(VirtualTimeTest, TimersFireInOrderOfTheirDueTimes) {
  VirtualTime time;
  Trace trace;
  time.start(30, [&] { trace.add("30@" + std::to_string(time.ticksMs())); });
  time.start(20, [&] { trace.add("20@" + std::to_string(time.ticksMs())); });
  time.advance(60);
  EXPECT_EQ(trace.take(), "20@20 | 30@30 | 20@40 | 30@60 | 20@60");
  EXPECT_EQ(time.ticksMs(), 60U);
}

TEST(VirtualTimeTest, NothingFiresBeforeItsTime) {
  VirtualTime time;
  int ticks = 0;
  time.start(280, [&] { ++ticks; });
  time.advance(279);
  EXPECT_EQ(ticks, 0);
  time.advance(1);
  EXPECT_EQ(ticks, 1);
}

TEST(VirtualTimeTest, TickMayStopItsTimer) {
  VirtualTime time;
  int ticks = 0;
  TimerService::Id id = 0;
  id = time.start(10, [&] {
    ++ticks;
    time.stop(id);
  });
  time.advance(100);
  EXPECT_EQ(ticks, 1);
  EXPECT_EQ(time.running(), 0U);
}

}  // namespace
}  // namespace tessivo
