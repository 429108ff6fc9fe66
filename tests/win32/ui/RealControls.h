#pragma once

#include <windows.h>
// after windows.h
#include <commctrl.h>

#include <string>

#include "platform/win32/WindowsText.h"
#include "ui/Control.h"

namespace tessivo::ui {

inline HWND windowOf(const Control& control) {
  return reinterpret_cast<HWND>(control.nativeHandle());
}

inline LRESULT send(const Control& control, UINT message, WPARAM wParam = 0, LPARAM lParam = 0) {
  return SendMessageW(windowOf(control), message, wParam, lParam);
}

inline BOOL CALLBACK findToolTips(HWND candidate, LPARAM out) {
  wchar_t name[64] = L"";
  GetClassNameW(candidate, name, 64);
  if (std::wstring(name) == TOOLTIPS_CLASSW) *reinterpret_cast<HWND*>(out) = candidate;
  return TRUE;
}

/// The window that shows the tool tips; none before there is a tip.
inline HWND toolTipsOfThisThread() {
  HWND tips = nullptr;
  EnumThreadWindows(GetCurrentThreadId(), findToolTips, reinterpret_cast<LPARAM>(&tips));
  return tips;
}

inline std::string textOf(HWND window) {
  std::wstring text(static_cast<std::size_t>(GetWindowTextLengthW(window)) + 1, L'\0');
  text.resize(
      static_cast<std::size_t>(GetWindowTextW(window, text.data(), static_cast<int>(text.size()))));
  return fromWide(text);
}

inline RECT itemRect(HWND list, int row, int part) {
  RECT at{};
  at.left = part;
  SendMessageW(list, LVM_GETITEMRECT, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&at));
  return at;
}

inline LPARAM middleOf(const RECT& at) {
  return MAKELPARAM((at.left + at.right) / 2, (at.top + at.bottom) / 2);
}

/// Handles what is waiting in the message queue.
inline void handleWaiting() {
  MSG message;
  while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
    TranslateMessage(&message);
    DispatchMessageW(&message);
  }
}

/// Press and release. The release is in the queue before the press is sent, for controls that wait
/// for it in a loop of their own.
inline void pressAndRelease(HWND window, UINT down, UINT up, WPARAM keys, LPARAM at) {
  PostMessageW(window, up, 0, at);
  SendMessageW(window, down, keys, at);
  handleWaiting();
}

inline void clickAt(HWND window, LPARAM at) {
  pressAndRelease(window, WM_LBUTTONDOWN, WM_LBUTTONUP, MK_LBUTTON, at);
}

/// Handles messages until the condition holds; false when it does not within five seconds.
template <typename Condition>
bool eventually(Condition condition) {
  const ULONGLONG end = GetTickCount64() + 5000;
  while (!condition()) {
    if (GetTickCount64() >= end) return false;
    MsgWaitForMultipleObjectsEx(0, nullptr, 10, QS_ALLINPUT, MWMO_INPUTAVAILABLE);
    handleWaiting();
  }
  return true;
}

}  // namespace tessivo::ui
