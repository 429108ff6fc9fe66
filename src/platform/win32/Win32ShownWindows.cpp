#include "platform/win32/Win32ShownWindows.h"

#include <utility>

#include "platform/win32/Guarded.h"

namespace tessivo {
namespace {

/// A hook procedure has no place for it.
thread_local Win32ShownWindows* watching = nullptr;

/// Windows announces a showing in one way or the other, often in both.
bool showsWindow(const CWPSTRUCT& message) {
  if (message.message == WM_SHOWWINDOW) return message.wParam != FALSE;
  if (message.message != WM_WINDOWPOSCHANGED) return false;
  return (reinterpret_cast<const WINDOWPOS*>(message.lParam)->flags & SWP_SHOWWINDOW) != 0;
}

ShownWindow describe(HWND window) {
  const auto style = GetWindowLongPtrW(window, GWL_STYLE);
  const auto module = GetClassLongPtrW(window, GCLP_HMODULE);
  return {reinterpret_cast<WindowHandle>(window),
          reinterpret_cast<WindowHandle>(GetAncestor(window, GA_ROOTOWNER)),
          (style & WS_CHILD) != 0, (style & WS_CAPTION) == WS_CAPTION,
          module == reinterpret_cast<ULONG_PTR>(GetModuleHandleW(nullptr))};
}

}  // namespace

void Win32ShownWindows::watch(std::function<void(const ShownWindow&)> onShown) {
  stop();
  onShown_ = std::move(onShown);
  hook_ = SetWindowsHookExW(WH_CALLWNDPROC, procedure, nullptr, GetCurrentThreadId());
  if (!hook_) {
    log_.error("no hook for the engines' own windows, error " + std::to_string(GetLastError()));
  }
  watching = this;
}

void Win32ShownWindows::stop() {
  if (hook_) UnhookWindowsHookEx(std::exchange(hook_, nullptr));
  if (watching == this) watching = nullptr;
}

LRESULT CALLBACK Win32ShownWindows::procedure(int code, WPARAM wParam, LPARAM lParam) {
  const auto& message = *reinterpret_cast<const CWPSTRUCT*>(lParam);
  if (code == HC_ACTION && watching && showsWindow(message)) {
    guarded(watching->log_, [&] { watching->onShown_(describe(message.hwnd)); });
  }
  return CallNextHookEx(nullptr, code, wParam, lParam);
}

}  // namespace tessivo
