#include "saver/MouseKeyboardCheck.h"

#include <gtest/gtest.h>

#include <limits>

#include "fakes/FakeSaverSystem.h"
#include "fakes/FakeThreadTimers.h"

namespace tessivo {
namespace {

using Limits = std::numeric_limits<std::int32_t>;

class MouseKeyboardCheckTest : public testing::Test {
 protected:
  MouseKeyboardCheckTest() {
    check.UserIsActive.listen([this] { trace.add("active"); });
    check.ComputerIsIdle.listen([this] { trace.add("idle"); });
  }
  void watch(std::int32_t state = idleState::kActive) { check.lngWorkState(state); }
  std::int32_t intervalMs() const { return threadTimers.running.begin()->second.intervalMs; }

  Trace trace;
  VirtualTime time;
  FakeThreadTimers threadTimers{time};
  MTimer timers{threadTimers};
  FakeIdleInput input{time};
  MouseKeyboardCheck check{input, timers};
};

TEST_F(MouseKeyboardCheckTest, IsStoppedAtFirstAndLooksEverySecondWhenStarted) {
  EXPECT_EQ(check.lngWorkState(), 3);
  EXPECT_EQ(check.lngCheckMilliSecondsValue(), 1000);
  time.advance(200'000);
  EXPECT_EQ(input.reads, 0);
  watch();
  EXPECT_EQ(check.lngWorkState(), 2);
  input.reads = 0;
  time.advance(999);
  EXPECT_EQ(input.reads, 0);
  time.advance(1);
  EXPECT_EQ(input.reads, 1);
}

TEST_F(MouseKeyboardCheckTest, AMinuteIsNotIdleYetAndTheNextSecondIs) {
  watch();
  time.advance(60'400);
  EXPECT_EQ(trace.take(), "");
  time.advance(600);
  EXPECT_EQ(trace.take(), "idle");
  EXPECT_EQ(check.lngWorkState(), 1);
}

TEST_F(MouseKeyboardCheckTest, IdlenessIsToldOnce) {
  watch();
  time.advance(600'000);
  EXPECT_EQ(trace.take(), "idle");
}

/// The idle time at the tick, and whether that is more than the one minute.
struct Rounding {
  std::uint32_t idleMs;
  bool idle;
};

class IdleRoundingTest : public MouseKeyboardCheckTest,
                         public testing::WithParamInterface<Rounding> {};

TEST_P(IdleRoundingTest, SecondsAreRoundedHalfToEven) {
  input.startTick = 1'000'000;
  input.touch();
  watch();
  // The last input is so far before the first tick, which comes after one second.
  input.lastInput = input.startTick + 1000 - GetParam().idleMs;
  time.advance(1000);
  EXPECT_EQ(trace.take(), GetParam().idle ? "idle" : "");
}

INSTANTIATE_TEST_SUITE_P(All, IdleRoundingTest,
                         testing::Values(Rounding{60'000, false}, Rounding{60'400, false},
                                         Rounding{60'499, false}, Rounding{60'500, false},
                                         Rounding{60'501, true}, Rounding{61'000, true},
                                         Rounding{61'500, true}));

TEST_F(MouseKeyboardCheckTest, AHalfIsRoundedToTheEvenNeighbourAlsoUpwards) {
  input.begin(1'000'000);
  check.lngFreeMinute(0);
  watch();
  input.lastInput = input.startTick + 1000 - 500;  // half a second: to 0
  time.advance(1000);
  EXPECT_EQ(trace.take(), "");
  input.lastInput = input.startTick + 2000 - 1500;  // to 2
  time.advance(1000);
  EXPECT_EQ(trace.take(), "idle");
}

TEST_F(MouseKeyboardCheckTest, AThresholdOfNothingIsIdleAtOnceButNotBelowHalfASecond) {
  check.lngFreeMinute(0);
  watch();
  time.skip(600);
  input.touch();
  time.advance(400);  // the tick at 1000, 400 ms after the input
  EXPECT_EQ(trace.take(), "");
  time.advance(1000);
  EXPECT_EQ(trace.take(), "idle");
}

TEST_F(MouseKeyboardCheckTest, InputBeginsTheIdleTimeAnew) {
  watch();
  time.advance(50'000);
  input.touch();
  time.advance(60'000);
  EXPECT_EQ(trace.take(), "");
  time.advance(1000);
  EXPECT_EQ(trace.take(), "idle");
}

TEST_F(MouseKeyboardCheckTest, AnyInputAfterIdlenessIsToldWithinOneIntervalAndOnce) {
  watch();
  time.advance(61'000);
  trace.take();
  time.advance(5'300);
  input.touch();
  time.advance(700);
  EXPECT_EQ(trace.take(), "active");
  EXPECT_EQ(check.lngWorkState(), 2);
  input.touch();
  time.advance(5'000);
  EXPECT_EQ(trace.take(), "");
}

TEST_F(MouseKeyboardCheckTest, IdlenessAndActivityTakeTurns) {
  watch();
  for (int round = 0; round < 3; ++round) {
    time.advance(62'000);
    input.touch();
    time.advance(1'000);
    EXPECT_EQ(trace.take(), "idle | active");
  }
}

TEST_F(MouseKeyboardCheckTest, AnInputTickThatGoesBackIsActivityToo) {
  input.begin(5'000);
  watch(idleState::kIdle);
  input.lastInput = 4'000;
  time.advance(1'000);
  EXPECT_EQ(trace.take(), "active");
}

TEST_F(MouseKeyboardCheckTest, WatchingForActivityCanBeginAtOnce) {
  watch(idleState::kIdle);
  EXPECT_EQ(check.lngWorkState(), 1);
  time.advance(5'000);
  EXPECT_EQ(trace.take(), "");
  input.touch();
  time.advance(1'000);
  EXPECT_EQ(trace.take(), "active");
}

TEST_F(MouseKeyboardCheckTest, TurningToActivityTakesTheInputSoFarAsOld) {
  watch();
  time.advance(1'500);
  input.touch();
  watch(idleState::kIdle);
  EXPECT_EQ(check.lngWorkState(), 1);
  time.advance(3'000);
  EXPECT_EQ(trace.take(), "");
  input.touch();
  time.advance(1'000);
  EXPECT_EQ(trace.take(), "active");
}

TEST_F(MouseKeyboardCheckTest, TurningToIdlenessGoesOnWithTheRunningTimer) {
  watch(idleState::kIdle);
  const std::uint32_t identifier = threadTimers.running.begin()->first;
  time.advance(500);
  input.reads = 0;
  watch();
  EXPECT_EQ(check.lngWorkState(), 2);
  EXPECT_EQ(input.reads, 1);
  EXPECT_EQ(threadTimers.running.begin()->first, identifier);
  time.advance(500);  // its tick, half a second later
  EXPECT_EQ(input.reads, 2);
}

TEST_F(MouseKeyboardCheckTest, TheStateItHasAlreadyNeitherRestartsTheTimerNorReadsTheInput) {
  for (const std::int32_t state : {2, 1, 3}) {
    watch(state);
    time.advance(500);
    input.reads = 0;
    watch(state);
    EXPECT_EQ(input.reads, 0) << state;
    time.advance(500);
    EXPECT_EQ(input.reads, state == 3 ? 0 : 1) << state;
  }
}

TEST_F(MouseKeyboardCheckTest, StoppingEndsTheTimer) {
  for (const std::int32_t state : {1, 2}) {
    watch(state);
    EXPECT_EQ(threadTimers.running.size(), 1U);
    watch(idleState::kStopped);
    EXPECT_EQ(check.lngWorkState(), 3);
    EXPECT_TRUE(threadTimers.running.empty());
    input.touch();
    time.advance(200'000);
    EXPECT_EQ(trace.take(), "");
  }
}

TEST_F(MouseKeyboardCheckTest, OtherStatesAreIgnored) {
  for (const std::int32_t state : {0, 4, -1, Limits::max(), Limits::min()}) {
    watch(state);
    EXPECT_EQ(check.lngWorkState(), 3);
  }
  watch();
  watch(4);
  EXPECT_EQ(check.lngWorkState(), 2);
  time.advance(61'000);
  EXPECT_EQ(trace.take(), "idle");
}

TEST_F(MouseKeyboardCheckTest, WithoutAnAnswerTheStateDoesNotChange) {
  input.fails = true;
  watch();
  EXPECT_EQ(check.lngWorkState(), 3);
  EXPECT_TRUE(threadTimers.running.empty());
  watch(idleState::kIdle);
  EXPECT_EQ(check.lngWorkState(), 3);
  input.fails = false;
  watch();
  input.fails = true;
  watch(idleState::kIdle);
  EXPECT_EQ(check.lngWorkState(), 2);
  watch(idleState::kStopped);  // asks nobody
  EXPECT_EQ(check.lngWorkState(), 3);
}

TEST_F(MouseKeyboardCheckTest, ATickWithoutAnAnswerDoesNothing) {
  watch();
  time.advance(59'000);
  input.fails = true;
  time.advance(60'000);
  EXPECT_EQ(trace.take(), "");
  EXPECT_EQ(check.lngWorkState(), 2);
  input.fails = false;
  time.advance(1'000);
  EXPECT_EQ(trace.take(), "idle");
  input.fails = true;
  input.touch();
  time.advance(5'000);
  EXPECT_EQ(trace.take(), "");
  input.fails = false;
  time.advance(1'000);
  EXPECT_EQ(trace.take(), "active");
}

TEST_F(MouseKeyboardCheckTest, TheThresholdIsInMinutes) {
  check.lngFreeMinute(3);
  watch();
  time.advance(180'000);
  EXPECT_EQ(trace.take(), "");
  time.advance(1'000);
  EXPECT_EQ(trace.take(), "idle");
}

TEST_F(MouseKeyboardCheckTest, AThresholdOfNothingOrLessStaysForGood) {
  check.lngFreeMinute(0);
  check.lngFreeMinute(5);
  watch();
  time.advance(1'000);
  EXPECT_EQ(trace.take(), "idle");
}

TEST_F(MouseKeyboardCheckTest, ANegativeThresholdIsIdleAtTheFirstTickForGood) {
  check.lngFreeMinute(-1);
  check.lngFreeMinute(5);
  watch();
  time.skip(1'000);
  input.touch();
  time.advance(0);
  EXPECT_EQ(trace.take(), "idle");
}

TEST_F(MouseKeyboardCheckTest, AThresholdOutOfRangeNeverCountsAsIdle) {
  for (const std::int32_t minutes : {Limits::max(), 35'791'395, Limits::min()}) {
    MouseKeyboardCheck extreme(input, timers);
    extreme.ComputerIsIdle.listen([this] { trace.add("idle"); });
    extreme.lngFreeMinute(minutes);
    extreme.lngWorkState(idleState::kActive);
    time.advance(10'000);
    EXPECT_EQ(trace.take(), "") << minutes;
    EXPECT_EQ(extreme.lngWorkState(), 2);
  }
}

TEST_F(MouseKeyboardCheckTest, TheThresholdReadsAsNothing) {
  EXPECT_EQ(check.lngFreeMinute(), 0);
  check.lngFreeMinute(7);
  EXPECT_EQ(check.lngFreeMinute(), 0);
}

TEST_F(MouseKeyboardCheckTest, AnotherIntervalTakesEffectWhileItRuns) {
  watch();
  time.advance(900);
  check.lngCheckMilliSecondsValue(250);
  EXPECT_EQ(check.lngCheckMilliSecondsValue(), 250);
  EXPECT_EQ(intervalMs(), 250);
  input.reads = 0;
  time.advance(249);
  EXPECT_EQ(input.reads, 0);
  time.advance(1);
  EXPECT_EQ(input.reads, 1);
}

TEST_F(MouseKeyboardCheckTest, AnotherIntervalOfAStoppedOneStartsNothing) {
  check.lngCheckMilliSecondsValue(250);
  EXPECT_TRUE(threadTimers.running.empty());
  watch();
  EXPECT_EQ(intervalMs(), 250);
}

TEST_F(MouseKeyboardCheckTest, TheSameIntervalDoesNotStartTheTimerAnew) {
  watch();
  time.advance(900);
  input.reads = 0;
  check.lngCheckMilliSecondsValue(1000);
  time.advance(100);
  EXPECT_EQ(input.reads, 1);
}

// The counter of a machine that has run for 24.8 and for 49.7 days.

class TickCounterTest : public MouseKeyboardCheckTest,
                        public testing::WithParamInterface<std::uint32_t> {};

TEST_P(TickCounterTest, TheEdgeInsideTheIdleTimeChangesNothing) {
  input.begin(GetParam() - 30'000);
  watch();
  time.advance(60'000);
  EXPECT_EQ(trace.take(), "");
  time.advance(1'000);
  EXPECT_EQ(trace.take(), "idle");
  input.touch();
  time.advance(1'000);
  EXPECT_EQ(trace.take(), "active");
}

TEST_P(TickCounterTest, AnInputJustBeforeTheEdgeIsShortAgoAfterIt) {
  input.begin(GetParam() - 500);
  watch();
  time.advance(1'000);
  EXPECT_EQ(trace.take(), "");
}

INSTANTIATE_TEST_SUITE_P(All, TickCounterTest, testing::Values(0U, 0x80000000U));

TEST_F(MouseKeyboardCheckTest, AnInputThatIsNewerThanTheCountIsShortAgo) {
  input.begin(1'000'000);
  watch();
  input.lastInput = input.startTick + 1'016;
  time.advance(1'000);
  EXPECT_EQ(trace.take(), "");
  // As far ahead as idleness takes: the difference counts without its sign.
  input.lastInput = input.startTick + 2'000 + 61'000;
  time.advance(1'000);
  EXPECT_EQ(trace.take(), "idle");
}

TEST_F(MouseKeyboardCheckTest, TheGreatestDifferenceIsIdle) {
  input.begin(0);
  watch();
  input.lastInput = input.tickCount() + 1'000 - 0x80000000U;
  time.advance(1'000);
  EXPECT_EQ(trace.take(), "idle");
}

TEST_F(MouseKeyboardCheckTest, ItMayBeStoppedInItsOwnEvent) {
  check.ComputerIsIdle.listen([this] { check.lngWorkState(idleState::kStopped); });
  watch();
  time.advance(70'000);
  EXPECT_EQ(check.lngWorkState(), 3);
  EXPECT_TRUE(threadTimers.running.empty());
}

TEST_F(MouseKeyboardCheckTest, ItsTimerEndsWithIt) {
  {
    MouseKeyboardCheck other(input, timers);
    other.lngWorkState(idleState::kActive);
    ASSERT_EQ(threadTimers.running.size(), 1U);
  }
  EXPECT_TRUE(threadTimers.running.empty());
}

}  // namespace
}  // namespace tessivo
