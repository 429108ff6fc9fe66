#pragma once

#include <string>
#include <vector>

#include "platform/FileDialogs.h"

namespace tessivo {

/// What the dialog that adds files to the playlist asks the system for, modal over `owner`.
OpenFilesRequest addFilesRequest(WindowHandle owner);

/// The full paths in the dialog's answer, from index 1 on: the folder with each of several names,
/// or the one path. Empty when the one path names no file.
std::vector<std::string> chosenPaths(const std::string& answer);

}  // namespace tessivo
