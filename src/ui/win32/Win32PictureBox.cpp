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
  } else if (aspect == Aspect::bounds || aspect == Aspect::scale) {
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
  // Measured without the border, so that the picture stays as large when the border comes.
  const Rect area = toPixels(model_.bounds(), context().twips());
  const std::int32_t border = 2 * GetSystemMetrics(SM_CXBORDER);
  side_ = std::max(0, std::min(area.width, area.height) - border);
  picture_ = loadIcon(model_.icon(), side_);
}

LRESULT Win32PictureBox::handle(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  const auto alive = input().alive();
  if (const auto reflected = reflect(message, wParam, lParam)) return *reflected;
  if (!*alive) return 0;
  if (message == WM_ERASEBKGND) {
    erase(window, reinterpret_cast<HDC>(wParam));
    return TRUE;
  }
  if (!model_.focusable()) return ControlWindow::handle(window, message, wParam, lParam);
  return handleKeyboard(window, message, wParam, lParam);
}

LRESULT Win32PictureBox::handleKeyboard(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  const auto alive = input().alive();
  if (message == WM_LBUTTONDOWN) SetFocus(window);
  const LRESULT result = ControlWindow::handle(window, message, wParam, lParam);
  if (!*alive) return result;
  if (message == WM_SETFOCUS || message == WM_KILLFOCUS) InvalidateRect(window, nullptr, TRUE);
  if (message == WM_KEYDOWN && (wParam == VK_SPACE || wParam == VK_RETURN)) model_.click();
  return result;
}

void Win32PictureBox::erase(HWND window, HDC dc) const {
  RECT area{};
  GetClientRect(window, &area);
  FillRect(dc, &area, context().brush(backColourOf(model_)));
  if (picture_) {
    DrawIconEx(dc, (area.right - side_) / 2, (area.bottom - side_) / 2, picture_.get(), side_,
               side_, 0, nullptr, DI_NORMAL);
  }
  if (GetFocus() == window) DrawFocusRect(dc, &area);
}

}  // namespace tessivo::ui
