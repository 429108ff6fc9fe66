#pragma once

#include "ui/Control.h"

namespace tessivo::ui {

/// An area that holds other controls (a page, a panel over the picture) and may have a border.
class PictureBox : public Container {
 public:
  using Container::Container;
  bool border() const { return border_; }
  void setBorder(bool border) {
    if (border_ == border) return;
    border_ = border;
    changed(Aspect::items);
  }
  void accept(ControlVisitor& visitor) override;

 private:
  bool border_ = false;
};

}  // namespace tessivo::ui
