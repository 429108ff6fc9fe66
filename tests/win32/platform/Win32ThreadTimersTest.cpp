#include "platform/win32/Win32ThreadTimers.h"

#include <gtest/gtest.h>

#include <memory>
#include <stdexcept>

#include "fakes/FakeLog.h"
#include "fakes/Trace.h"
#include "platform/TimerClass.h"
#include "platform/win32/Win32Pointer.h"
#include "win32/ui/RealControls.h"

namespace tessivo {
namespace {

using ui::eventually;

class Win32ThreadTimersTest : public testing::Test {
 protected:
  /// Handles messages for about so long.
  void pass(UINT ms) {
    TimerClass end(timers);
    bool over = false;
    end.ItsTime.listen([&over] { over = true; });
    end.lngInterval(static_cast<std::int32_t>(ms));
    end.boolEnabled(true);
    ASSERT_TRUE(eventually([&over] { return over; }));
  }

  FakeLog log;
  Win32ThreadTimers system{log};
  MTimer timers{system};
  Trace trace;
  int ticks = 0;
};

TEST_F(Win32ThreadTimersTest, TicksAgainAndAgain) {
  TimerClass timer(timers);
  timer.ItsTime.listen([this] { ++ticks; });
  timer.lngInterval(20);
  timer.boolEnabled(true);
  EXPECT_TRUE(timer.boolEnabled());
  EXPECT_EQ(ticks, 0);
  EXPECT_TRUE(eventually([this] { return ticks >= 3; }));
}

TEST_F(Win32ThreadTimersTest, KeepsItsInterval) {
  TimerClass timer(timers);
  timer.ItsTime.listen([this] { ++ticks; });
  timer.lngInterval(300);
  const ULONGLONG start = GetTickCount64();
  timer.boolEnabled(true);
  EXPECT_TRUE(eventually([this] { return ticks >= 2; }));
  // The system's clock of ticks is coarse.
  EXPECT_GE(GetTickCount64() - start, 560U);
}

TEST_F(Win32ThreadTimersTest, AStoppedTimerNeverTicks) {
  TimerClass timer(timers);
  timer.ItsTime.listen([this] { ++ticks; });
  timer.lngInterval(20);
  timer.boolEnabled(true);
  EXPECT_TRUE(eventually([this] { return ticks >= 1; }));
  timer.boolEnabled(false);
  const int before = ticks;
  pass(100);
  EXPECT_EQ(ticks, before);
}

TEST_F(Win32ThreadTimersTest, ATimerThatIsGoneNeverTicks) {
  auto timer = std::make_unique<TimerClass>(timers);
  timer->ItsTime.listen([this] { ++ticks; });
  timer->lngInterval(20);
  timer->boolEnabled(true);
  timer.reset();
  pass(100);
  EXPECT_EQ(ticks, 0);
}

TEST_F(Win32ThreadTimersTest, ATickThatIsAlreadyUnderWayFindsNothing) {
  TimerClass timer(timers);
  timer.ItsTime.listen([this] { ++ticks; });
  timer.lngInterval(10);
  timer.boolEnabled(true);
  MSG tick{};
  ASSERT_TRUE(GetMessageW(&tick, nullptr, WM_TIMER, WM_TIMER));
  timer.boolEnabled(false);
  DispatchMessageW(&tick);
  EXPECT_EQ(ticks, 0);
}

TEST_F(Win32ThreadTimersTest, ATickMayEndItsTimer) {
  auto timer = std::make_unique<TimerClass>(timers);
  timer->ItsTime.listen([&] {
    ++ticks;
    timer.reset();
  });
  timer->lngInterval(10);
  timer->boolEnabled(true);
  pass(100);
  EXPECT_EQ(ticks, 1);
}

TEST_F(Win32ThreadTimersTest, TimersAreToldApart) {
  TimerClass first(timers);
  TimerClass second(timers);
  first.ItsTime.listen([this] { trace.add("first"); });
  second.ItsTime.listen([&] {
    trace.add("second");
    second.boolEnabled(false);
  });
  first.lngInterval(500);
  second.lngInterval(20);
  first.boolEnabled(true);
  second.boolEnabled(true);
  pass(200);
  EXPECT_EQ(trace.take(), "second");
}

TEST_F(Win32ThreadTimersTest, TicksInsideAnotherLoopOfTheSystem) {
  TimerClass timer(timers);
  timer.ItsTime.listen([this] { ++ticks; });
  timer.lngInterval(20);
  timer.boolEnabled(true);
  // A loop that knows nothing of ours, as a menu's or a message box's.
  MSG message;
  while (ticks == 0 && GetMessageW(&message, nullptr, 0, 0)) DispatchMessageW(&message);
  EXPECT_EQ(ticks, 1);
}

struct CountingProcedure : TimerProcedure {
  void timerProc(std::uint32_t) override { ++ticks; }
  int ticks = 0;
};

TEST_F(Win32ThreadTimersTest, EndingTheObjectKillsWhatItHasSet) {
  CountingProcedure procedure;
  auto own = std::make_unique<Win32ThreadTimers>(log);
  const std::uint32_t identifier = own->set(20, procedure);
  ASSERT_NE(identifier, 0U);
  own.reset();
  pass(100);
  EXPECT_EQ(procedure.ticks, 0);
  EXPECT_FALSE(KillTimer(nullptr, identifier)) << "the system still had it";
}

TEST_F(Win32ThreadTimersTest, KillingTwiceOrAnUnknownTimerLeavesTheOthers) {
  CountingProcedure procedure;
  const std::uint32_t gone = system.set(20, procedure);
  system.kill(gone);
  system.kill(gone);
  system.kill(0);
  const std::uint32_t identifier = system.set(20, procedure);
  EXPECT_TRUE(eventually([&] { return procedure.ticks > 0; }));
  system.kill(identifier);
}

struct ThrowingProcedure : TimerProcedure {
  void timerProc(std::uint32_t) override {
    ++ticks;
    throw std::runtime_error("broken");
  }
  int ticks = 0;
};

#ifdef NDEBUG  // a debug build stops there
TEST_F(Win32ThreadTimersTest, AnExceptionEndsInTheLogAndTheTimerTicksOn) {
  ThrowingProcedure procedure;
  const std::uint32_t identifier = system.set(20, procedure);
  EXPECT_TRUE(eventually([&] { return procedure.ticks >= 2; }));
  system.kill(identifier);
  EXPECT_EQ(log.lines.front(), "error unexpected error in an event: broken");
}
#endif

TEST(Win32PointerTest, TheDisplayCounterIsTheSystems) {
  Win32Pointer pointer;
  const int shown = pointer.changeDisplayCount(true);
  EXPECT_EQ(pointer.changeDisplayCount(false), shown - 1);
  EXPECT_EQ(ShowCursor(FALSE), shown - 2);
  EXPECT_EQ(pointer.changeDisplayCount(true), shown - 1);
}

}  // namespace
}  // namespace tessivo
