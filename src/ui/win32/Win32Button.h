#pragma once

#include "ui/Button.h"
#include "ui/win32/ControlWindow.h"

namespace tessivo::ui {

/// A system push button.
class Win32Button : public ControlPeer<> {
 public:
  Win32Button(Button& model, std::shared_ptr<FormContext> context);
  void apply(Aspect aspect) override;

 protected:
  void onCommand(WORD code) override;

 private:
  Button& model_;
};

}  // namespace tessivo::ui
