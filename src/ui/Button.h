#pragma once

#include "ui/Captioned.h"

namespace tessivo::ui {

/// A push button. A disabled one cannot be clicked. An "&" in the caption marks the letter that
/// clicks it together with Alt.
class Button : public Captioned {
 public:
  using Captioned::Captioned;
  /// The picture before the caption: the number of an icon among the program's resources; 0: none.
  int icon() const { return icon_; }
  void setIcon(int resource) {
    if (icon_ == resource) return;
    icon_ = resource;
    changed(Aspect::items);
  }
  void click() override {
    if (enabled()) Control::click();
  }
  void accept(ControlVisitor& visitor) override;

 private:
  int icon_ = 0;
};

}  // namespace tessivo::ui
