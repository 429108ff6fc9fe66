#include "platform/win32/Win32Messaging.h"

#include <windows.h>

#include <vector>

#include "platform/win32/WindowsText.h"

namespace tessivo {
namespace {

/// A receiver that does not answer for so long is not waited for. One that the system takes for
/// hanging is: it may be busy with a slow disk, and what the user wants would be lost.
constexpr UINT kAnswerMs = 10000;

HWND hwnd(WindowHandle window) {
  return reinterpret_cast<HWND>(window);
}

}  // namespace

WindowHandle Win32Messaging::findTopLevel(const std::string& title) const {
  return reinterpret_cast<WindowHandle>(FindWindowW(nullptr, toWide(title).c_str()));
}

bool Win32Messaging::sendCopyData(WindowHandle target, std::uintptr_t wParam, std::uintptr_t number,
                                  std::span<const std::uint8_t> bytes) {
  std::vector<std::uint8_t> copy(bytes.begin(), bytes.end());  // the system's type is not const
  COPYDATASTRUCT data{};
  data.dwData = number;
  data.cbData = static_cast<DWORD>(bytes.size());
  data.lpData = copy.data();
  DWORD receiver = 0;
  GetWindowThreadProcessId(hwnd(target), &receiver);
  // This program was started by the user just now, so it may hand the foreground on.
  AllowSetForegroundWindow(receiver);
  return SendMessageTimeoutW(hwnd(target), WM_COPYDATA, wParam, reinterpret_cast<LPARAM>(&data),
                             SMTO_NORMAL, kAnswerMs, nullptr) != 0;
}

void Win32Messaging::bringToForeground(WindowHandle window) {
  SetForegroundWindow(hwnd(window));
}

}  // namespace tessivo
