#include "screen/engines/embedded/PictureWindow.h"

#include "platform/win32/Guarded.h"

namespace tessivo {
namespace {

constexpr UINT kFrameArrived = WM_APP;
constexpr wchar_t kClassName[] = L"TessivoPictureWindow";

void registerClass(WNDPROC procedure) {
  WNDCLASSEXW description{};
  description.cbSize = sizeof(description);
  description.style = CS_HREDRAW | CS_VREDRAW;  // the black around the picture moves
  description.lpfnWndProc = procedure;
  description.hInstance = GetModuleHandleW(nullptr);
  description.hCursor = LoadCursorW(nullptr, IDC_ARROW);
  description.lpszClassName = kClassName;
  RegisterClassExW(&description);  // a second time it fails, and the first one stands
}

}  // namespace

PictureWindow::PictureWindow(HWND engineWindow, bool aside, Log& log) : aside_(aside), log_(log) {
  registerClass(&PictureWindow::procedure);
  RECT area{};
  GetClientRect(engineWindow, &area);
  CreateWindowExW(0, kClassName, L"",
                  WS_CHILD | WS_VISIBLE | WS_DISABLED | WS_CLIPSIBLINGS | WS_CLIPCHILDREN,
                  aside ? area.right : 0, 0, area.right, area.bottom, engineWindow, nullptr,
                  GetModuleHandleW(nullptr), this);
  SetWindowPos(window_, HWND_BOTTOM, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
}

PictureWindow::~PictureWindow() {
  if (window_) DestroyWindow(window_);
}

void PictureWindow::noteFrame(HWND picture) {
  PostMessageW(picture, kFrameArrived, 0, 0);
}

void PictureWindow::comeIn() {
  aside_ = false;
  fill();
}

void PictureWindow::raise() {
  if (!window_) return;
  SetWindowPos(window_, HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
}

void PictureWindow::paint() {
  PAINTSTRUCT paint;
  const HDC dc = BeginPaint(window_, &paint);
  bool painted = false;
  guarded(log_, [&] { painted = paint_ && paint_(dc); });
  if (!painted) {
    RECT area{};
    GetClientRect(window_, &area);
    FillRect(dc, &area, static_cast<HBRUSH>(GetStockObject(BLACK_BRUSH)));
  }
  EndPaint(window_, &paint);
}

void PictureWindow::hide() {
  if (window_) ShowWindow(window_, SW_HIDE);
}

void PictureWindow::fill() {
  if (!window_) return;
  RECT area{};
  GetClientRect(GetParent(window_), &area);
  SetWindowPos(window_, nullptr, aside_ ? area.right : 0, 0, area.right, area.bottom,
               SWP_NOZORDER | SWP_NOACTIVATE);
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
    self->paint();
    return 0;
  }
  if (message == WM_ERASEBKGND) return 1;  // paint does it in one go with the frame: no flicker
  if (self && message == kFrameArrived) {
    guarded(self->log_, [self] {
      if (const auto arrived = self->arrived_) arrived();  // it may destroy the window
    });
    return 0;
  }
  if (self && message == WM_NCDESTROY) {
    SetWindowLongPtrW(window, GWLP_USERDATA, 0);
    self->window_ = nullptr;
  }
  return DefWindowProcW(window, message, wParam, lParam);
}

}  // namespace tessivo
