#pragma once

#include <string>

namespace tessivo {

/// Makes the installed RealPlayer control, as the playback window does but in a window that nobody
/// sees, gives it a source, and lets go of it. Returns why that failed, for the log; empty: the
/// control is there. The thread that calls it has COM initialised.
std::string whyRealPlayerFails();

}  // namespace tessivo
