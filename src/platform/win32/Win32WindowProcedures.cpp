#include "platform/win32/Win32WindowProcedures.h"

#include <windows.h>

#include "platform/win32/Guarded.h"

namespace tessivo {
namespace {

/// The one filter of the thread; a window procedure has no place for it.
struct Caught {
  const WindowProcedures* owner = nullptr;
  WindowProcedures::Filter* filter = nullptr;
  Log* log = nullptr;
};
thread_local Caught caught;

WindowMessage messageOf(UINT message) {
  switch (message) {
    case WM_LBUTTONDOWN:
      return WindowMessage::leftDown;
    case WM_LBUTTONUP:
      return WindowMessage::leftUp;
    case WM_LBUTTONDBLCLK:
      return WindowMessage::leftDoubleClick;
    case WM_RBUTTONDOWN:
      return WindowMessage::rightDown;
    case WM_RBUTTONUP:
      return WindowMessage::rightUp;
    case WM_RBUTTONDBLCLK:
      return WindowMessage::rightDoubleClick;
    case WM_MOUSEMOVE:
      return WindowMessage::mouseMove;
    default:
      return WindowMessage::other;
  }
}

LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  const auto handle = reinterpret_cast<WindowHandle>(window);
  const auto previous =
      caught.filter ? reinterpret_cast<WNDPROC>(caught.filter->previousProcedure(handle)) : nullptr;
  if (!previous) return DefWindowProcW(window, message, wParam, lParam);
  bool consumed = false;
  guarded(*caught.log, [&] {
    if (message == WM_NCDESTROY) {
      SetWindowLongPtrW(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(previous));
      caught.filter->gone(handle);
    } else {
      consumed = caught.filter->consume(handle, messageOf(message));
    }
  });
  if (consumed) return 0;
  return CallWindowProcW(previous, window, message, wParam, lParam);
}

}  // namespace

Win32WindowProcedures::~Win32WindowProcedures() {
  if (caught.owner == this) caught = {};
}

std::uintptr_t Win32WindowProcedures::replace(WindowHandle window, Filter& filter) {
  auto* const handle = reinterpret_cast<HWND>(window);
  if (GetWindowThreadProcessId(handle, nullptr) != GetCurrentThreadId()) return 0;
  caught = {this, &filter, &log_};
  return static_cast<std::uintptr_t>(
      SetWindowLongPtrW(handle, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&procedure)));
}

/// Only where ours is still the procedure: one that somebody put on top of it calls ours, which
/// passes everything on.
void Win32WindowProcedures::restore(WindowHandle window, std::uintptr_t previous) {
  auto* const handle = reinterpret_cast<HWND>(window);
  if (GetWindowLongPtrW(handle, GWLP_WNDPROC) != reinterpret_cast<LONG_PTR>(&procedure)) return;
  SetWindowLongPtrW(handle, GWLP_WNDPROC, static_cast<LONG_PTR>(previous));
}

}  // namespace tessivo
