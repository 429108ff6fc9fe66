#pragma once

#include <string>
#include <string_view>

namespace tessivo {

/// What a path lies on, in upper case: "C:" for a drive, "\\SERVER\SHARE" for a network share, ""
/// for a path that begins with neither. The prefix that lifts the limits (`\\?\`) is no part of it.
std::string rootOf(std::string_view path);

}  // namespace tessivo
