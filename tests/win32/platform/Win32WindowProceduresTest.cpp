#include "platform/win32/Win32WindowProcedures.h"

#include <gtest/gtest.h>
#include <windows.h>

#include <future>
#include <optional>
#include <stdexcept>
#include <string>
#include <thread>
#include <utility>
#include <vector>

#include "fakes/FakeLog.h"

namespace tessivo {
namespace {

std::vector<UINT> original;

LRESULT CALLBACK originalProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  original.push_back(message);
  if (message == WM_USER) return static_cast<LRESULT>(wParam) + lParam;
  return DefWindowProcW(window, message, wParam, lParam);
}

LRESULT CALLBACK answering(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == WM_USER) return static_cast<LRESULT>(wParam) + lParam;
  return DefWindowProcW(window, message, wParam, lParam);
}

/// A window that another thread has made and serves.
class ForeignWindow {
 public:
  ForeignWindow() {
    std::promise<HWND> made;
    auto window = made.get_future();
    thread_ = std::thread([&made] { serveOne(made); });
    handle = window.get();
  }
  ~ForeignWindow() {
    PostMessageW(handle, WM_CLOSE, 0, 0);
    thread_.join();
  }

  HWND handle = nullptr;

 private:
  static void serveOne(std::promise<HWND>& made) {
    const HWND window = CreateWindowExW(0, L"STATIC", L"", WS_POPUP, 0, 0, 10, 10, nullptr, nullptr,
                                        nullptr, nullptr);
    SetWindowLongPtrW(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&answering));
    made.set_value(window);
    MSG message;
    while (IsWindow(window) && GetMessageW(&message, nullptr, 0, 0) > 0) DispatchMessageW(&message);
  }

  std::thread thread_;
};

LRESULT CALLBACK onTop(HWND, UINT, WPARAM, LPARAM) {
  return 77;
}

class Win32WindowProceduresTest : public testing::Test, protected WindowProcedures::Filter {
 protected:
  Win32WindowProceduresTest() {
    WNDCLASSW description{};
    description.lpfnWndProc = originalProcedure;
    description.hInstance = GetModuleHandleW(nullptr);
    description.lpszClassName = L"TessivoTestProcedures";
    RegisterClassW(&description);
    window = CreateWindowExW(0, description.lpszClassName, L"", WS_POPUP, 0, 0, 10, 10, nullptr,
                             nullptr, description.hInstance, nullptr);
    previous = procedures->replace(handle(), *this);
    original.clear();
  }
  ~Win32WindowProceduresTest() override {
    if (IsWindow(window)) DestroyWindow(window);
  }

  WindowHandle handle() const { return reinterpret_cast<WindowHandle>(window); }
  WNDPROC installed() const {
    return reinterpret_cast<WNDPROC>(GetWindowLongPtrW(window, GWLP_WNDPROC));
  }

  bool consume(WindowHandle, WindowMessage message) override {
    if (throws) throw std::runtime_error("a mistake");
    seen.push_back(message);
    return consumes;
  }
  std::uintptr_t previousProcedure(WindowHandle asked) const override {
    return asked == handle() ? previous : 0;
  }
  void gone(WindowHandle which) override { goneWindows.push_back(which); }

  FakeLog log;
  std::optional<Win32WindowProcedures> procedures{log};
  HWND window = nullptr;
  std::uintptr_t previous = 0;
  bool consumes = false;
  bool throws = false;
  std::vector<WindowMessage> seen;
  std::vector<WindowHandle> goneWindows;
};

TEST_F(Win32WindowProceduresTest, EveryMouseMessageHasItsName) {
  consumes = true;
  for (const UINT message : {WM_LBUTTONDOWN, WM_LBUTTONUP, WM_LBUTTONDBLCLK, WM_RBUTTONDOWN,
                             WM_RBUTTONUP, WM_RBUTTONDBLCLK, WM_MOUSEMOVE, WM_KEYDOWN}) {
    SendMessageW(window, message, 0, 0);
  }
  EXPECT_EQ(seen,
            (std::vector<WindowMessage>{WindowMessage::leftDown, WindowMessage::leftUp,
                                        WindowMessage::leftDoubleClick, WindowMessage::rightDown,
                                        WindowMessage::rightUp, WindowMessage::rightDoubleClick,
                                        WindowMessage::mouseMove, WindowMessage::other}));
}

