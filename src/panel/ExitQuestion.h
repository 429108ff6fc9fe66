#pragma once

#include "ui/Form.h"

namespace tessivo {

/// Asks over the owner whether the user really wants to leave the program. Enter and Esc mean no.
bool confirmsExit(ui::Toolkit& toolkit, ui::Form& owner);

}  // namespace tessivo
