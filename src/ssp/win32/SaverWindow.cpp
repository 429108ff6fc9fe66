#include "ssp/win32/SaverWindow.h"

#include <utility>

#include "platform/win32/Guarded.h"
#include "platform/win32/WindowsText.h"
#include "ssp/win32/DibPicture.h"

namespace tessivo::ssp {
namespace {

constexpr wchar_t kWindowClass[] = L"TessivoSaver";

RECT toEdges(const Rect& rect) {
  return {rect.left, rect.top, rect.left + rect.width, rect.top + rect.height};
}

bool isInput(UINT message) {
  switch (message) {
    case WM_KEYDOWN:
    case WM_SYSKEYDOWN:
    case WM_LBUTTONDOWN:
    case WM_RBUTTONDOWN:
    case WM_MBUTTONDOWN:
    case WM_XBUTTONDOWN:
    case WM_MOUSEWHEEL:
    case WM_MOUSEHWHEEL:
      return true;
    default:
      return false;
  }
}

}  // namespace

SaverWindow::SaverWindow(const Rect& area, const std::string& title, Events events, Log& log)
    : events_(std::move(events)), log_(log), area_(area) {
  create(title);
  makePicture();
}

SaverWindow::~SaverWindow() {
  if (window_) {
    SetWindowLongPtrW(window_, GWLP_USERDATA, 0);
    DestroyWindow(window_);
  }
  if (picture_) SelectObject(canvas_, picturesPlace_);
  if (canvas_) DeleteDC(canvas_);
}

void SaverWindow::create(const std::string& title) {
  WNDCLASSEXW windowClass{};
  windowClass.cbSize = sizeof windowClass;
  windowClass.lpfnWndProc = windowProc;
  windowClass.hInstance = GetModuleHandleW(nullptr);
  windowClass.lpszClassName = kWindowClass;
  RegisterClassExW(&windowClass);  // fails harmlessly after the first time
  window_ = CreateWindowExW(WS_EX_TOPMOST | WS_EX_TOOLWINDOW | WS_EX_NOACTIVATE, kWindowClass,
                            toWide(title).c_str(), WS_POPUP, area_.left, area_.top, area_.width,
                            area_.height, nullptr, nullptr, windowClass.hInstance, nullptr);
  if (!window_) {
    log_.error("no window for the screen saver, error " + std::to_string(GetLastError()));
    return;
  }
  SetWindowLongPtrW(window_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
}

void SaverWindow::makePicture() {
  canvas_ = CreateCompatibleDC(nullptr);
  picture_ = makeDib(size(), nullptr);
  if (!canvas_ || !picture_) {
    log_.error("no picture of " + std::to_string(area_.width) + " x " +
               std::to_string(area_.height) + " pixels");
    return;
  }
  picturesPlace_ = SelectObject(canvas_, picture_.get());
}

void SaverWindow::refresh(const Rect& changed) {
  const RECT edges = toEdges(changed);
  InvalidateRect(window_, &edges, FALSE);
}

void SaverWindow::blacken(const Rect& part) {
  PatBlt(canvas_, part.left, part.top, part.width, part.height, BLACKNESS);
}

void SaverWindow::show() {
  SetWindowPos(window_, HWND_TOPMOST, 0, 0, 0, 0,
               SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE | SWP_SHOWWINDOW);
  UpdateWindow(window_);
}

void SaverWindow::putBack() {
  SetWindowPos(window_, HWND_TOPMOST, area_.left, area_.top, area_.width, area_.height,
               SWP_NOACTIVATE);
}

LRESULT CALLBACK SaverWindow::windowProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  auto* const saver = reinterpret_cast<SaverWindow*>(GetWindowLongPtrW(window, GWLP_USERDATA));
  if (!saver) return DefWindowProcW(window, message, wParam, lParam);
  LRESULT result = 0;
  guarded(saver->log_, [&] { result = saver->handle(message, wParam, lParam); });
  return result;
}

LRESULT SaverWindow::handle(UINT message, WPARAM wParam, LPARAM lParam) {
  if (isInput(message)) {
    events_.onInput();
    return 0;
  }
  switch (message) {
    case WM_PAINT:
      paint();
      return 0;
    case WM_ERASEBKGND:
      return TRUE;  // the picture covers all
    case WM_SETCURSOR:
      SetCursor(nullptr);
      return TRUE;
    case WM_MOUSEACTIVATE:
      return MA_NOACTIVATE;
    case WM_DPICHANGED:
      return 0;  // the area is told in pixels
    case WM_DISPLAYCHANGE:
      putBack();
      return 0;
    case WM_CLOSE:
      events_.onEnd();
      return 0;
    case WM_QUERYENDSESSION:
      events_.onEnd();
      return TRUE;
    case WM_ENDSESSION:
      events_.onEnd();
      return 0;
    case kPosted:
      if (onPosted_) onPosted_();
      return 0;
    default:
      return DefWindowProcW(window_, message, wParam, lParam);
  }
}

void SaverWindow::paint() {
  PAINTSTRUCT painting{};
  const HDC dc = BeginPaint(window_, &painting);
  const RECT& part = painting.rcPaint;
  BitBlt(dc, part.left, part.top, part.right - part.left, part.bottom - part.top, canvas_,
         part.left, part.top, SRCCOPY);
  EndPaint(window_, &painting);
}

}  // namespace tessivo::ssp
