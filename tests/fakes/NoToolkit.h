#pragma once

#include <functional>
#include <utility>

#include "ui/Form.h"

namespace tessivo {

/// Opens forms without windows: a form is what its models say. What the user does with the next
/// dialogs is said beforehand; one that nobody answers is closed by its close box.
struct NoToolkit : ui::Toolkit {
  void open(ui::Form& form) override { form.onResize.raise(); }
  void showModal(ui::Form& dialog) override {
    open(dialog);
    dialog.show();
    ++dialogs;
    if (whenModal) whenModal(dialog);
    if (dialog.visible()) dialog.close();
  }
  std::function<void(ui::Form&)> whenModal;
  int dialogs = 0;
};

}  // namespace tessivo
