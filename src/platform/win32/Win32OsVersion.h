#pragma once

#include "platform/OsVersion.h"

namespace tessivo {

/// What the system answers this program, which may be less than it is: newer systems answer
/// programs that do not name them as an older one would.
OsVersion win32OsVersion();

}  // namespace tessivo