TEST_F(Win32WindowProceduresTest, AConsumedMessageGoesNoFurther) {
  consumes = true;
  EXPECT_EQ(SendMessageW(window, WM_RBUTTONUP, 0, 0), 0);
  EXPECT_TRUE(original.empty());
}

TEST_F(Win32WindowProceduresTest, AnyOtherGoesToThePreviousProcedureWithWhatItCarries) {
  EXPECT_EQ(SendMessageW(window, WM_USER, 40, 2), 42);
  EXPECT_EQ(original, (std::vector<UINT>{WM_USER}));
}

TEST_F(Win32WindowProceduresTest, RestoringPutsTheProcedureBack) {
  procedures->restore(handle(), previous);
  EXPECT_EQ(installed(), &originalProcedure);
  SendMessageW(window, WM_MOUSEMOVE, 0, 0);
  EXPECT_TRUE(seen.empty());
}

TEST_F(Win32WindowProceduresTest, AProcedureThatCameOnTopStays) {
  SetWindowLongPtrW(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&onTop));
  procedures->restore(handle(), previous);
  EXPECT_EQ(SendMessageW(window, WM_USER, 0, 0), 77);
}

TEST_F(Win32WindowProceduresTest, ADestroyedWindowIsReportedAndStillHearsOfIt) {
  const WindowHandle was = handle();
  DestroyWindow(window);
  EXPECT_EQ(goneWindows, (std::vector<WindowHandle>{was}));
  ASSERT_FALSE(original.empty());
  EXPECT_EQ(original.back(), static_cast<UINT>(WM_NCDESTROY));
  procedures->restore(was, previous);
}

TEST_F(Win32WindowProceduresTest, AWindowThatIsLeftBehindCallsAFilterThatIsGoneNoMore) {
  procedures.reset();
  EXPECT_EQ(SendMessageW(window, WM_USER, 40, 2), 0);
  DestroyWindow(window);
  EXPECT_TRUE(seen.empty());
  EXPECT_TRUE(goneWindows.empty());
}

TEST_F(Win32WindowProceduresTest, AnotherObjectsEndLeavesTheFilter) {
  { const Win32WindowProcedures other(log); }
  SendMessageW(window, WM_MOUSEMOVE, 0, 0);
  EXPECT_EQ(seen, (std::vector<WindowMessage>{WindowMessage::mouseMove}));
}

TEST_F(Win32WindowProceduresTest, AWindowThatIsNoneIsRefused) {
  EXPECT_EQ(procedures->replace(0xDEAD, *this), 0U);
  EXPECT_EQ(procedures->replace(0, *this), 0U);
}

TEST_F(Win32WindowProceduresTest, AWindowOfAnotherThreadIsRefusedAndKeepsItsProcedure) {
  const ForeignWindow foreign;
  EXPECT_EQ(procedures->replace(reinterpret_cast<WindowHandle>(foreign.handle), *this), 0U);
  EXPECT_EQ(SendMessageW(foreign.handle, WM_USER, 40, 2), 42);
  EXPECT_TRUE(seen.empty());
}

TEST_F(Win32WindowProceduresTest, AWindowOfAnsiKeepsItsText) {
  const HWND edit =
      CreateWindowExA(0, "EDIT", "", WS_POPUP, 0, 0, 50, 20, nullptr, nullptr, nullptr, nullptr);
  DestroyWindow(std::exchange(window, edit));  // the filter knows one window
  previous = procedures->replace(handle(), *this);
  ASSERT_NE(previous, 0U);
  SetWindowTextW(edit, L"泰思维");
  wchar_t text[10] = {};
  GetWindowTextW(edit, text, 10);
  EXPECT_EQ(std::wstring(text), L"泰思维");
}

#ifdef NDEBUG  // a debug build stops at such a mistake
TEST_F(Win32WindowProceduresTest, AMistakeEndsInTheLog) {
  throws = true;
  EXPECT_EQ(SendMessageW(window, WM_USER, 1, 2), 3);
  EXPECT_EQ(log.lines.size(), 1U);
}
#endif

}  // namespace
}  // namespace tessivo
