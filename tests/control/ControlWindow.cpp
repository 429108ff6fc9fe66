#include "control/ControlWindow.h"

#include <windowsx.h>

namespace tessivo::test_control {
namespace {

constexpr wchar_t kClassName[] = L"RealAudioCtrlWndClass";
constexpr wchar_t kPictureClassName[] = L"TestControlPicture";
constexpr COLORREF kPictureColour = RGB(200, 0, 200);  // easy to find in a screenshot
constexpr UINT_PTR kTimer = 1;

void registerClass(const wchar_t* name, WNDPROC procedure, HBRUSH background) {
  WNDCLASSEXW description{};
  description.cbSize = sizeof(description);
  description.style = CS_DBLCLKS;
  description.lpfnWndProc = procedure;
  description.hInstance = GetModuleHandleW(nullptr);
  description.hCursor = LoadCursorW(nullptr, IDC_ARROW);
  description.hbrBackground = background;
  description.lpszClassName = name;
  RegisterClassExW(&description);  // a second time it fails, and the first one stands
}

}  // namespace

bool ControlWindow::open(HWND parent, const RECT& area) {
  static const HBRUSH pictureBrush = CreateSolidBrush(kPictureColour);
  registerClass(kClassName, &procedure, static_cast<HBRUSH>(GetStockObject(BLACK_BRUSH)));
  registerClass(kPictureClassName, &pictureProcedure, pictureBrush);
  window_ = CreateWindowExW(0, kClassName, L"", WS_CHILD | WS_VISIBLE | WS_CLIPCHILDREN, area.left,
                            area.top, area.right - area.left, area.bottom - area.top, parent,
                            nullptr, GetModuleHandleW(nullptr), this);
  return window_ != nullptr;
}

void ControlWindow::close() {
  if (window_) DestroyWindow(window_);
}

void ControlWindow::move(const RECT& area) {
  MoveWindow(window_, area.left, area.top, area.right - area.left, area.bottom - area.top, TRUE);
}

void ControlWindow::makePicture() {
  if (!window_ || picture_) return;
  picture_ = CreateWindowExW(0, kPictureClassName, L"", WS_CHILD | WS_VISIBLE, 0, 0, 0, 0, window_,
                             nullptr, GetModuleHandleW(nullptr), this);
  SetWindowLongPtrW(picture_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
  fill();
}

void ControlWindow::destroyPicture() {
  if (picture_) DestroyWindow(picture_);
}

void ControlWindow::tickEvery(UINT ms) {
  if (ms > 0) {
    SetTimer(window_, kTimer, ms, nullptr);
  } else {
    KillTimer(window_, kTimer);
  }
}

void ControlWindow::fill() {
  RECT area{};
  GetClientRect(window_, &area);
  if (picture_) MoveWindow(picture_, 0, 0, area.right, area.bottom, TRUE);
}

LRESULT CALLBACK ControlWindow::procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == WM_NCCREATE) {
    const auto* creation = reinterpret_cast<const CREATESTRUCTW*>(lParam);
    SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(creation->lpCreateParams));
  }
  auto* self = reinterpret_cast<ControlWindow*>(GetWindowLongPtrW(window, GWLP_USERDATA));
  if (self && message == WM_SIZE) self->fill();
  if (self && message == WM_NCDESTROY) {
    SetWindowLongPtrW(window, GWLP_USERDATA, 0);
    self->window_ = nullptr;
  }
  if (self && message == WM_TIMER) {
    self->owner_.onTick();
    return 0;
  }
  return DefWindowProcW(window, message, wParam, lParam);
}

LRESULT CALLBACK ControlWindow::pictureProcedure(HWND window, UINT message, WPARAM wParam,
                                                 LPARAM lParam) {
  auto* self = reinterpret_cast<ControlWindow*>(GetWindowLongPtrW(window, GWLP_USERDATA));
  if (self && message == WM_NCDESTROY) {
    SetWindowLongPtrW(window, GWLP_USERDATA, 0);
    self->picture_ = nullptr;
  }
  if (self && message == WM_MOUSEMOVE) {
    self->owner_.onMouseMove(GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam));
  }
  if (self && message == WM_LBUTTONDOWN) {
    self->owner_.onButtonDown(GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam));
  }
  return DefWindowProcW(window, message, wParam, lParam);
}

}  // namespace tessivo::test_control
