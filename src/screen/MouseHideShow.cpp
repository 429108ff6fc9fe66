#include "screen/MouseHideShow.h"

#include <cstdlib>
#include <optional>

#include "base/In32Bits.h"
#include "base/Text.h"

namespace tessivo {
namespace {

constexpr std::int32_t kPollIntervalMs = 300;
/// No program moves the display counter further; one that does not move at all must not hang us.
constexpr int kMostCounterSteps = 1000;

/// Both edges included; nothing when an edge lies outside 32 bits.
std::optional<bool> contains(const PlayArea& area, Point point) {
  const auto right = in32Bits(std::int64_t{area.lngLeft} + area.lngWidth);
  const auto bottom = in32Bits(std::int64_t{area.lngTop} + area.lngHeight);
  if (!right || !bottom) return std::nullopt;
  return area.lngLeft <= point.x && point.x <= *right && area.lngTop <= point.y &&
         point.y <= *bottom && area.boolAreaValid;
}

}  // namespace

MouseHideShow::MouseHideShow(const MouseHideServices& services)
    : services_(services), m_objTC_(services.timers) {
  m_objTC_.lngInterval(kPollIntervalMs);
  m_objTC_.ItsTime.listen([this] { tick(); });
}

void MouseHideShow::boolEnabled(bool enabled) {
  if (enabled == boolEnabled_) return;
  boolEnabled_ = enabled;
  showPointer();
  hidden_ = false;
  lastActivity_ = -1;
  m_objTC_.boolEnabled(false);
  if (!enabled) return;
  m_objTC_.lngInterval(kPollIntervalMs);
  m_objTC_.boolEnabled(true);
}

/// A sum or product outside 32 bits ends the tick without effect.
void MouseHideShow::tick() {
  const Point position = services_.pointer.position();
  const std::int32_t now = services_.clock.now().msOfDay;
  if (position != lastPoint_) {
    lastActivity_ = now;
    lastPoint_ = position;
    if (hidden_) {
      hidden_ = false;
      showPointer();
    }
    return;
  }
  const auto restMs = in32Bits(std::int64_t{lngBeforeHideMouseSecondNum_} * 1000);
  // Across midnight the difference is a large one, and the pointer may hide at once.
  if (restMs && std::abs(now - lastActivity_) > *restMs) hideAt(position, now);
}

/// The pointer has rested: hides it if it is over the picture, else begins a new rest.
void MouseHideShow::hideAt(Point position, std::int32_t now) {
  PlayArea area;
  tellMePlayArea.raise(area);
  const auto inside = contains(area, position);
  if (!inside || (*inside && hidden_)) return;
  if (*inside && isOverWindow(position, area.strWinCaption)) {
    hidden_ = true;
    hidePointer();
  } else {
    lastActivity_ = now;
  }
}

/// Whether a parent of the window under the point has that title. The window itself does not count.
bool MouseHideShow::isOverWindow(Point position, const std::string& caption) const {
  if (caption.empty()) return false;
  const std::string wanted = toUpper(caption);
  const DesktopWindows& windows = services_.windows;
  WindowHandle window = windows.parentOf(windows.under(position));
  while (window != 0 && toUpper(windows.titleOf(window)) != wanted) {
    window = windows.parentOf(window);
  }
  return window != 0;
}

// The counter is everybody's: whatever others did to it, one call leaves the pointer hidden or
// shown.
void MouseHideShow::hidePointer() {
  for (int i = 0; i < kMostCounterSteps; ++i) {
    if (services_.pointer.changeDisplayCount(false) < 0) return;
  }
}

void MouseHideShow::showPointer() {
  for (int i = 0; i < kMostCounterSteps; ++i) {
    if (services_.pointer.changeDisplayCount(true) >= 0) return;
  }
}

}  // namespace tessivo
