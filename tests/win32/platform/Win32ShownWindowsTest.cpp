#include "platform/win32/Win32ShownWindows.h"

#include <gtest/gtest.h>
#include <windows.h>

#include <algorithm>
#include <vector>

#include "fakes/FakeLog.h"

namespace tessivo {
namespace {

class Win32ShownWindowsTest : public testing::Test {
 protected:
  Win32ShownWindowsTest() {
    WNDCLASSW description{};
    description.lpfnWndProc = DefWindowProcW;
    description.hInstance = GetModuleHandleW(nullptr);
    description.lpszClassName = L"TessivoTestShown";
    RegisterClassW(&description);
    watcher.watch([this](const ShownWindow& shown) { seen.push_back(shown); });
  }
  ~Win32ShownWindowsTest() override {
    watcher.stop();
    for (const HWND window : made) DestroyWindow(window);
  }

  HWND make(const wchar_t* windowClass, DWORD style, HWND owner = nullptr) {
    made.insert(made.begin(), CreateWindowExW(0, windowClass, L"窗", style, 0, 0, 100, 80, owner,
                                              nullptr, GetModuleHandleW(nullptr), nullptr));
    return made.front();
  }
  /// What was said of the window last; nothing when nothing was.
  const ShownWindow* of(HWND window) const {
    const auto found = std::find_if(seen.rbegin(), seen.rend(), [&](const ShownWindow& shown) {
      return shown.window == reinterpret_cast<WindowHandle>(window);
    });
    return found == seen.rend() ? nullptr : &*found;
  }
  static WindowHandle handle(HWND window) { return reinterpret_cast<WindowHandle>(window); }

  FakeLog log;
  Win32ShownWindows watcher{log};
  std::vector<ShownWindow> seen;
  std::vector<HWND> made;
};

/// The class of the system's dialogs.
constexpr wchar_t kForeign[] = L"#32770";
constexpr DWORD kCaptioned = WS_POPUP | WS_CAPTION;

TEST_F(Win32ShownWindowsTest, AForeignWindowWithACaptionIsReportedWhenItIsShown) {
  const HWND window = make(kForeign, kCaptioned);
  EXPECT_EQ(of(window), nullptr);
  ShowWindow(window, SW_SHOWNA);
  ASSERT_NE(of(window), nullptr);
  EXPECT_TRUE(of(window)->hasCaption);
  EXPECT_FALSE(of(window)->isOurs);
  EXPECT_FALSE(of(window)->isChild);
  EXPECT_EQ(of(window)->rootOwner, handle(window));
}

TEST_F(Win32ShownWindowsTest, OneThatIsMadeVisibleIsReported) {
  EXPECT_NE(of(make(kForeign, kCaptioned | WS_VISIBLE)), nullptr);
}

TEST_F(Win32ShownWindowsTest, OneThatIsShownByPlacingItIsReported) {
  const HWND window = make(kForeign, kCaptioned);
  SetWindowPos(window, nullptr, 0, 0, 0, 0,
               SWP_NOMOVE | SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE | SWP_SHOWWINDOW);
  EXPECT_NE(of(window), nullptr);
}

TEST_F(Win32ShownWindowsTest, HidingIsNot) {
  const HWND window = make(kForeign, kCaptioned | WS_VISIBLE);
  seen.clear();
  ShowWindow(window, SW_HIDE);
  EXPECT_EQ(of(window), nullptr);
}

TEST_F(Win32ShownWindowsTest, ClassesOfTheProgramAreToldApart) {
  const HWND window = make(L"TessivoTestShown", kCaptioned | WS_VISIBLE);
  ASSERT_NE(of(window), nullptr);
  EXPECT_TRUE(of(window)->isOurs);
}

TEST_F(Win32ShownWindowsTest, ChildrenBordersAndOwnersAreToldApart) {
  const HWND form = make(L"TessivoTestShown", kCaptioned | WS_VISIBLE);
  const HWND child = make(kForeign, WS_CHILD | WS_CAPTION | WS_VISIBLE, form);
  ASSERT_NE(of(child), nullptr);
  EXPECT_TRUE(of(child)->isChild);
  const HWND bordered = make(kForeign, WS_POPUP | WS_BORDER | WS_VISIBLE, form);
  ASSERT_NE(of(bordered), nullptr);
  EXPECT_FALSE(of(bordered)->hasCaption);
  const HWND ofThat = make(kForeign, kCaptioned | WS_VISIBLE, bordered);
  ASSERT_NE(of(ofThat), nullptr);
  EXPECT_EQ(of(ofThat)->rootOwner, handle(form));
}

TEST_F(Win32ShownWindowsTest, AfterTheStopNothingIsReported) {
  watcher.stop();
  make(kForeign, kCaptioned | WS_VISIBLE);
  EXPECT_TRUE(seen.empty());
  watcher.stop();
}

}  // namespace
}  // namespace tessivo
