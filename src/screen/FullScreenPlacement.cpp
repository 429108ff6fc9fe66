#include "screen/FullScreenPlacement.h"

#include <algorithm>
#include <utility>

#include "base/Rounding.h"
#include "base/Twips.h"

namespace tessivo {
namespace {

std::vector<DisplayInfo> monitorsOf(const Displays& displays) {
  std::vector<DisplayInfo> monitors;
  for (const MonitorHandle monitor : displays.enumerate()) {
    if (auto info = displays.info(monitor)) monitors.push_back(std::move(*info));
  }
  return monitors;
}

std::set<std::string> namesOf(const std::vector<DisplayInfo>& monitors) {
  std::set<std::string> names;
  for (const DisplayInfo& monitor : monitors) names.insert(monitor.name);
  return names;
}

bool touch(const Rect& a, const Rect& b) {
  return a.left < b.left + b.width && b.left < a.left + a.width && a.top < b.top + b.height &&
         b.top < a.top + a.height;
}

bool isSeen(const Rect& window, const std::vector<DisplayInfo>& monitors) {
  return std::ranges::any_of(
      monitors, [&](const DisplayInfo& monitor) { return touch(window, monitor.monitor); });
}

/// The placement where it can be seen, else the middle of the primary monitor.
Rect seen(const Rect& placement, const std::vector<DisplayInfo>& monitors) {
  if (isSeen(placement, monitors)) return placement;
  const auto primary = std::ranges::find_if(monitors, &DisplayInfo::isPrimary);
  return middleOf((primary == monitors.end() ? monitors.front() : *primary).monitor);
}

}  // namespace

Rect middleOf(const Rect& primary) {
  const auto rounded = [](double pixels) { return roundedToInt32(pixels).value_or(0); };
  return {primary.left + rounded(primary.width / 8.0), primary.top + rounded(primary.height / 8.0),
          rounded(primary.width * 3 / 4.0), rounded(primary.height * 3 / 4.0)};
}

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
  coveredName_.clear();
  names_.clear();
  places_.clear();
  form_.setTopmost(true);
}

void FullScreenPlacement::leave() {
  form_.setTopmost(false);
  form_.setWindowState(ui::WindowState::normal);
  showTitleBar(form_, true);
  place(normal_);
}

void FullScreenPlacement::hold(const Displays& displays) {
  if (form_.windowState() != ui::WindowState::normal) return;
  const std::vector<DisplayInfo> monitors = monitorsOf(displays);
  if (monitors.empty()) return;  // the session is somewhere else
  maxSize_ ? holdOver(monitors) : holdVisible(monitors);
}

/// The monitor keeps its name when it moves or changes its size, and its place when it is plugged
/// in again under another name. Names are given anew only when a monitor has come or gone: as long
/// as they are the same ones, the name counts first, which tells monitors that have changed places.
/// The place is the one among these monitors: without the primary one, all others have another.
void FullScreenPlacement::holdOver(const std::vector<DisplayInfo>& monitors) {
  const std::set<std::string> names = namesOf(monitors);
  const auto known = places_.find(names);
  const Rect& was = known == places_.end() ? covered_ : known->second;
  const auto byPlace = std::ranges::find(monitors, was, &DisplayInfo::monitor);
  const auto byName = std::ranges::find(monitors, coveredName_, &DisplayInfo::name);
  const bool sameOnes = std::exchange(names_, names) == names;
  auto monitor = sameOnes ? byName : byPlace;
  if (monitor == monitors.end()) monitor = sameOnes ? byPlace : byName;
  if (monitor != monitors.end()) {
    covered_ = monitor->monitor;
    coveredName_ = monitor->name;
    places_[names] = covered_;
  }
  const Rect wanted = monitor == monitors.end() ? seen(normal_, monitors) : monitor->monitor;
  if (form_.windowRect() != wanted) place(wanted);
}

void FullScreenPlacement::holdVisible(const std::vector<DisplayInfo>& monitors) {
  const Rect window = form_.windowRect();
  if (window.width <= 0 || window.height <= 0) return;
  if (!isSeen(window, monitors)) place(seen(window, monitors));
}

void FullScreenPlacement::place(const Rect& pixels) {
  const auto twips = form_.twipsPerPixel();
  form_.setTop(toTwips(pixels.top, twips.y));
  form_.setLeft(toTwips(pixels.left, twips.x));
  form_.setWidth(toTwips(pixels.width, twips.x));
  form_.setHeight(toTwips(pixels.height, twips.y));
}

}  // namespace tessivo
