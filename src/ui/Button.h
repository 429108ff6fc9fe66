#pragma once

#include "ui/Captioned.h"

namespace tessivo::ui {

/// A push button. A disabled one cannot be clicked.
class Button : public Captioned {
 public:
  using Captioned::Captioned;
  void click() override {
    if (enabled()) Control::click();
  }
  void accept(ControlVisitor& visitor) override;
};

}  // namespace tessivo::ui
