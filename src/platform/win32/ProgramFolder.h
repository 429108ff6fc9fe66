#pragma once

#include <string>

namespace tessivo {

/// The folder of the running executable, without a backslash at its end.
std::string programFolder();

/// The full path of the running executable.
std::string programPath();

/// What follows the program's name in the process's command line, as the shell passed it, without
/// the blanks before it.
std::string commandLineArguments();

/// The user's own folder for the program's files, made when it is not there; empty when the system
/// names none.
std::string localDataFolder();

/// The folder of the user's pictures; empty when the system names none.
std::string picturesFolder();

}  // namespace tessivo
