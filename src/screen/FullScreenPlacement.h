#pragma once

#include <cstdint>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "base/Geometry.h"
#include "platform/Displays.h"
#include "ui/Form.h"

namespace tessivo {

/// Adds or removes the frame of a form (caption, system menu, sizing frame, boxes); the outer size
/// becomes the former inner size.
void showTitleBar(ui::Form& form, bool show);

/// Three quarters of the primary monitor, in its middle: where the window stands first, and where
/// its own place is on no monitor any more. Pixels.
Rect middleOf(const Rect& primary);

/// The two placements of the playback window: an ordinary captioned window, or borderless over one
/// whole monitor. The geometry is in pixels; full screen never uses an engine's own.
class FullScreenPlacement {
 public:
  explicit FullScreenPlacement(ui::Form& form) : form_(form) {}

  bool boolMaxSize() const { return maxSize_; }
  /// The switch. Nothing happens when the value is the present one, also when the target differs.
  void boolMaxSize(bool maxSize);

  /// The target monitor's rectangle, for the next switch to full screen.
  const Rect& maximum() const { return max_; }
  void setMaximum(const Rect& pixels) { max_ = pixels; }
  /// The normal placement: saved on entering full screen, restored on leaving it.
  const Rect& normal() const { return normal_; }
  void setNormal(const Rect& pixels) { normal_ = pixels; }

  /// Keeps the window where it is to be seen. In full screen that is over its monitor, also when
  /// something has moved the window or the monitor has another place or size now. While that
  /// monitor is unplugged it is the normal placement, without a frame; when the monitor is back the
  /// picture is, too. A window that is on no monitor goes to the middle of the primary one.
  void hold(const Displays& displays);

 private:
  void holdOver(const std::vector<DisplayInfo>& monitors);
  void holdVisible(const std::vector<DisplayInfo>& monitors);
  void enter();
  void leave();
  void place(const Rect& pixels);

  ui::Form& form_;
  bool maxSize_ = false;
  Rect max_;
  Rect covered_;  ///< where the monitor of the present full screen was seen last, at first `max_`
  std::string coveredName_;      ///< its name, once it has been seen
  std::set<std::string> names_;  ///< of all monitors, when they were looked at last
  /// Where that monitor was seen last, by the names of all that were there with it.
  std::map<std::set<std::string>, Rect> places_;
  Rect normal_;
};

}  // namespace tessivo
