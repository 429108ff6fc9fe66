#pragma once

#include <cstdint>

#include "base/Geometry.h"
#include "platform/Displays.h"
#include "ui/Form.h"

namespace tessivo {

/// Adds or removes the frame of a form (caption, system menu, sizing frame, boxes); the outer size
/// becomes the former inner size.
void showTitleBar(ui::Form& form, bool show);

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

  /// Moves a full-screen window back over its monitor when something has moved it, as long as that
  /// monitor is there.
  void hold(const Displays& displays);

 private:
  void enter();
  void leave();
  void place(const Rect& pixels);

  ui::Form& form_;
  bool maxSize_ = false;
  Rect max_;
  Rect covered_;  ///< what the present full screen covers; `max_` may be the next one's
  Rect normal_;
};

}  // namespace tessivo
