#pragma once

#include "ui/Form.h"

namespace tessivo {

/// Opens forms without windows: a form is what its models say.
struct NoToolkit : ui::Toolkit {
  void open(ui::Form& form) override { form.onResize.raise(); }
};

}  // namespace tessivo
