#pragma once

#include <windows.h>

#include <optional>

#include "ui/Menu.h"

namespace tessivo::ui {

/// Shows the menu at that point of the screen (nothing: at the pointer) until the user has chosen
/// or gone elsewhere. Returns the entry chosen; nothing when there was none, when the entry has
/// been removed meanwhile or when the form has gone. The form comes to the front only when it
/// `activates`.
MenuItem* runPopupMenu(HWND form, bool activates, MenuItem& menu,
                       std::optional<POINT> screen = std::nullopt);

}  // namespace tessivo::ui
