#include "platform/win32/Win32MessageLoop.h"

#include <gtest/gtest.h>

#include "fakes/FakeLog.h"
#include "fakes/Trace.h"
#include "platform/win32/Win32TimerService.h"

namespace tessivo {
namespace {

class Win32MessageLoopTest : public testing::Test {
 protected:
  FakeLog log;
  Win32TimerService timers{log};
  Win32MessageLoop loop;
  Trace trace;
};

TEST_F(Win32MessageLoopTest, RunsUntilQuit) {
  timers.start(1, [this] {
    trace.add("quit");
    loop.quit();
  });
  loop.run();
  EXPECT_EQ(trace.take(), "quit");
}

TEST_F(Win32MessageLoopTest, NothingRunsAfterTheEventThatQuits) {
  timers.start(1, [this] {
    trace.add("quit");
    loop.quit();
  });
  timers.start(1, [this] { trace.add("too late"); });
  loop.run();
  EXPECT_EQ(trace.take(), "quit");
}

TEST_F(Win32MessageLoopTest, CanRunAgain) {
  for (int round = 0; round < 2; ++round) {
    const auto id = timers.start(1, [this] {
      trace.add("quit");
      loop.quit();
    });
    loop.run();
    timers.stop(id);
  }
  EXPECT_EQ(trace.take(), "quit | quit");
}

TEST_F(Win32MessageLoopTest, PumpHandlesEventsForTheTimeGiven) {
  int ticks = 0;
  timers.start(20, [&] { ++ticks; });
  const ULONGLONG start = GetTickCount64();
  loop.pumpFor(200);
  EXPECT_GE(GetTickCount64() - start, 200U);
  EXPECT_GE(ticks, 2);
}

TEST_F(Win32MessageLoopTest, PumpSleepsBetweenEvents) {
  const auto usedMs = [] {
    FILETIME created, ended, kernel, user;
    GetProcessTimes(GetCurrentProcess(), &created, &ended, &kernel, &user);
    return (ULONGLONG{kernel.dwLowDateTime} + user.dwLowDateTime) / 10000;
  };
  const ULONGLONG before = usedMs();
  loop.pumpFor(500);
  EXPECT_LT(usedMs() - before, 250U);
}

TEST_F(Win32MessageLoopTest, PumpEndsWhenTheProgramQuitsAndTheLoopAroundItToo) {
  timers.start(1, [this] {
    trace.add("pump");
    timers.start(1, [this] { loop.quit(); });
    const ULONGLONG start = GetTickCount64();
    loop.pumpFor(60000);
    trace.add(GetTickCount64() - start < 30000 ? "ended early" : "waited");
  });
  loop.run();
  EXPECT_EQ(trace.take(), "pump | ended early");
}

TEST_F(Win32MessageLoopTest, QuitMessageFromElsewhereSurvivesThePump) {
  PostQuitMessage(3);
  loop.pumpFor(60000);
  MSG message{};
  ASSERT_TRUE(PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE));
  EXPECT_EQ(message.message, static_cast<UINT>(WM_QUIT));
  EXPECT_EQ(message.wParam, 3U);
}

TEST_F(Win32MessageLoopTest, ModalLoopEndsWhenItsConditionDoes) {
  bool open = true;
  timers.start(1, [&] { open = false; });
  loop.runWhile([&] { return open; });
  EXPECT_FALSE(open);
}

TEST_F(Win32MessageLoopTest, FilterTakesMessages) {
  int seen = 0;
  loop.setFilter([&](MSG& message) {
    seen += message.message == WM_APP + 77;
    return message.message == WM_APP + 77;
  });
  PostThreadMessageW(GetCurrentThreadId(), WM_APP + 77, 0, 0);
  loop.pumpFor(1);
  EXPECT_EQ(seen, 1);
}

}  // namespace
}  // namespace tessivo
