#pragma once

#include "ui/Captioned.h"

namespace tessivo::ui {

/// A box with a tick. `setChecked` is silent; `click` flips it and raises `onClick`.
class CheckBox : public Captioned {
 public:
  using Captioned::Captioned;
  bool checked() const { return checked_; }
  void setChecked(bool checked) {
    if (checked_ == checked) return;
    checked_ = checked;
    changed(Aspect::value);
  }
  void click() override {
    if (!enabled()) return;
    setChecked(!checked_);
    Control::click();
  }
  void accept(ControlVisitor& visitor) override;

 private:
  bool checked_ = false;
};

}  // namespace tessivo::ui
