#include "platform/win32/Win32LeaveWatch.h"

#include <gtest/gtest.h>
#include <windows.h>

#include <atomic>
#include <stdexcept>

#include "fakes/FakeLog.h"
#include "win32/WaitFor.h"

namespace tessivo {
namespace {

class Win32LeaveWatchTest : public testing::Test {
 protected:
  FakeLog log;
  std::atomic<int> wills = 0;
  std::atomic<int> ends = 0;
  Win32LeaveWatch watch{log, [this] { ++ends; }};
};

TEST_F(Win32LeaveWatchTest, WhatHangsEndsAfterItsLastWill) {
  int willsAtTheEnd = 0;
  Win32LeaveWatch ending(log, [&] {
    willsAtTheEnd = wills;
    ++ends;
  });
  const ULONGLONG start = GetTickCount64();
  ending.arm(300, [this] { ++wills; });
  while (ends == 0 && GetTickCount64() - start < 10000) Sleep(5);
  EXPECT_EQ(ends, 1);
  EXPECT_EQ(willsAtTheEnd, 1);
  EXPECT_GE(GetTickCount64() - start, 290U);
  EXPECT_EQ(log.lines.front(), "error leaving hangs: the process is ended by force");
}

TEST_F(Win32LeaveWatchTest, WhoComesInTimeGoesOn) {
  watch.arm(300, [this] { ++wills; });
  watch.disarm();
  Sleep(600);
  EXPECT_EQ(ends, 0);
  EXPECT_EQ(wills, 0);
}

TEST_F(Win32LeaveWatchTest, ArmingAnewBeginsAnew) {
  watch.arm(300, [this] { ++wills; });
  watch.arm(60000, {});
  Sleep(600);
  EXPECT_EQ(ends, 0);
  watch.arm(1, {});
  for (int i = 0; i < 2000 && ends == 0; ++i) Sleep(5);
  EXPECT_EQ(ends, 1);
  EXPECT_EQ(wills, 0);
}

TEST_F(Win32LeaveWatchTest, ALastWillThatThrowsIsLoggedAndTheProcessEnds) {
  watch.arm(1, [] { throw std::runtime_error("no room"); });
  for (int i = 0; i < 2000 && ends == 0; ++i) Sleep(5);
  EXPECT_EQ(ends, 1);
  EXPECT_EQ(log.lines.back(), "error unexpected error while leaving: no room");
}

TEST_F(Win32LeaveWatchTest, OneThatIsGoneEndsNothing) {
  {
    Win32LeaveWatch gone(log, [this] { ++ends; });
    gone.arm(200, {});
  }
  Sleep(500);
  EXPECT_EQ(ends, 0);
}

/// Its thread has the last word: who comes back while the last will is carried out waits.
TEST_F(Win32LeaveWatchTest, WhoComesTooLateWaits) {
  std::atomic<bool> isDone = false;
  watch.arm(1, [&] {
    ++wills;
    Sleep(300);
    isDone = true;
  });
  for (int i = 0; i < 2000 && wills == 0; ++i) Sleep(1);
  watch.disarm();
  EXPECT_TRUE(isDone);
}

}  // namespace
}  // namespace tessivo
