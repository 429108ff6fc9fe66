#include "ui/win32/Win32Slider.h"

#include <windowsx.h>

#include <algorithm>
#include <utility>

namespace tessivo::ui {

Win32Slider::Win32Slider(Slider& model, std::shared_ptr<FormContext> context)
    : ControlPeer(model, std::move(context)), model_(model) {
  create(TRACKBAR_CLASSW, "", TBS_HORZ | TBS_NOTICKS);
  apply(Aspect::range);
}

void Win32Slider::apply(Aspect aspect) {
  switch (aspect) {
    case Aspect::range:
      send(TBM_SETRANGEMIN, FALSE, model_.min());
      send(TBM_SETRANGEMAX, TRUE, model_.max());
      [[fallthrough]];
    case Aspect::value:
      if (send(TBM_GETPOS) != model_.value()) send(TBM_SETPOS, TRUE, model_.value());
      return;
    default:
      return ControlWindow::apply(aspect);
  }
}

LRESULT Win32Slider::handle(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == WM_LBUTTONDOWN) return press(window, wParam, lParam);
  const auto alive = input().alive();
  const LRESULT result = ControlWindow::handle(window, message, wParam, lParam);
  // The wheel moves the thumb at one go; not every system says so.
  if (*alive && message == WM_MOUSEWHEEL) model_.commit();
  return result;
}

/// Brings the thumb under the pointer first, so that the system begins to drag it.
LRESULT Win32Slider::press(HWND window, WPARAM wParam, LPARAM lParam) {
  const auto alive = input().alive();
  input().before(window, WM_LBUTTONDOWN, wParam, lParam);
  POINT point{GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)};
  RECT at{};
  if (*alive) at = thumb();
  if (*alive && !PtInRect(&at, point)) {
    model_.drag(valueAt(point.x));
    if (*alive) at = thumb();
    point = {(at.left + at.right) / 2, (at.top + at.bottom) / 2};
  }
  if (!*alive) return 0;
  return DefSubclassProc(window, WM_LBUTTONDOWN, wParam, MAKELPARAM(point.x, point.y));
}

RECT Win32Slider::thumb() const {
  RECT at{};
  send(TBM_GETTHUMBRECT, 0, reinterpret_cast<LPARAM>(&at));
  return at;
}

/// The value with the thumb's middle at `x`.
std::int32_t Win32Slider::valueAt(LONG x) const {
  RECT channel{};
  send(TBM_GETCHANNELRECT, 0, reinterpret_cast<LPARAM>(&channel));
  const RECT at = thumb();
  const LONG half = (at.right - at.left) / 2;
  const LONG way = channel.right - channel.left - 2 * half;
  if (way <= 0) return model_.value();
  const double part = static_cast<double>(x - channel.left - half) / way;
  const double range = static_cast<double>(model_.max()) - model_.min();
  return roundedToInt32(model_.min() + std::clamp(part, 0.0, 1.0) * range).value_or(model_.value());
}

void Win32Slider::onScroll(WORD code) {
  const auto alive = input().alive();
  model_.drag(static_cast<std::int32_t>(send(TBM_GETPOS)));
  if (*alive && code == TB_ENDTRACK) model_.commit();
}

}  // namespace tessivo::ui
