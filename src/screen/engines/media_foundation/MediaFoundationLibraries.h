#pragma once

#include "platform/Log.h"

namespace tessivo {

/// Whether Windows has Media Foundation, which its editions N and its servers have only as a part
/// that is added. The program starts without: the functions of Media Foundation are looked for
/// when they are first called, in the system's folder alone, and fail like any other when they are
/// not there. The log is told what is missing.
bool mediaFoundationIsThere(Log& log);

}  // namespace tessivo
