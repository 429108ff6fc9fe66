#include "screen/engines/embedded/EngineWindow.h"

#include <windowsx.h>

#include "platform/win32/Guarded.h"

namespace tessivo {
namespace {

constexpr wchar_t kClassName[] = L"TessivoEngineWindow";

void registerClass(WNDPROC procedure) {
  WNDCLASSEXW description{};
  description.cbSize = sizeof(description);
  description.style = CS_DBLCLKS;
  description.lpfnWndProc = procedure;
  description.hInstance = GetModuleHandleW(nullptr);
  description.hCursor = LoadCursorW(nullptr, IDC_ARROW);
  description.hbrBackground = static_cast<HBRUSH>(GetStockObject(BLACK_BRUSH));
  description.lpszClassName = kClassName;
  RegisterClassExW(&description);  // a second time it fails, and the first one stands
}

}  // namespace

EngineWindow::~EngineWindow() {
  if (window_) DestroyWindow(window_);
}

void EngineWindow::open(HWND parent) {
  registerClass(&EngineWindow::procedure);
  CreateWindowExW(0, kClassName, L"", WS_CHILD | WS_CLIPSIBLINGS | WS_CLIPCHILDREN, 0, 0, 0, 0,
                  parent, nullptr, GetModuleHandleW(nullptr), this);
}

bool EngineWindow::visible() const {
  return window_ && !hidesLater_ && (GetWindowLongPtrW(window_, GWL_STYLE) & WS_VISIBLE) != 0;
}

void EngineWindow::setVisible(bool visible) {
  hidesLater_ = false;
  if (!window_) return;
  SetWindowPos(
      window_, HWND_BOTTOM, 0, 0, 0, 0,
      SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE | (visible ? SWP_SHOWWINDOW : SWP_HIDEWINDOW));
}

void EngineWindow::hideNow() {
  if (hidesLater_) setVisible(false);
}

void EngineWindow::move(const Rect& pixels) {
  if (!window_) return;
  SetWindowPos(window_, nullptr, pixels.left, pixels.top, pixels.width, pixels.height,
               SWP_NOZORDER | SWP_NOACTIVATE);
}

void EngineWindow::startTimer(Timer timer, UINT ms) {
  if (window_) SetTimer(window_, static_cast<UINT_PTR>(timer), ms, nullptr);
}

void EngineWindow::stopTimer(Timer timer) {
  if (window_) KillTimer(window_, static_cast<UINT_PTR>(timer));
}

LRESULT CALLBACK EngineWindow::procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == WM_NCCREATE) {
    const auto* creation = reinterpret_cast<const CREATESTRUCTW*>(lParam);
    auto* self = static_cast<EngineWindow*>(creation->lpCreateParams);
    self->window_ = window;
    SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(self));
  }
  auto* self = reinterpret_cast<EngineWindow*>(GetWindowLongPtrW(window, GWLP_USERDATA));
  if (!self) return DefWindowProcW(window, message, wParam, lParam);
  if (message == WM_NCDESTROY) {
    SetWindowLongPtrW(window, GWLP_USERDATA, 0);
    self->window_ = nullptr;
    return DefWindowProcW(window, message, wParam, lParam);
  }
  LRESULT result = 0;
  guarded(self->log_, [&] { result = self->handle(message, wParam, lParam); });
  return result;
}

LRESULT EngineWindow::handle(UINT message, WPARAM wParam, LPARAM lParam) {
  const HWND window = window_;  // the owner may destroy this object in any of its calls
  if (message >= WM_APP && message <= WM_APP + static_cast<UINT>(EngineEvent::notify)) {
    owner_.onEngineEvent(static_cast<EngineEvent>(message - WM_APP), wParam,
                         static_cast<std::int32_t>(lParam));
    return 0;
  }
  if (message == WM_TIMER) {
    const auto timer = static_cast<Timer>(wParam);
    stopTimer(timer);
    owner_.onTimer(timer);
    return 0;
  }
  if (message == WM_SIZE) {
    owner_.onResized();
    return 0;
  }
  if (handleMouse(message, lParam)) return 0;
  return DefWindowProcW(window, message, wParam, lParam);
}

bool EngineWindow::handleMouse(UINT message, LPARAM lParam) {
  switch (message) {
    case WM_LBUTTONDOWN:
      press(Gesture::down, MouseButton::left);
      return true;
    case WM_RBUTTONDOWN:
      press(Gesture::down, MouseButton::right);
      return true;
    case WM_MBUTTONDOWN:
      press(Gesture::down, MouseButton::middle);
      return true;
    case WM_LBUTTONDBLCLK:
      press(Gesture::doubleClick, MouseButton::left);
      return true;
    case WM_RBUTTONDBLCLK:
      press(Gesture::doubleClick, MouseButton::right);
      return true;
    case WM_MBUTTONDBLCLK:
      press(Gesture::doubleClick, MouseButton::middle);
      return true;
    case WM_LBUTTONUP:
      release(MouseButton::left, lParam);
      return true;
    case WM_RBUTTONUP:
      release(MouseButton::right, lParam);
      return true;
    case WM_MBUTTONUP:
      release(MouseButton::middle, lParam);
      return true;
    case WM_MOUSEMOVE:
      return true;
    default:
      return false;
  }
}

void EngineWindow::press(Gesture gesture, MouseButton button) {
  SetCapture(window_);  // so that the release arrives wherever it happens
  owner_.onMouse(gesture, button, true);
}

void EngineWindow::release(MouseButton button, LPARAM point) {
  RECT client{};
  GetClientRect(window_, &client);
  const bool inside = PtInRect(&client, POINT{GET_X_LPARAM(point), GET_Y_LPARAM(point)}) != 0;
  if (GetCapture() == window_) ReleaseCapture();
  owner_.onMouse(Gesture::up, button, inside);
}

}  // namespace tessivo
