// With the class that uses it, at a real window.
#include "platform/win32/Win32KeyPosting.h"

#include <gtest/gtest.h>
#include <windows.h>

#include <sstream>
#include <string>

#include "saver/SendKeyToAWin.h"

namespace tessivo {
namespace {

class Win32KeyPostingTest : public testing::Test {
 protected:
  ~Win32KeyPostingTest() override { DestroyWindow(window); }

  /// The key messages that wait for the window: message, key, data, in hexadecimal.
  std::string received() const {
    std::ostringstream text;
    text << std::hex;
    MSG message;
    while (PeekMessageW(&message, window, WM_KEYFIRST, WM_KEYLAST, PM_REMOVE)) {
      text << message.message << ' ' << message.wParam << ' '
           << static_cast<std::uint32_t>(message.lParam) << " | ";
    }
    return text.str();
  }

  HWND window = CreateWindowExW(0, L"STATIC", L"", WS_POPUP, 0, 0, 10, 10, nullptr, nullptr,
                                nullptr, nullptr);
  Win32KeyPosting posting;
  SendKeyToAWin keys{posting};
};

TEST_F(Win32KeyPostingTest, WindowGetsTheKeyDownAndUp) {
  keys.SendKey(reinterpret_cast<WindowHandle>(window), "a");
  EXPECT_EQ(received(), "100 41 1e0001 | 101 41 c01e0001 | ");
  keys.SendKey(reinterpret_cast<WindowHandle>(window), "7");
  EXPECT_EQ(received(), "100 37 80001 | 101 37 c0080001 | ");
}

TEST_F(Win32KeyPostingTest, WindowThatIsGoneIsNoTrouble) {
  DestroyWindow(window);
  keys.SendKey(reinterpret_cast<WindowHandle>(window), "a");
  EXPECT_EQ(received(), "");
}

TEST_F(Win32KeyPostingTest, KeyWithoutAScanCodeHasNone) {
  EXPECT_EQ(posting.scanCodeOf(0xFF), 0U);
  EXPECT_EQ(posting.scanCodeOf('Q'), 0x10U);
}

}  // namespace
}  // namespace tessivo
