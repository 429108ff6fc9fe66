#pragma once

#include <windows.h>

#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "platform/win32/WindowsText.h"

namespace tessivo {

/// Calls back every 20 ms from whatever message loop this thread runs, a system dialog's too. One
/// at a time; never from within itself.
class Ticks {
 public:
  explicit Ticks(std::function<void()> onTick) : onTick_(std::move(onTick)) {
    current() = this;
    id_ = SetTimer(nullptr, 0, 20, procedure);
  }
  ~Ticks() {
    KillTimer(nullptr, id_);
    current() = nullptr;
  }
  Ticks(const Ticks&) = delete;
  Ticks& operator=(const Ticks&) = delete;

 private:
  static Ticks*& current() {
    static Ticks* ticks = nullptr;
    return ticks;
  }
  static void CALLBACK procedure(HWND, UINT, UINT_PTR, DWORD) {
    Ticks* const ticks = current();
    if (!ticks || std::exchange(ticks->busy_, true)) return;
    ticks->onTick_();
    ticks->busy_ = false;
  }

  std::function<void()> onTick_;
  UINT_PTR id_ = 0;
  bool busy_ = false;
};

inline std::string titleOf(HWND window) {
  wchar_t text[300] = {};
  GetWindowTextW(window, text, 300);
  return fromWide(text);
}

inline BOOL CALLBACK addShownDialog(HWND window, LPARAM list) {
  wchar_t name[20] = {};
  GetClassNameW(window, name, 20);
  if (std::wstring(name) == L"#32770" && IsWindowVisible(window)) {
    reinterpret_cast<std::vector<HWND>*>(list)->push_back(window);
  }
  return TRUE;
}

/// The system's dialogs and message boxes that this thread shows.
inline std::vector<HWND> dialogsOfThisThread() {
  std::vector<HWND> dialogs;
  EnumThreadWindows(GetCurrentThreadId(), addShownDialog, reinterpret_cast<LPARAM>(&dialogs));
  return dialogs;
}

/// As the user's Escape does, also for a message box with nothing but OK.
inline void cancelDialogsOfThisThread() {
  for (HWND dialog : dialogsOfThisThread()) {
    if (IsWindowEnabled(dialog)) PostMessageW(dialog, WM_COMMAND, IDCANCEL, 0);
  }
}

}  // namespace tessivo
