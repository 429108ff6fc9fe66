#pragma once

#include "ui/Captioned.h"

namespace tessivo::ui {

/// A line of text in a frame; the caption is its text. `type` is what the user does.
class TextBox : public Captioned {
 public:
  TextBox(Container* parent, std::string name, bool readOnly)
      : Captioned(parent, std::move(name), ""), readOnly_(readOnly) {}
  bool readOnly() const { return readOnly_; }
  /// Before the form is opened; without a border it looks like a label whose text can be copied.
  bool border() const { return border_; }
  void setBorder(bool border) { border_ = border; }
  void type(std::string text) {
    if (readOnly_ || !enabled()) return;
    setCaption(std::move(text));
    onChange.raise();
  }
  void accept(ControlVisitor& visitor) override;
  Signal<> onChange;

 private:
  bool readOnly_;
  bool border_ = true;
};

}  // namespace tessivo::ui
