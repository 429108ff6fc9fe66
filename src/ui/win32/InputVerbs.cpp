#include "ui/win32/InputVerbs.h"

#include <windowsx.h>

#include <array>
#include <utility>

namespace tessivo::ui {
namespace {

POINT pointOf(LPARAM position) {
  return {GET_X_LPARAM(position), GET_Y_LPARAM(position)};
}

MouseButton heldButton(WPARAM keys) {
  if (keys & MK_RBUTTON) return MouseButton::right;
  if (keys & MK_MBUTTON) return MouseButton::middle;
  return MouseButton::left;
}

bool isInside(HWND window, POINT point) {
  RECT area{};
  GetClientRect(window, &area);
  return PtInRect(&area, point);
}

unsigned bitOf(MouseButton button) {
  return static_cast<unsigned>(button);
}

}  // namespace

MouseEvent InputVerbs::eventAt(MouseButton button, POINT pixels) const {
  return {button, toTwips(pixels.x, twips_.x), toTwips(pixels.y, twips_.y)};
}

void InputVerbs::before(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_LBUTTONDOWN:
    case WM_LBUTTONDBLCLK:
      return press(window, MouseButton::left, lParam, message == WM_LBUTTONDBLCLK);
    case WM_RBUTTONDOWN:
    case WM_RBUTTONDBLCLK:
      return press(window, MouseButton::right, lParam, false);
    case WM_MBUTTONDOWN:
    case WM_MBUTTONDBLCLK:
      return press(window, MouseButton::middle, lParam, false);
    case WM_MOUSEMOVE:
      last_ = eventAt(heldButton(wParam), pointOf(lParam));
      return model_.mouseMove(last_);
    case WM_LBUTTONUP:
      pressed_ &= ~bitOf(MouseButton::left);
      return;
    case WM_RBUTTONUP:
      pressed_ &= ~bitOf(MouseButton::right);
      return;
    case WM_MBUTTONUP:
      pressed_ &= ~bitOf(MouseButton::middle);
      return;
    case WM_KEYDOWN:
      return model_.keyDown(static_cast<KeyCode>(wParam));
    default:
      return;
  }
}

void InputVerbs::after(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_LBUTTONUP:
      return release(window, MouseButton::left, lParam);
    case WM_RBUTTONUP:
      return release(window, MouseButton::right, lParam);
    case WM_MBUTTONUP:
      return release(window, MouseButton::middle, lParam);
    case WM_CAPTURECHANGED:
      if (reinterpret_cast<HWND>(lParam) != window) loseCapture();
      return;
    case WM_KEYUP:
      return model_.keyUp(static_cast<KeyCode>(wParam));
    case WM_SETFOCUS:
      return model_.gainFocus();
    case WM_KILLFOCUS:
      return model_.loseFocus();
    default:
      return;
  }
}

void InputVerbs::press(HWND window, MouseButton button, LPARAM position, bool isDouble) {
  const auto alive = alive_;
  pressed_ |= bitOf(button);
  if (button == MouseButton::left) clickPending_ = !isDouble;
  if (extras_.captures) SetCapture(window);
  last_ = eventAt(button, pointOf(position));
  model_.mouseDown(last_);
  if (*alive && isDouble && extras_.clicks) model_.doubleClick();
}

void InputVerbs::release(HWND window, MouseButton button, LPARAM position) {
  const auto alive = alive_;
  const POINT point = pointOf(position);
  const bool isClick = button == MouseButton::left && std::exchange(clickPending_, false) &&
                       extras_.clicks && isInside(window, point);
  if (extras_.captures && pressed_ == 0 && GetCapture() == window) ReleaseCapture();
  if (reports(button)) model_.mouseUp(eventAt(button, point));
  if (*alive && isClick) model_.click();
}

/// Another window took the pointer while a button was down; its release will not come here.
void InputVerbs::loseCapture() {
  const auto alive = alive_;
  const unsigned lost = std::exchange(pressed_, 0U);
  // A control that gives the pointer back because of the release has lost nothing.
  if (lost & bitOf(MouseButton::left)) clickPending_ = false;
  constexpr std::array kButtons{MouseButton::left, MouseButton::right, MouseButton::middle};
  for (const MouseButton button : kButtons) {
    if (!*alive) return;
    if ((lost & bitOf(button)) && reports(button)) model_.mouseUp({button, last_.x, last_.y});
  }
}

}  // namespace tessivo::ui
