#include "platform/win32/Win32IdleInput.h"

#include <gtest/gtest.h>
#include <windows.h>

#include "win32/WaitFor.h"

namespace tessivo {
namespace {

/// A key goes down and up, as if the user had pressed it.
void pressShift() {
  INPUT keys[2]{};
  for (INPUT& key : keys) {
    key.type = INPUT_KEYBOARD;
    key.ki.wVk = VK_SHIFT;
  }
  keys[1].ki.dwFlags = KEYEVENTF_KEYUP;
  SendInput(2, keys, sizeof(INPUT));
}

void moveMouse() {
  INPUT mouse{};
  mouse.type = INPUT_MOUSE;
  mouse.mi.dx = 3;
  mouse.mi.dwFlags = MOUSEEVENTF_MOVE;
  SendInput(1, &mouse, sizeof(INPUT));
}

/// How long ago the last input was, on the clock that both are told by.
std::int32_t idleMs(const Win32IdleInput& input) {
  return static_cast<std::int32_t>(input.tickCount() - input.lastInputTick().value_or(0));
}

TEST(Win32IdleInputTest, KeyAndMouseAreInput) {
  const Win32IdleInput input;
  ASSERT_TRUE(input.lastInputTick());
  for (const auto touch : {&pressShift, &moveMouse}) {
    watch(200);
    EXPECT_GE(idleMs(input), 190);
    touch();
    EXPECT_TRUE(waitFor([&] { return idleMs(input) < 100; }));
  }
}

TEST(Win32IdleInputTest, WithoutInputTheTickStays) {
  const Win32IdleInput input;
  pressShift();
  watch(50);
  const auto before = input.lastInputTick();
  watch(200);
  EXPECT_EQ(input.lastInputTick(), before);
}

TEST(Win32IdleInputTest, TicksAreMilliseconds) {
  const Win32IdleInput input;
  const std::uint32_t before = input.tickCount();
  Sleep(200);
  const std::uint32_t passed = input.tickCount() - before;
  EXPECT_GE(passed, 180U);
  EXPECT_LE(passed, 2000U);
}

}  // namespace
}  // namespace tessivo
