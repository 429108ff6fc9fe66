#pragma once

#include <windows.h>

#include "ui/Menu.h"

namespace tessivo::ui {

/// Shows the menu at the pointer until the user has chosen or gone elsewhere. Returns the entry
/// chosen; nothing when there was none, when the entry has been removed meanwhile or when the owner
/// window has gone.
MenuItem* runPopupMenu(HWND owner, MenuItem& menu);

}  // namespace tessivo::ui
