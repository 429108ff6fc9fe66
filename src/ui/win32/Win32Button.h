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
  void showPicture();

  Button& model_;
  UniqueIcon picture_;
};

}  // namespace tessivo::ui
