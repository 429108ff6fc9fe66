#pragma once

#include <windows.h>
// After windows.h, which it needs:
#include <commctrl.h>

#include <cstdio>
#include <cstdlib>
#include <string>
#include <utility>
#include <vector>

#include "platform/win32/WindowsText.h"

namespace tessivo {

/// Says why, and ends the program that works the panel.
[[noreturn]] inline void fail(const std::string& why) {
  std::printf("panel_driver: %s\n", why.c_str());
  std::exit(1);
}

inline std::string textOf(HWND window) {
  std::wstring text(1024, L'\0');
  text.resize(static_cast<std::size_t>(
      SendMessageW(window, WM_GETTEXT, text.size(), reinterpret_cast<LPARAM>(text.data()))));
  return fromWide(text);
}

inline DWORD processOf(HWND window) {
  DWORD id = 0;
  GetWindowThreadProcessId(window, &id);
  return id;
}

/// The name that a control carries, as a property with itself as the value; empty for other
/// windows.
inline std::string nameOf(HWND window) {
  std::string name;
  const auto take = [](HWND owner, LPWSTR property, HANDLE value, ULONG_PTR into) {
    if (IS_INTRESOURCE(property) || value != owner) return TRUE;
    *reinterpret_cast<std::string*>(into) = fromWide(property);
    return FALSE;
  };
  if (window) EnumPropsExW(window, take, reinterpret_cast<LPARAM>(&name));
  return name;
}

/// The control of that name in a window, also inside its pages; null when there is none.
inline HWND findControl(HWND form, const std::string& name) {
  std::pair<std::wstring, HWND> search(toWide(name), nullptr);
  const auto look = [](HWND child, LPARAM into) {
    auto& [wanted, found] = *reinterpret_cast<std::pair<std::wstring, HWND>*>(into);
    if (GetPropW(child, wanted.c_str())) found = child;
    return static_cast<BOOL>(found == nullptr);
  };
  EnumChildWindows(form, look, reinterpret_cast<LPARAM>(&search));
  return search.second;
}

/// The control panel of the running player and its controls.
class PanelWindow {
 public:
  static HWND find() { return FindWindowW(nullptr, L"Tessivo 泰思维"); }

  PanelWindow() : window_(find()) {
    if (!window_) fail("no control panel");
  }
  HWND window() const { return window_; }
  HWND control(const std::string& name) const {
    const HWND found = findControl(window_, name);
    if (!found) fail("no control " + name);
    return found;
  }
  std::string text(const std::string& name) const { return textOf(control(name)); }
  int ask(const std::string& name, UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const {
    return static_cast<int>(SendMessageW(control(name), message, wParam, lParam));
  }
  bool isVisible(const std::string& name) const { return IsWindowVisible(control(name)) != FALSE; }
  /// The name of the control that has the keyboard.
  std::string focus() const {
    GUITHREADINFO info{};
    info.cbSize = sizeof info;
    GetGUIThreadInfo(GetWindowThreadProcessId(window_, nullptr), &info);
    return nameOf(info.hwndFocus);
  }
  /// The player's visible dialog in front, over whichever of its windows; null when there is none.
  HWND dialog() const {
    for (HWND top = GetTopWindow(nullptr); top; top = GetWindow(top, GW_HWNDNEXT)) {
      if (top != window_ && IsWindowVisible(top) && isDialog(top)) return top;
    }
    return nullptr;
  }

 private:
  bool isDialog(HWND top) const {
    const bool hasCaption = (GetWindowLongW(top, GWL_STYLE) & WS_CAPTION) == WS_CAPTION;
    return hasCaption && GetWindow(top, GW_OWNER) && processOf(top) == processOf(window_);
  }

  HWND window_;
};

}  // namespace tessivo
