#include "ui/win32/Win32PictureBox.h"

#include <algorithm>
#include <utility>

namespace tessivo::ui {
namespace {

constexpr wchar_t kWindowClass[] = L"TessivoPictureBox";

void registerClass() {
  WNDCLASSEXW windowClass{};
  windowClass.cbSize = sizeof windowClass;
  windowClass.style = CS_DBLCLKS;
  windowClass.lpfnWndProc = DefWindowProcW;
  windowClass.hInstance = GetModuleHandleW(nullptr);
  windowClass.hCursor = LoadCursorW(nullptr, IDC_ARROW);
  windowClass.lpszClassName = kWindowClass;
  RegisterClassExW(&windowClass);  // fails harmlessly after the first time
}

/// The largest square in the middle of the area.
Rect middleSquare(const RECT& area) {
  const LONG side = std::min(area.right, area.bottom);
  return {(area.right - side) / 2, (area.bottom - side) / 2, side, side};
}

}  // namespace

Win32PictureBox::Win32PictureBox(PictureBox& model, std::shared_ptr<FormContext> context)
    : ControlPeer(model, std::move(context),
                  {.clicks = true, .captures = true, .ownRightButton = false}),
      model_(model) {
  registerClass();
  create(kWindowClass, "", WS_CLIPCHILDREN | (model.border() ? WS_BORDER : 0), WS_EX_CONTROLPARENT);
  loadPicture();
}

void Win32PictureBox::apply(Aspect aspect) {
  ControlWindow::apply(aspect);
  if (aspect == Aspect::items) {
    setFrame();
    loadPicture();
    redraw();
  } else if (aspect == Aspect::bounds) {
    loadPicture();
  }
}

void Win32PictureBox::setFrame() {
  const auto style = GetWindowLongPtrW(window(), GWL_STYLE);
  const auto wanted = model_.border() ? style | WS_BORDER : style & ~LONG_PTR{WS_BORDER};
  if (style == wanted) return;
  SetWindowLongPtrW(window(), GWL_STYLE, wanted);
  SetWindowPos(window(), nullptr, 0, 0, 0, 0,
               SWP_NOMOVE | SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE | SWP_FRAMECHANGED);
}

void Win32PictureBox::loadPicture() {
  picture_.reset();
  if (model_.icon() == 0) return;
  RECT area{};
  GetClientRect(window(), &area);
  const int side = middleSquare(area).width;
  picture_.reset(
      static_cast<HICON>(LoadImageW(GetModuleHandleW(nullptr), MAKEINTRESOURCEW(model_.icon()),
                                    IMAGE_ICON, side, side, LR_DEFAULTCOLOR)));
}

LRESULT Win32PictureBox::handle(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  const auto alive = input().alive();
  if (const auto reflected = reflect(message, wParam, lParam)) return *reflected;
  if (!*alive) return 0;
  if (message != WM_ERASEBKGND) return ControlWindow::handle(window, message, wParam, lParam);
  erase(window, reinterpret_cast<HDC>(wParam));
  return TRUE;
}

void Win32PictureBox::erase(HWND window, HDC dc) const {
  RECT area{};
  GetClientRect(window, &area);
  FillRect(dc, &area, context().brush(backColourOf(model_)));
  if (!picture_) return;
  const Rect at = middleSquare(area);
  DrawIconEx(dc, at.left, at.top, picture_.get(), at.width, at.height, 0, nullptr, DI_NORMAL);
}

}  // namespace tessivo::ui
