#pragma once

#include "ui/Control.h"

namespace tessivo::ui {

/// A control with one text.
class Captioned : public Control {
 public:
  Captioned(Container* parent, std::string name, std::string caption)
      : Control(parent, std::move(name)), caption_(std::move(caption)) {}

  const std::string& caption() const { return caption_; }
  void setCaption(std::string caption) {
    if (caption_ == caption) return;
    caption_ = std::move(caption);
    changed(Aspect::caption);
  }

 private:
  std::string caption_;
};

}  // namespace tessivo::ui
