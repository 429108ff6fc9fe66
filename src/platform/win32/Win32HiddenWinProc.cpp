#include "platform/win32/Win32HiddenWinProc.h"

#include <string>
#include <utility>

#include "platform/win32/Guarded.h"

namespace tessivo {
namespace {

/// The window whose procedure is replaced, and the one that it had, to which everything goes on
/// also after somebody else has put a procedure on top of ours. A window procedure has no place for
/// them.
thread_local Win32HiddenWinProc* hearing = nullptr;
thread_local WNDPROC previous = nullptr;

/// Also programs with fewer rights than this one are to reach it: a player that was started with
/// more is called by the shell's menu all the same.
void letThrough(HWND window, UINT message) {
  ChangeWindowMessageFilterEx(window, message, MSGFLT_ALLOW, nullptr);
}

}  // namespace

Win32HiddenWinProc::Win32HiddenWinProc(Log& log)
    : log_(log), taskbarCreated_(RegisterWindowMessageW(L"TaskbarCreated")) {}

void Win32HiddenWinProc::installHiddenWinProc(WindowHandle window, Listener& listener) {
  removeHiddenWinProc();
  window_ = reinterpret_cast<HWND>(window);
  listener_ = &listener;
  hearing = this;
  previous = reinterpret_cast<WNDPROC>(GetWindowLongPtrW(window_, GWLP_WNDPROC));
  if (!SetWindowLongPtrW(window_, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&hiddenWinProc))) {
    log_.error("requests of later instances are not heard, error " +
               std::to_string(GetLastError()));
  }
  letThrough(window_, WM_COPYDATA);
  letThrough(window_, taskbarCreated_);
}

void Win32HiddenWinProc::removeHiddenWinProc() {
  const HWND window = std::exchange(window_, nullptr);
  if (!window) return;
  listener_ = nullptr;
  hearing = nullptr;
  // A procedure that somebody put on top of ours goes on calling ours, which passes everything on.
  if (GetWindowLongPtrW(window, GWLP_WNDPROC) == reinterpret_cast<LONG_PTR>(&hiddenWinProc)) {
    SetWindowLongPtrW(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(previous));
  }
}

LRESULT CALLBACK Win32HiddenWinProc::hiddenWinProc(HWND window, UINT message, WPARAM wParam,
                                                   LPARAM lParam) {
  const WNDPROC next = previous;
  if (hearing && hearing->window_ == window) {
    guarded(hearing->log_, [&] { hearing->hear(message, lParam); });
    if (message == WM_NCDESTROY) hearing->removeHiddenWinProc();
  }
  return CallWindowProcW(next, window, message, wParam, lParam);
}

void Win32HiddenWinProc::hear(UINT message, LPARAM lParam) {
  if (message == taskbarCreated_) return listener_->taskbarCreated();
  if (message != WM_COPYDATA || lParam == 0) return;
  const auto& data = *reinterpret_cast<const COPYDATASTRUCT*>(lParam);
  const auto* const bytes = static_cast<const std::uint8_t*>(data.lpData);
  listener_->copyData(data.dwData, {bytes, bytes ? data.cbData : 0});
}

}  // namespace tessivo
