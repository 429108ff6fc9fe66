#pragma once

#include <filesystem>

namespace tessivo {

/// From now on a crash of the process, of an engine's library mostly, leaves a line in the log at
/// `logPath`: what happened, where, in which module. Then the system's screen saver is
/// switched on again, which the program had switched off, and the process ends without a dialog,
/// with the crash's code. Nothing is saved: what is in memory cannot be trusted any more. For the
/// life of the process.
void noteCrashes(const std::filesystem::path& logPath);

}  // namespace tessivo
