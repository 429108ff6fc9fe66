#pragma once

#include "ui/CheckBox.h"
#include "ui/win32/ControlWindow.h"

namespace tessivo::ui {

/// A system check box. It does not flip by itself: the model does, and the box follows.
class Win32CheckBox final : public ControlPeer<> {
 public:
  Win32CheckBox(CheckBox& model, std::shared_ptr<FormContext> context);
  void apply(Aspect aspect) override;

 protected:
  void onCommand(WORD code) override;

 private:
  CheckBox& model_;
};

}  // namespace tessivo::ui
