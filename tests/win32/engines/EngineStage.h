#pragma once

#include <gtest/gtest.h>
#include <objbase.h>
#include <windows.h>

#include <algorithm>
#include <functional>
#include <string>
#include <vector>

#include "base/Text.h"
#include "fakes/FakeLog.h"
#include "win32/ResourceCounts.h"
#include "win32/WaitFor.h"
#include "win32/engines/Media.h"

namespace tessivo {

/// A visible window on the desktop for an engine to play in.
/// run-engines.sh makes the media and says in TESSIVO_TEST_MEDIA where they are.
class EngineStage : public testing::Test {
 protected:
  static constexpr int kWidth = 400;
  static constexpr int kHeight = 400;  // a 16:9 picture has 87 black rows above and below
  static constexpr COLORREF kBlack = RGB(0, 0, 0);

  EngineStage() {
    // For the life of the process, as in the program.
    static const HRESULT com = CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
    EXPECT_TRUE(SUCCEEDED(com));
    stage =
        CreateWindowExW(WS_EX_TOPMOST, L"STATIC", L"stage", WS_POPUP | WS_VISIBLE | SS_WHITERECT,
                        60, 40, kWidth, kHeight, nullptr, nullptr, nullptr, nullptr);
  }
  ~EngineStage() override { DestroyWindow(stage); }

  void SetUp() override {
    ASSERT_FALSE(mediaFolder().empty()) << "TESSIVO_TEST_MEDIA is not set; run run-engines.sh";
  }

  static std::wstring wide(const std::string& text) {
    const std::u16string utf16 = toUtf16(text);
    return {utf16.begin(), utf16.end()};
  }

  /// How long a call keeps the user interface waiting, in milliseconds.
  static ULONGLONG timeOf(const std::function<void()>& call) {
    const ULONGLONG start = GetTickCount64();
    call();
    return GetTickCount64() - start;
  }

  bool waitForTrace(const std::string& event) {
    return waitFor([&] { return std::find(trace.begin(), trace.end(), event) != trace.end(); });
  }
  long traced(const std::string& event) const {
    return std::count(trace.begin(), trace.end(), event);
  }

  /// What the screen shows at a point of the stage.
  COLORREF shownAt(int x, int y) const {
    POINT point{x, y};
    ClientToScreen(stage, &point);
    const HDC screen = GetDC(nullptr);
    const HDC memory = CreateCompatibleDC(screen);
    const HBITMAP bitmap = CreateCompatibleBitmap(screen, 1, 1);
    const HGDIOBJ previous = SelectObject(memory, bitmap);
    BitBlt(memory, 0, 0, 1, 1, screen, point.x, point.y, SRCCOPY);
    const COLORREF colour = GetPixel(memory, 0, 0);
    SelectObject(memory, previous);
    DeleteObject(bitmap);
    DeleteDC(memory);
    ReleaseDC(nullptr, screen);
    return colour;
  }
  static bool isRed(COLORREF c) {
    return GetRValue(c) > 180 && GetGValue(c) < 90 && GetBValue(c) < 90;
  }
  static bool isBlue(COLORREF c) {
    return GetBValue(c) > 180 && GetRValue(c) < 90 && GetGValue(c) < 90;
  }
  static bool isGreen(COLORREF c) {
    return GetGValue(c) > 180 && GetRValue(c) < 90 && GetBValue(c) < 90;
  }
  /// Whether the middle of the picture is never black until it is green.
  bool turnsGreenWithoutBlack() const {
    bool black = false;
    const bool green = waitFor([&] {
      const COLORREF shown = shownAt(200, 120);
      black = black || shown == kBlack;
      return isGreen(shown);
    });
    return green && !black;
  }
  /// The windows inside the engine's.
  int pictureWindows() const {
    int count = 0;
    for (HWND each = GetWindow(engineWindow(), GW_CHILD); each != nullptr;
         each = GetWindow(each, GW_HWNDNEXT)) {
      ++count;
    }
    return count;
  }
  /// The film's red above and blue below, with its aspect ratio on black, in the whole stage.
  bool showsTheFilm() const {
    return isRed(shownAt(200, 120)) && isBlue(shownAt(200, 280)) && isRed(shownAt(10, 100)) &&
           isBlue(shownAt(390, 300)) && shownAt(200, 60) == kBlack && shownAt(200, 340) == kBlack;
  }
  bool showsBlack() const {
    return shownAt(200, 120) == kBlack && shownAt(200, 280) == kBlack && shownAt(5, 5) == kBlack;
  }

  /// A real click of the left button on a point of the stage.
  void clickOnScreen(int x, int y) const {
    POINT point{x, y};
    ClientToScreen(stage, &point);
    SetCursorPos(point.x, point.y);
    INPUT input[2] = {};
    input[0].type = input[1].type = INPUT_MOUSE;
    input[0].mi.dwFlags = MOUSEEVENTF_LEFTDOWN;
    input[1].mi.dwFlags = MOUSEEVENTF_LEFTUP;
    SendInput(2, input, sizeof(INPUT));
  }

  /// The engine's own window.
  HWND engineWindow() const { return GetWindow(stage, GW_CHILD); }

  HWND stage = nullptr;
  FakeLog log;
  std::vector<std::string> trace;
};

}  // namespace tessivo
