#pragma once

#include <string>

#include "platform/Shell.h"
#include "ui/Form.h"

namespace tessivo {

/// Opens the help page as the user's desktop does. When nothing opens pages there, a notice over
/// `owner` says where the page lies.
void openHelpPage(Shell& shell, ui::Toolkit& toolkit, ui::Form& owner, const std::string& page);

}  // namespace tessivo
