#include "platform/TimerClass.h"

#include <gtest/gtest.h>

#include <limits>
#include <memory>

#include "fakes/FakeThreadTimers.h"
#include "fakes/Trace.h"

namespace tessivo {
namespace {

class TimerClassTest : public testing::Test {
 protected:
  void watch(TimerClass& watched) {
    watched.ItsTime.listen([this] { ++ticks; });
  }
  void start(std::int32_t intervalMs) {
    timer.lngInterval(intervalMs);
    timer.boolEnabled(true);
  }

  VirtualTime time;
  FakeThreadTimers system{time};
  MTimer timers{system};
  TimerClass timer{timers};
  int ticks = 0;
};

TEST_F(TimerClassTest, IsStoppedWithAnIntervalOfASecondAtFirst) {
  watch(timer);
  EXPECT_EQ(timer.lngInterval(), 1000);
  EXPECT_FALSE(timer.boolEnabled());
  time.advance(5000);
  EXPECT_EQ(ticks, 0);
}

TEST_F(TimerClassTest, TicksEveryIntervalWhileEnabled) {
  watch(timer);
  start(300);
  EXPECT_TRUE(timer.boolEnabled());
  time.advance(299);
  EXPECT_EQ(ticks, 0);
  time.advance(601);
  EXPECT_EQ(ticks, 3);
}

TEST_F(TimerClassTest, NeverTicksAgainOnceStopped) {
  watch(timer);
  start(300);
  time.advance(300);
  timer.boolEnabled(false);
  EXPECT_FALSE(timer.boolEnabled());
  time.advance(3000);
  EXPECT_EQ(ticks, 1);
}

TEST_F(TimerClassTest, StoppingGivesTheSystemTimerAndTheRelayBack) {
  start(300);
  EXPECT_EQ(system.running.size(), 1U);
  EXPECT_EQ(timers.count(), 1U);
  timer.boolEnabled(false);
  EXPECT_TRUE(system.running.empty());
  EXPECT_EQ(timers.count(), 0U);
}

TEST_F(TimerClassTest, EnablingAnEnabledTimerDoesNotRestartIt) {
  watch(timer);
  start(300);
  time.advance(200);
  timer.boolEnabled(true);
  time.advance(100);
  EXPECT_EQ(ticks, 1);
  EXPECT_EQ(system.running.size(), 1U);
}

TEST_F(TimerClassTest, StartingAnewBeginsAFullInterval) {
  watch(timer);
  start(300);
  time.advance(200);
  timer.boolEnabled(false);
  timer.boolEnabled(true);
  time.advance(299);
  EXPECT_EQ(ticks, 0);
  time.advance(1);
  EXPECT_EQ(ticks, 1);
}

TEST_F(TimerClassTest, AnIntervalBelowOneIsIgnored) {
  timer.lngInterval(250);
  for (const std::int32_t ms : {0, -1, std::numeric_limits<std::int32_t>::min()}) {
    timer.lngInterval(ms);
    EXPECT_EQ(timer.lngInterval(), 250) << ms;
  }
}

TEST_F(TimerClassTest, TheSmallestAndTheLargestIntervalAreAccepted) {
  for (const std::int32_t ms : {1, std::numeric_limits<std::int32_t>::max()}) {
    timer.lngInterval(ms);
    EXPECT_EQ(timer.lngInterval(), ms);
  }
}

TEST_F(TimerClassTest, TheIntervalOfARunningTimerCannotChange) {
  watch(timer);
  start(300);
  timer.lngInterval(50);
  EXPECT_EQ(timer.lngInterval(), 300);
  time.advance(300);
  EXPECT_EQ(ticks, 1);
}

TEST_F(TimerClassTest, TheIntervalChangesByStopSetStart) {
  watch(timer);
  start(300);
  timer.boolEnabled(false);
  start(50);
  time.advance(300);
  EXPECT_EQ(ticks, 6);
}

TEST_F(TimerClassTest, WithoutASystemTimerItStaysDisabled) {
  watch(timer);
  system.fails = true;
  start(300);
  EXPECT_FALSE(timer.boolEnabled());
  EXPECT_EQ(timers.count(), 0U);
  time.advance(1000);
  EXPECT_EQ(ticks, 0);
}

TEST_F(TimerClassTest, AfterAFailureItCanBeSetAndStartedAgain) {
  watch(timer);
  system.fails = true;
  start(300);
  system.fails = false;
  start(100);
  EXPECT_TRUE(timer.boolEnabled());
  time.advance(100);
  EXPECT_EQ(ticks, 1);
}

TEST_F(TimerClassTest, EndingARunningTimerGivesEverythingBack) {
  auto own = std::make_unique<TimerClass>(timers);
  watch(*own);
  own->boolEnabled(true);
  own.reset();
  EXPECT_TRUE(system.running.empty());
  EXPECT_EQ(timers.count(), 0U);
  time.advance(5000);
  EXPECT_EQ(ticks, 0);
}

TEST_F(TimerClassTest, EndingAStoppedTimerLeavesTheOthers) {
  watch(timer);
  start(300);
  { const TimerClass other(timers); }
  time.advance(300);
  EXPECT_EQ(ticks, 1);
}

TEST_F(TimerClassTest, EachTimerHasItsOwnTicks) {
  Trace trace;
  TimerClass other(timers);
  timer.ItsTime.listen([&] { trace.add("300"); });
  other.ItsTime.listen([&] { trace.add("200"); });
  other.lngInterval(200);
  start(300);
  other.boolEnabled(true);
  time.advance(500);
  EXPECT_EQ(trace.take(), "200 | 300 | 200");
  timer.boolEnabled(false);
  time.advance(400);
  EXPECT_EQ(trace.take(), "200 | 200");
}

TEST_F(TimerClassTest, ATickWithAMissingKeyDoesNothing) {
  watch(timer);
  system.nextIdentifier = 7;
  start(300);
  const auto tick = [this](std::uint32_t identifier) {
    system.lastProcedure->timerProc(identifier);
    return ticks;
  };
  EXPECT_EQ(tick(8), 0);
  EXPECT_EQ(tick(0), 0);
  EXPECT_EQ(tick(77), 0);
  EXPECT_EQ(tick(7), 1);
  timer.boolEnabled(false);
  EXPECT_EQ(tick(7), 1);
}

TEST_F(TimerClassTest, IdentifiersUseAll32Bits) {
  watch(timer);
  system.nextIdentifier = std::numeric_limits<std::uint32_t>::max();
  start(300);
  time.advance(300);
  EXPECT_EQ(ticks, 1);
  timer.boolEnabled(false);
  EXPECT_EQ(timers.count(), 0U);
}

TEST_F(TimerClassTest, ATickMayStopItsTimer) {
  timer.ItsTime.listen([this] {
    ++ticks;
    timer.boolEnabled(false);
  });
  start(300);
  time.advance(3000);
  EXPECT_EQ(ticks, 1);
}

TEST_F(TimerClassTest, ATickMayStartItsTimerAnewWithAnotherInterval) {
  timer.ItsTime.listen([this] {
    ++ticks;
    timer.boolEnabled(false);
    start(1000);
  });
  start(300);
  time.advance(1300);
  EXPECT_EQ(ticks, 2);
  EXPECT_EQ(system.running.size(), 1U);
}

TEST_F(TimerClassTest, ATickMayEndItsTimer) {
  auto own = std::make_unique<TimerClass>(timers);
  own->ItsTime.listen([&] {
    ++ticks;
    own.reset();
  });
  own->boolEnabled(true);
  time.advance(5000);
  EXPECT_EQ(ticks, 1);
  EXPECT_EQ(timers.count(), 0U);
}

TEST_F(TimerClassTest, ATickMayEndAnotherTimer) {
  auto other = std::make_unique<TimerClass>(timers);
  other->ItsTime.listen([this] { ++ticks; });
  timer.ItsTime.listen([&] { other.reset(); });
  start(1000);
  other->boolEnabled(true);
  time.advance(3000);
  EXPECT_EQ(ticks, 0);
}

}  // namespace
}  // namespace tessivo
