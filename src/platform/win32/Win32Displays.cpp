#include "platform/win32/Win32Displays.h"

#include <windows.h>

#include <new>
#include <string_view>

#include "base/Text.h"

namespace tessivo {
namespace {

HMONITOR native(MonitorHandle handle) {
  return reinterpret_cast<HMONITOR>(handle);
}

MonitorHandle portable(HMONITOR handle) {
  return reinterpret_cast<MonitorHandle>(handle);
}

Rect portable(const RECT& edges) {
  return {edges.left, edges.top, edges.right - edges.left, edges.bottom - edges.top};
}

std::string portableText(const wchar_t* text) {
  const std::wstring_view wide(text);
  return toUtf8(std::u16string(wide.begin(), wide.end()));
}

struct Found {
  std::vector<MonitorHandle> handles;
  bool isTooMuch = false;  ///< for the memory there is
};

/// Nothing may be thrown into Windows, which calls this.
BOOL CALLBACK addHandle(HMONITOR monitor, HDC, LPRECT, LPARAM into) {
  auto& found = *reinterpret_cast<Found*>(into);
  try {
    found.handles.push_back(portable(monitor));
  } catch (const std::bad_alloc&) {
    found.isTooMuch = true;
  }
  return found.isTooMuch ? FALSE : TRUE;
}

}  // namespace

std::vector<MonitorHandle> Win32Displays::enumerate() const {
  Found found;
  EnumDisplayMonitors(nullptr, nullptr, addHandle, reinterpret_cast<LPARAM>(&found));
  if (found.isTooMuch) throw std::bad_alloc();
  return std::move(found.handles);
}

std::optional<DisplayInfo> Win32Displays::info(MonitorHandle monitor) const {
  MONITORINFOEXW info{};
  static_assert(sizeof info == 104);
  info.cbSize = sizeof info;
  if (!GetMonitorInfoW(native(monitor), &info)) return std::nullopt;
  return DisplayInfo{(info.dwFlags & MONITORINFOF_PRIMARY) != 0, portableText(info.szDevice),
                     portable(info.rcMonitor), portable(info.rcWork)};
}

MonitorHandle Win32Displays::fromPoint(Point point) const {
  return portable(MonitorFromPoint({point.x, point.y}, MONITOR_DEFAULTTONULL));
}

MonitorHandle Win32Displays::fromWindow(WindowHandle window) const {
  return portable(MonitorFromWindow(reinterpret_cast<HWND>(window), MONITOR_DEFAULTTONULL));
}

int Win32Displays::displayMonitorCount() const {
  return GetSystemMetrics(SM_CMONITORS);
}

bool Win32Displays::sameDisplayFormat() const {
  return GetSystemMetrics(SM_SAMEDISPLAYFORMAT) != 0;
}

int Win32Displays::virtualScreenWidth() const {
  return GetSystemMetrics(SM_CXVIRTUALSCREEN);
}

int Win32Displays::virtualScreenHeight() const {
  return GetSystemMetrics(SM_CYVIRTUALSCREEN);
}

Rect Win32Displays::primaryScreen() const {
  return {0, 0, GetSystemMetrics(SM_CXSCREEN), GetSystemMetrics(SM_CYSCREEN)};
}

TwipsPerPixel Win32Displays::twipsPerPixel() const {
  return twipsPerPixelAt(GetDpiForSystem());
}

}  // namespace tessivo
