#pragma once

#include "ui/Captioned.h"

namespace tessivo::ui {

/// A line of text in a frame; the caption is its text. `type` is what the user does.
class TextBox : public Captioned {
 public:
  TextBox(Container* parent, std::string name, bool readOnly)
      : Captioned(parent, std::move(name), ""), readOnly_(readOnly) {}
  bool readOnly() const { return readOnly_; }
  void type(std::string text) {
    if (readOnly_ || !enabled()) return;
    setCaption(std::move(text));
    onChange.raise();
  }
  void accept(ControlVisitor& visitor) override;
  Signal<> onChange;

 private:
  bool readOnly_;
};

}  // namespace tessivo::ui
