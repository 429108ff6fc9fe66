#include "platform/win32/Win32DesktopWindows.h"

#include <gtest/gtest.h>
#include <windows.h>

namespace tessivo {
namespace {

class Win32DesktopWindowsTest : public testing::Test {
 protected:
  Win32DesktopWindowsTest() {
    form = CreateWindowExW(WS_EX_TOPMOST, L"#32770", L"泰思维", WS_POPUP | WS_VISIBLE, 30, 40, 200,
                           100, nullptr, nullptr, nullptr, nullptr);
    child = CreateWindowExW(0, L"EDIT", L"", WS_CHILD | WS_VISIBLE, 50, 10, 60, 20, form, nullptr,
                            nullptr, nullptr);
  }
  ~Win32DesktopWindowsTest() override { DestroyWindow(form); }

  static WindowHandle handle(HWND window) { return reinterpret_cast<WindowHandle>(window); }

  const Win32DesktopWindows windows;
  HWND form = nullptr;
  HWND child = nullptr;
};

TEST_F(Win32DesktopWindowsTest, AWindowTellsOfItself) {
  EXPECT_EQ(windows.parentOf(handle(child)), handle(form));
  EXPECT_EQ(windows.parentOf(handle(form)), 0U);
  EXPECT_EQ(windows.classOf(handle(child)), "Edit");
  EXPECT_EQ(windows.titleOf(handle(form)), "泰思维");
  EXPECT_TRUE(windows.isOurs(handle(form)));
  EXPECT_FALSE(windows.isOurs(handle(GetDesktopWindow())));
}

TEST_F(Win32DesktopWindowsTest, APointIsFoundOnTheScreenAndAWindowUnderIt) {
  EXPECT_EQ(windows.toScreen(handle(form), {55, 15}), (Point{85, 55}));
  EXPECT_EQ(windows.under({85, 55}), handle(child));
  EXPECT_EQ(windows.under({35, 45}), handle(form));
}

TEST_F(Win32DesktopWindowsTest, AWindowIsUnderAPointUnlessAnotherOneCoversItThere) {
  EXPECT_TRUE(windows.isUnder(handle(child), {85, 55}));
  EXPECT_FALSE(windows.isUnder(handle(form), {85, 55})) << "its child covers it";
  EXPECT_TRUE(windows.isUnder(handle(form), {35, 45}));
  EXPECT_FALSE(windows.isUnder(handle(child), {35, 45}));
  EXPECT_FALSE(windows.isUnder(0, {35, 45}));
}

TEST_F(Win32DesktopWindowsTest, OneThatHasGoneGivesNothing) {
  constexpr WindowHandle kNone = 0xDEAD;
  EXPECT_EQ(windows.parentOf(kNone), 0U);
  EXPECT_EQ(windows.classOf(kNone), "");
  EXPECT_EQ(windows.titleOf(kNone), "");
  EXPECT_FALSE(windows.isOurs(kNone));
  windows.postClose(kNone);
}

TEST_F(Win32DesktopWindowsTest, ClosingIsAskedForAndNotWaitedFor) {
  windows.postClose(handle(form));
  MSG message{};
  ASSERT_TRUE(PeekMessageW(&message, form, WM_CLOSE, WM_CLOSE, PM_REMOVE));
}

}  // namespace
}  // namespace tessivo
