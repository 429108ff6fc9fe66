#pragma once

#include "ui/Captioned.h"

namespace tessivo::ui {

enum class Alignment { left, right, centre };

/// A line of text that the user cannot change.
class Label : public Captioned {
 public:
  using Captioned::Captioned;
  Alignment alignment() const { return alignment_; }
  /// Before the form is opened.
  void setAlignment(Alignment alignment) { alignment_ = alignment; }
  bool focusable() const override { return false; }
  void accept(ControlVisitor& visitor) override;

 private:
  Alignment alignment_ = Alignment::left;
};

}  // namespace tessivo::ui
