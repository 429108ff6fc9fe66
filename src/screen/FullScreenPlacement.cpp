#include "screen/FullScreenPlacement.h"

#include "base/Twips.h"

namespace tessivo {

void showTitleBar(ui::Form& form, bool show) {
  const Rect outer = form.windowRect();
  std::uint32_t style = form.frameStyle();
  if (show) {
    if (form.controlBox()) style |= ui::frame::kSystemMenu;
    if (form.maxButton()) style |= ui::frame::kMaximiseBox;
    if (form.minButton()) style |= ui::frame::kMinimiseBox;
    if (!form.caption().empty()) style |= ui::frame::kCaption;
    style |= ui::frame::kSizingFrame;
  } else {
    style &= ~ui::frame::kAll;
  }
  const auto inner = form.twipsPerPixel();
  const Rect placed{outer.left, outer.top, toPixels(form.scaleWidth(), inner.x),
                    toPixels(form.scaleHeight(), inner.y)};
  form.setFrameStyle(style);
  form.setWindowPos(placed);
}

void FullScreenPlacement::boolMaxSize(bool maxSize) {
  if (maxSize_ == maxSize) return;
  maxSize_ = maxSize;
  maxSize ? enter() : leave();
}

void FullScreenPlacement::enter() {
  if (form_.windowState() != ui::WindowState::normal) {
    form_.setWindowState(ui::WindowState::normal);
  }
  const auto twips = form_.twipsPerPixel();
  normal_.top = toPixels(form_.top(), twips.y);
  normal_.left = toPixels(form_.left(), twips.y);  // by the vertical factor, kept so
  normal_.width = toPixels(form_.width(), twips.x);
  normal_.height = toPixels(form_.height(), twips.y);
  showTitleBar(form_, false);
  place(max_);
  covered_ = max_;
  form_.setTopmost(true);
}

void FullScreenPlacement::leave() {
  form_.setTopmost(false);
  form_.setWindowState(ui::WindowState::normal);
  showTitleBar(form_, true);
  place(normal_);
}

void FullScreenPlacement::hold(const Displays& displays) {
  if (!maxSize_ || form_.windowState() != ui::WindowState::normal) return;
  if (form_.windowRect() == covered_) return;
  for (const MonitorHandle monitor : displays.enumerate()) {
    const auto info = displays.info(monitor);
    if (info && info->monitor == covered_) return place(covered_);
  }
}

void FullScreenPlacement::place(const Rect& pixels) {
  const auto twips = form_.twipsPerPixel();
  form_.setTop(toTwips(pixels.top, twips.y));
  form_.setLeft(toTwips(pixels.left, twips.x));
  form_.setWidth(toTwips(pixels.width, twips.x));
  form_.setHeight(toTwips(pixels.height, twips.y));
}

}  // namespace tessivo
