#pragma once

#include "ui/ComboBox.h"
#include "ui/win32/ControlWindow.h"

namespace tessivo::ui {

/// A system drop-down list.
class Win32ComboBox final : public ControlPeer<> {
 public:
  Win32ComboBox(ComboBox& model, std::shared_ptr<FormContext> context);
  void apply(Aspect aspect) override;

 protected:
  void onCommand(WORD code) override;
  std::int32_t windowHeight(std::int32_t height) const override;

 private:
  void addNewItems();

  ComboBox& model_;
};

}  // namespace tessivo::ui
