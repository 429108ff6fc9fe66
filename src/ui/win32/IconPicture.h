#pragma once

#include "platform/win32/Gdi.h"

namespace tessivo::ui {

/// An icon of the program's resources in that size (pixels); nothing for number 0 or a missing one.
UniqueIcon loadIcon(int resource, int side);

}  // namespace tessivo::ui
