#pragma once

#include <string>

namespace tessivo {

/// What the process was started for.
struct StartWish {
  bool convert = false;     ///< an Access database is to be taken over: "--convert", alone
  std::string commandLine;  ///< for CommandLine, what is left
};

inline StartWish startWish(const std::string& arguments) {
  if (arguments == "--convert") return {true, ""};
  return {false, arguments};
}

}  // namespace tessivo
