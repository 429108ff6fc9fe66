#include "screen/engines/embedded/PictureWindow.h"

#include <utility>

namespace tessivo {
namespace {

constexpr wchar_t kClassName[] = L"TessivoPictureWindow";

void registerClass(WNDPROC procedure) {
  WNDCLASSEXW description{};
  description.cbSize = sizeof(description);
  description.style = CS_HREDRAW | CS_VREDRAW;  // the black around the picture moves
  description.lpfnWndProc = procedure;
  description.hInstance = GetModuleHandleW(nullptr);
  description.hCursor = LoadCursorW(nullptr, IDC_ARROW);
  description.hbrBackground = static_cast<HBRUSH>(GetStockObject(BLACK_BRUSH));
  description.lpszClassName = kClassName;
  RegisterClassExW(&description);  // a second time it fails, and the first one stands
}

}  // namespace

PictureWindow::PictureWindow(HWND engineWindow, std::function<void(HDC)> onPaint)
    : onPaint_(std::move(onPaint)) {
  registerClass(&PictureWindow::procedure);
  RECT area{};
  GetClientRect(engineWindow, &area);
  CreateWindowExW(0, kClassName, L"",
                  WS_CHILD | WS_VISIBLE | WS_DISABLED | WS_CLIPSIBLINGS | WS_CLIPCHILDREN, 0, 0,
                  area.right, area.bottom, engineWindow, nullptr, GetModuleHandleW(nullptr), this);
}

PictureWindow::~PictureWindow() {
  if (window_) DestroyWindow(window_);
}

void PictureWindow::hide() {
  if (window_) ShowWindow(window_, SW_HIDE);
}

void PictureWindow::fill() {
  if (!window_) return;
  RECT area{};
  GetClientRect(GetParent(window_), &area);
  SetWindowPos(window_, nullptr, 0, 0, area.right, area.bottom, SWP_NOZORDER | SWP_NOACTIVATE);
}

LRESULT CALLBACK PictureWindow::procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == WM_NCCREATE) {
    const auto* creation = reinterpret_cast<const CREATESTRUCTW*>(lParam);
    auto* created = static_cast<PictureWindow*>(creation->lpCreateParams);
    created->window_ = window;
    SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(created));
  }
  auto* self = reinterpret_cast<PictureWindow*>(GetWindowLongPtrW(window, GWLP_USERDATA));
  if (self && message == WM_PAINT) {
    PAINTSTRUCT paint;
    self->onPaint_(BeginPaint(window, &paint));
    EndPaint(window, &paint);
    return 0;
  }
  if (self && message == WM_NCDESTROY) {
    SetWindowLongPtrW(window, GWLP_USERDATA, 0);
    self->window_ = nullptr;
  }
  return DefWindowProcW(window, message, wParam, lParam);
}

}  // namespace tessivo
