#include "platform/win32/Win32Messaging.h"

#include <windows.h>

#include <vector>

#include "platform/win32/SingleInstance.h"
#include "platform/win32/Win32OsVersion.h"

namespace tessivo {
namespace {

/// A hidden window that notes what is sent to it.
class Receiver {
 public:
  explicit Receiver(const wchar_t* title) {
    WNDCLASSW windowClass{};
    windowClass.lpfnWndProc = procedure;
    windowClass.hInstance = GetModuleHandleW(nullptr);
    windowClass.lpszClassName = L"TessivoReceiverTest";
    RegisterClassW(&windowClass);
    window_ = CreateWindowW(L"TessivoReceiverTest", title, WS_OVERLAPPED, 0, 0, 0, 0, nullptr,
                            nullptr, windowClass.hInstance, this);
    SetWindowLongPtrW(window_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
  }
  ~Receiver() { DestroyWindow(window_); }
  Receiver(const Receiver&) = delete;
  Receiver& operator=(const Receiver&) = delete;
  WindowHandle handle() const { return reinterpret_cast<WindowHandle>(window_); }

  ULONG_PTR number = 0;
  WPARAM wParam = 99;
  std::vector<std::uint8_t> bytes;

 private:
  static LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    auto* const self = reinterpret_cast<Receiver*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    if (self && message == WM_COPYDATA) {
      const auto& data = *reinterpret_cast<const COPYDATASTRUCT*>(lParam);
      const auto* const first = static_cast<const std::uint8_t*>(data.lpData);
      self->number = data.dwData;
      self->wParam = wParam;
      self->bytes.assign(first, first + data.cbData);
      return 0;
    }
    return DefWindowProcW(window, message, wParam, lParam);
  }
  HWND window_;
};

TEST(Win32MessagingTest, FindsAHiddenWindowByExactlyItsTitle) {
  const Receiver receiver(L"tessivo 测试窗口");
  const Win32Messaging messaging;
  EXPECT_EQ(messaging.findTopLevel("tessivo 测试窗口"), receiver.handle());
  EXPECT_EQ(messaging.findTopLevel("tessivo 测试"), 0U);
  EXPECT_EQ(messaging.findTopLevel("tessivo 测试窗口 2"), 0U);
}

TEST(Win32MessagingTest, TheBytesArriveUnderTheirNumber) {
  Receiver receiver(L"tessivo receiver");
  Win32Messaging messaging;
  const std::vector<std::uint8_t> bytes{'-', 0, 'S', 0, 0};
  EXPECT_TRUE(messaging.sendCopyData(receiver.handle(), 0, 1, bytes));
  EXPECT_EQ(receiver.number, 1U);
  EXPECT_EQ(receiver.wParam, 0U);
  EXPECT_EQ(receiver.bytes, bytes);
}

TEST(Win32MessagingTest, AWindowThatHasGoneDoesNotAnswer) {
  WindowHandle gone = 0;
  { gone = Receiver(L"tessivo receiver").handle(); }
  EXPECT_FALSE(Win32Messaging().sendCopyData(gone, 0, 1, {}));
}

TEST(SingleInstanceTest, TheSecondOfAnameIsNotTheFirst) {
  const std::string name = "tessivo test " + std::to_string(GetCurrentProcessId());
  {
    const SingleInstance first(name);
    const SingleInstance second(name);
    EXPECT_TRUE(first.isFirst());
    EXPECT_FALSE(second.isFirst());
    EXPECT_TRUE(SingleInstance(name + " other").isFirst());
  }
  EXPECT_TRUE(SingleInstance(name).isFirst());
}

TEST(Win32OsVersionTest, TheSystemIsOfWindowsNt) {
  const OsVersion version = win32OsVersion();
  EXPECT_EQ(version.platform, 2U);
  EXPECT_GE(version.major, 5U);
}

}  // namespace
}  // namespace tessivo
