#pragma once

#include <string_view>

namespace tessivo {

/// What follows the program's name in a command line, as the shell passed it, without the blanks
/// before it. The name is in quotes or ends at the first blank.
std::string_view argumentText(std::string_view commandLine);

}  // namespace tessivo
