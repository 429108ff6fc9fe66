#include "ui/Timer.h"

#include <gtest/gtest.h>

#include "fakes/VirtualTime.h"

namespace tessivo::ui {
namespace {

class TimerTest : public testing::Test {
 protected:
  void watch(Timer& timer) {
    timer.onTimer.listen([this] { ++ticks; });
  }

  VirtualTime time;
  int ticks = 0;
};

TEST_F(TimerTest, TicksEveryIntervalWhileEnabled) {
  Timer timer(time, "tim", 100, true);
  watch(timer);
  time.advance(350);
  EXPECT_EQ(ticks, 3);
}

TEST_F(TimerTest, StartsDisabledUnlessToldOtherwise) {
  Timer timer(time, "tim", 100);
  watch(timer);
  time.advance(1000);
  EXPECT_EQ(ticks, 0);
}

TEST_F(TimerTest, EnablingAnEnabledTimerDoesNotRestartIt) {
  Timer timer(time, "tim", 100, true);
  watch(timer);
  time.advance(60);
  timer.setEnabled(true);
  time.advance(40);
  EXPECT_EQ(ticks, 1);
}

TEST_F(TimerTest, DisablingAndEnablingStartsAFullInterval) {
  Timer timer(time, "tim", 100, true);
  watch(timer);
  time.advance(60);
  timer.setEnabled(false);
  timer.setEnabled(true);
  time.advance(99);
  EXPECT_EQ(ticks, 0);
  time.advance(1);
  EXPECT_EQ(ticks, 1);
}

TEST_F(TimerTest, NewIntervalRestartsARunningTimer) {
  Timer timer(time, "tim", 100, true);
  watch(timer);
  time.advance(60);
  timer.setInterval(50);
  time.advance(49);
  EXPECT_EQ(ticks, 0);
  time.advance(1);
  EXPECT_EQ(ticks, 1);
}

TEST_F(TimerTest, IntervalOfZeroNeverFires) {
  Timer timer(time, "tim", 0, true);
  watch(timer);
  time.advance(1000);
  EXPECT_EQ(ticks, 0);
  EXPECT_EQ(time.running(), 0U);
}

TEST_F(TimerTest, TickMayDisableTheTimer) {
  Timer timer(time, "tim", 1, true);
  watch(timer);
  timer.onTimer.listen([&] { timer.setEnabled(false); });
  time.advance(100);
  EXPECT_EQ(ticks, 1);
}

TEST_F(TimerTest, TickMayDestroyTheTimer) {
  auto timer = std::make_unique<Timer>(time, "tim", 1, true);
  timer->onTimer.listen([&] {
    ++ticks;
    timer.reset();
  });
  time.advance(100);
  EXPECT_EQ(ticks, 1);
  EXPECT_EQ(time.running(), 0U);
}

}  // namespace
}  // namespace tessivo::ui
