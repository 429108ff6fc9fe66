#include "ssp/win32/SaverWindow.h"

#include <gtest/gtest.h>
#include <windows.h>

#include "fakes/FakeLog.h"

namespace tessivo::ssp {
namespace {

struct SaverWindowTest : testing::Test {
  LRESULT send(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const {
    return SendMessageW(window.window(), message, wParam, lParam);
  }

  FakeLog log;
  int inputs = 0;
  int ends = 0;
  const Rect area{30, 40, 200, 100};
  SaverWindow window{area, "时钟", {[this] { ++inputs; }, [this] { ++ends; }}, log};
};

TEST_F(SaverWindowTest, CoversTheAreaWithoutAFrame) {
  ASSERT_TRUE(window.isOpen());
  EXPECT_FALSE(IsWindowVisible(window.window()));
  window.show();
  EXPECT_TRUE(IsWindowVisible(window.window()));
  RECT outer{};
  RECT inner{};
  GetWindowRect(window.window(), &outer);
  GetClientRect(window.window(), &inner);
  EXPECT_EQ(outer.left, 30);
  EXPECT_EQ(outer.top, 40);
  EXPECT_EQ(outer.right, 230);
  EXPECT_EQ(outer.bottom, 140);
  EXPECT_EQ(inner.right, 200);
  EXPECT_EQ(inner.bottom, 100);
}

TEST_F(SaverWindowTest, IsAboveAllNotInTheTaskBarAndNeverActive) {
  const HWND before = GetForegroundWindow();
  window.show();
  const auto style = GetWindowLongPtrW(window.window(), GWL_EXSTYLE);
  EXPECT_TRUE(style & WS_EX_TOPMOST);
  EXPECT_TRUE(style & WS_EX_TOOLWINDOW);
  EXPECT_TRUE(style & WS_EX_NOACTIVATE);
  EXPECT_EQ(GetForegroundWindow(), before);
  EXPECT_NE(GetActiveWindow(), window.window());
  EXPECT_EQ(send(WM_MOUSEACTIVATE), MA_NOACTIVATE);
}

TEST_F(SaverWindowTest, ShowsNoPointer) {
  SetCursor(LoadCursorW(nullptr, IDC_ARROW));
  EXPECT_TRUE(send(WM_SETCURSOR, reinterpret_cast<WPARAM>(window.window()), HTCLIENT));
  EXPECT_EQ(GetCursor(), nullptr);
}

TEST_F(SaverWindowTest, PictureIsBlackAtFirstAndKeepsWhatIsDrawn) {
  EXPECT_EQ(GetPixel(window.canvas(), 0, 0), RGB(0, 0, 0));
  EXPECT_EQ(GetPixel(window.canvas(), 199, 99), RGB(0, 0, 0));
  SetPixel(window.canvas(), 10, 20, RGB(255, 0, 0));
  EXPECT_EQ(GetPixel(window.canvas(), 10, 20), RGB(255, 0, 0));
  window.blacken({10, 20, 1, 1});
  EXPECT_EQ(GetPixel(window.canvas(), 10, 20), RGB(0, 0, 0));
}

TEST_F(SaverWindowTest, OnlyWhatChangedIsPaintedAnew) {
  window.show();
  ValidateRect(window.window(), nullptr);
  window.refresh({10, 20, 30, 40});
  RECT changed{};
  GetUpdateRect(window.window(), &changed, FALSE);
  EXPECT_EQ(changed.left, 10);
  EXPECT_EQ(changed.top, 20);
  EXPECT_EQ(changed.right, 40);
  EXPECT_EQ(changed.bottom, 60);
  UpdateWindow(window.window());
  EXPECT_FALSE(GetUpdateRect(window.window(), nullptr, FALSE));
}

TEST_F(SaverWindowTest, KeysButtonsAndTheWheelAreInput) {
  for (const UINT message : {WM_KEYDOWN, WM_SYSKEYDOWN, WM_LBUTTONDOWN, WM_RBUTTONDOWN,
                             WM_MBUTTONDOWN, WM_XBUTTONDOWN, WM_MOUSEWHEEL, WM_MOUSEHWHEEL}) {
    inputs = 0;
    send(message);
    EXPECT_EQ(inputs, 1) << message;
  }
  EXPECT_EQ(ends, 0);
}

TEST_F(SaverWindowTest, CloseAndTheEndOfTheSessionEndIt) {
  send(WM_CLOSE);
  EXPECT_EQ(ends, 1);
  EXPECT_TRUE(IsWindow(window.window()));
  EXPECT_TRUE(send(WM_QUERYENDSESSION));
  EXPECT_EQ(ends, 2);
  send(WM_ENDSESSION, TRUE);
  EXPECT_EQ(ends, 3);
}

TEST_F(SaverWindowTest, MotionInTheWindowIsLeftToTheWatch) {
  send(WM_MOUSEMOVE);
  EXPECT_EQ(inputs, 0);
}

TEST_F(SaverWindowTest, StaysWhereItIsWhenTheResolutionChanges) {
  RECT suggested{0, 0, 500, 500};
  send(WM_DPICHANGED, MAKEWPARAM(192, 192), reinterpret_cast<LPARAM>(&suggested));
  RECT outer{};
  GetWindowRect(window.window(), &outer);
  EXPECT_EQ(outer.left, 30);
  EXPECT_EQ(outer.right, 230);
}

TEST_F(SaverWindowTest, GoesBackToItsPlaceWhenMonitorsChange) {
  window.show();
  const HWND before = GetForegroundWindow();
  SetWindowPos(window.window(), HWND_NOTOPMOST, 300, 200, 50, 60, SWP_NOACTIVATE);
  send(WM_DISPLAYCHANGE, 32, MAKELPARAM(1280, 1024));
  RECT outer{};
  GetWindowRect(window.window(), &outer);
  EXPECT_EQ(outer.left, 30);
  EXPECT_EQ(outer.top, 40);
  EXPECT_EQ(outer.right, 230);
  EXPECT_EQ(outer.bottom, 140);
  EXPECT_TRUE(GetWindowLongPtrW(window.window(), GWL_EXSTYLE) & WS_EX_TOPMOST);
  EXPECT_EQ(GetForegroundWindow(), before);
}

TEST_F(SaverWindowTest, WhatIsPostedIsToldFromTheLoop) {
  int told = 0;
  window.setPosted([&told] { ++told; });
  PostMessageW(window.window(), SaverWindow::kPosted, 0, 0);
  EXPECT_EQ(told, 0);
  MSG message{};
  while (PeekMessageW(&message, window.window(), 0, 0, PM_REMOVE)) DispatchMessageW(&message);
  EXPECT_EQ(told, 1);
}

}  // namespace
}  // namespace tessivo::ssp
