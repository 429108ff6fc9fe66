#pragma once

#include "ui/Control.h"

namespace tessivo::ui {

/// An area that holds other controls (a page, a panel over the picture), shows a picture of its own
/// and may have a border.
class PictureBox : public Container {
 public:
  using Container::Container;
  bool border() const { return border_; }
  void setBorder(bool border) {
    if (border_ == border) return;
    border_ = border;
    changed(Aspect::items);
  }
  /// The picture: the number of an icon among the program's resources; 0: none.
  int icon() const { return icon_; }
  void setIcon(int resource) {
    if (icon_ == resource) return;
    icon_ = resource;
    changed(Aspect::items);
  }
  /// Before the form is opened: whether Tab leads here; the space bar and Enter click then.
  void setTakesKeyboard(bool takes) { takesKeyboard_ = takes; }
  bool focusable() const override { return takesKeyboard_; }
  void accept(ControlVisitor& visitor) override;

 private:
  bool takesKeyboard_ = false;
  bool border_ = false;
  int icon_ = 0;
};

}  // namespace tessivo::ui
