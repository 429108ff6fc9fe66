#pragma once

#include "base/Geometry.h"
#include "platform/Displays.h"

namespace tessivo::ui {

/// A part of a control's state that its peer has to carry over to the real control.
enum class Aspect {
  bounds,
  visible,
  enabled,
  caption,  ///< caption or text
  toolTip,
  colours,
  value,  ///< checked, slider value, chosen entry
  range,
  items,    ///< entries, columns or pictures as a whole
  pointer,  ///< shape of the mouse pointer
  scale,    ///< how many pixels a twip takes, and with it the size of fonts and pictures
};

/// The real control behind a model. The program changes the model, the model tells its peer; what
/// the user does at the real control, the peer carries out on the model by the model's user verbs.
/// The model is the truth: a peer reads it and keeps no copy.
class Peer {
 public:
  virtual ~Peer() = default;
  virtual void changed(Aspect aspect) = 0;
  virtual void bringToFront() = 0;
  virtual void setFocus() = 0;
  virtual void repaint() = 0;
  virtual WindowHandle nativeHandle() const = 0;
};

}  // namespace tessivo::ui
