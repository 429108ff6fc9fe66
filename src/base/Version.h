#pragma once

#include "base/TessivoVersion.h"

namespace tessivo {

/// The program's version as the user sees it.
inline constexpr const char* kVersion = TESSIVO_VERSION;

}  // namespace tessivo
