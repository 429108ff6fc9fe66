#include "platform/win32/Win32DesktopWindows.h"

#include <windows.h>

#include <array>

#include "platform/win32/WindowsText.h"

namespace tessivo {
namespace {

HWND hwnd(WindowHandle window) {
  return reinterpret_cast<HWND>(window);
}
WindowHandle handle(HWND window) {
  return reinterpret_cast<WindowHandle>(window);
}

}  // namespace

WindowHandle Win32DesktopWindows::under(Point screen) const {
  return handle(WindowFromPoint({screen.x, screen.y}));
}

bool Win32DesktopWindows::isUnder(WindowHandle window, Point screen) const {
  RECT area{};
  // The place of a window of our own is known at once; what lies over it must be asked for.
  return GetWindowRect(hwnd(window), &area) && PtInRect(&area, {screen.x, screen.y}) &&
         under(screen) == window;
}

WindowHandle Win32DesktopWindows::parentOf(WindowHandle window) const {
  return handle(GetParent(hwnd(window)));
}

std::string Win32DesktopWindows::classOf(WindowHandle window) const {
  std::array<wchar_t, 257> name{};  // the longest class name has 256 characters
  GetClassNameW(hwnd(window), name.data(), static_cast<int>(name.size()));
  return fromWide(name.data());
}

std::string Win32DesktopWindows::titleOf(WindowHandle window) const {
  std::array<wchar_t, 512> title{};
  // Never waits for another program: of its windows this reads the title that the system keeps.
  GetWindowTextW(hwnd(window), title.data(), static_cast<int>(title.size()));
  return fromWide(title.data());
}

bool Win32DesktopWindows::isOurs(WindowHandle window) const {
  DWORD process = 0;
  GetWindowThreadProcessId(hwnd(window), &process);
  return process == GetCurrentProcessId();
}

Point Win32DesktopWindows::toScreen(WindowHandle window, Point client) const {
  POINT point{client.x, client.y};
  ClientToScreen(hwnd(window), &point);
  return {point.x, point.y};
}

void Win32DesktopWindows::postClose(WindowHandle window) const {
  // Some numbers are no windows but stand for all of them.
  if (IsWindow(hwnd(window))) PostMessageW(hwnd(window), WM_CLOSE, 0, 0);
}

}  // namespace tessivo
