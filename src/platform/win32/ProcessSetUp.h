#pragma once

namespace tessivo {

/// What every program of ours does first. Libraries come from the system's folder and the program's
/// own, never from the current folder or the search path. Errors of the system (a drive without a
/// disk, a crash, a file that is missing) put no box of the system over an unattended screen.
void setUpProcess();

}  // namespace tessivo
