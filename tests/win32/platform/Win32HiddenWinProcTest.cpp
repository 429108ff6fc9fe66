#include "platform/win32/Win32HiddenWinProc.h"

#include <functional>
#include <vector>

#include "app/Request.h"
#include "fakes/FakeLog.h"
#include "fakes/Trace.h"

namespace tessivo {
namespace {

/// A window of our own under a replaced procedure.
class Win32HiddenWinProcTest : public testing::Test, public HiddenWinProc::Listener {
 protected:
  void SetUp() override {
    WNDCLASSW windowClass{};
    windowClass.lpfnWndProc = before;
    windowClass.hInstance = GetModuleHandleW(nullptr);
    windowClass.lpszClassName = L"TessivoHiddenTest";
    RegisterClassW(&windowClass);
    window = CreateWindowW(L"TessivoHiddenTest", L"hidden test", WS_OVERLAPPED, 0, 0, 0, 0, nullptr,
                           nullptr, windowClass.hInstance, nullptr);
    ASSERT_TRUE(window);
    SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
    procedure.installHiddenWinProc(reinterpret_cast<WindowHandle>(window), *this);
  }
  void TearDown() override {
    if (IsWindow(window)) {
      SetWindowLongPtrW(window, GWLP_USERDATA, 0);
      DestroyWindow(window);
    }
    EXPECT_TRUE(log.lines.empty());
  }
  static LRESULT CALLBACK before(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    auto* const test =
        reinterpret_cast<Win32HiddenWinProcTest*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    if (test && (message == WM_COPYDATA || message >= WM_USER)) {
      test->trace.add("old procedure");
      return 77;
    }
    return DefWindowProcW(window, message, wParam, lParam);
  }
  void copyData(std::uintptr_t number, std::span<const std::uint8_t> bytes) override {
    trace.add("data " + std::to_string(number) + " " + std::to_string(bytes.size()));
    received.assign(bytes.begin(), bytes.end());
    if (whileHearing) whileHearing();
  }
  void taskbarCreated() override { trace.add("task bar"); }

  LRESULT send(ULONG_PTR number, const std::vector<std::uint8_t>& bytes) const {
    COPYDATASTRUCT data{number, static_cast<DWORD>(bytes.size()),
                        const_cast<std::uint8_t*>(bytes.data())};
    return SendMessageW(window, WM_COPYDATA, 0, reinterpret_cast<LPARAM>(&data));
  }

  FakeLog log;
  Trace trace;
  HWND window = nullptr;
  std::vector<std::uint8_t> received;
  std::function<void()> whileHearing;
  Win32HiddenWinProc procedure{log};
};

TEST_F(Win32HiddenWinProcTest, DataIsHeardAndGoesOnToTheOldProcedureWithItsResult) {
  EXPECT_EQ(send(1, *request::encode("-SMF")), 77);
  EXPECT_EQ(trace.take(), "data 1 9 | old procedure");
  EXPECT_EQ(request::decode(received), "-SMF");
}

TEST_F(Win32HiddenWinProcTest, TheNumberIsHeardAsItIs) {
  send(0xFFFFFFFF, {1, 2});
  EXPECT_EQ(trace.take(), "data 4294967295 2 | old procedure");
}

TEST_F(Win32HiddenWinProcTest, DataWithoutBytesIsEmptyWhateverItsSizeSays) {
  COPYDATASTRUCT data{1, 500, nullptr};
  SendMessageW(window, WM_COPYDATA, 0, reinterpret_cast<LPARAM>(&data));
  EXPECT_EQ(trace.take(), "data 1 0 | old procedure");
}

TEST_F(Win32HiddenWinProcTest, NoRecordAtAllIsNotHeard) {
  SendMessageW(window, WM_COPYDATA, 0, 0);
  EXPECT_EQ(trace.take(), "old procedure");
}

TEST_F(Win32HiddenWinProcTest, TheNewTaskBarIsHeardAndGoesOn) {
  EXPECT_EQ(SendMessageW(window, RegisterWindowMessageW(L"TaskbarCreated"), 0, 0), 77);
  EXPECT_EQ(trace.take(), "task bar | old procedure");
}

TEST_F(Win32HiddenWinProcTest, OtherMessagesGoOnUnheard) {
  EXPECT_EQ(SendMessageW(window, WM_USER + 1, 0, 0), 77);
  EXPECT_EQ(trace.take(), "old procedure");
  wchar_t title[32] = {};
  GetWindowTextW(window, title, 32);
  EXPECT_STREQ(title, L"hidden test");
}

TEST_F(Win32HiddenWinProcTest, RemovedItHearsNothingAndTheOldProcedureIsBack) {
  procedure.removeHiddenWinProc();
  EXPECT_EQ(GetWindowLongPtrW(window, GWLP_WNDPROC), reinterpret_cast<LONG_PTR>(&before));
  send(1, {1});
  EXPECT_EQ(trace.take(), "old procedure");
  procedure.removeHiddenWinProc();
  EXPECT_EQ(GetWindowLongPtrW(window, GWLP_WNDPROC), reinterpret_cast<LONG_PTR>(&before));
}

TEST_F(Win32HiddenWinProcTest, AProcedureOnTopOfItKeepsWorkingAfterTheRemoval) {
  static WNDPROC below = nullptr;
  below = reinterpret_cast<WNDPROC>(GetWindowLongPtrW(window, GWLP_WNDPROC));
  const WNDPROC onTop = [](HWND w, UINT message, WPARAM wParam, LPARAM lParam) {
    return CallWindowProcW(below, w, message, wParam, lParam);
  };
  SetWindowLongPtrW(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(onTop));
  procedure.removeHiddenWinProc();
  EXPECT_EQ(send(1, {1}), 77);
  EXPECT_EQ(trace.take(), "old procedure");
}

TEST_F(Win32HiddenWinProcTest, TheWindowMayGoWhileItHears) {
  whileHearing = [this] {
    SetWindowLongPtrW(window, GWLP_USERDATA, 0);
    procedure.removeHiddenWinProc();
    DestroyWindow(window);
  };
  send(1, {1});
  EXPECT_EQ(trace.take(), "data 1 1");
  EXPECT_FALSE(IsWindow(window));
}

TEST_F(Win32HiddenWinProcTest, AWindowThatGoesIsForgotten) {
  SetWindowLongPtrW(window, GWLP_USERDATA, 0);
  DestroyWindow(window);
  procedure.removeHiddenWinProc();
  EXPECT_FALSE(IsWindow(window));
}

}  // namespace
}  // namespace tessivo
