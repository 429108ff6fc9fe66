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
    ui::Form* const owner = dialog.owner();
    open(dialog);
    if (owner) owner->setEnabled(false);
    dialog.show();
    ++dialogs;
    if (whenModal) whenModal(dialog);
    if (dialog.visible()) dialog.close();
    if (owner) owner->setEnabled(true);
  }
  std::function<void(ui::Form&)> whenModal;
  int dialogs = 0;
};

}  // namespace tessivo
