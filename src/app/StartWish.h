#pragma once

#include <string>

#include "base/Text.h"

namespace tessivo {

/// What the process was started for.
struct StartWish {
  bool convert = false;     ///< an Access database is to be taken over: "--convert", alone but for
                            ///< blanks, in any case
  std::string commandLine;  ///< for CommandLine, what is left
};

inline StartWish startWish(const std::string& arguments) {
  if (toUpper(trim(arguments)) == "--CONVERT") return {true, ""};
  return {false, arguments};
}

}  // namespace tessivo
