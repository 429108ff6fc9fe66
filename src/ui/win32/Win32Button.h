#pragma once

#include "ui/Button.h"
#include "ui/win32/ControlWindow.h"
#include "ui/win32/IconPicture.h"

namespace tessivo::ui {

/// A system push button, with a picture before its text where it has one.
class Win32Button final : public ControlPeer<> {
 public:
  Win32Button(Button& model, std::shared_ptr<FormContext> context);
  void apply(Aspect aspect) override;

 protected:
  void onCommand(WORD code) override;

 private:
  void loadPicture();
  void placePicture();
  int pixels(std::int32_t twips) const;
  int textWidth() const;

  Button& model_;
  UniqueImageList picture_;
};

}  // namespace tessivo::ui
