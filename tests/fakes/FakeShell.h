#pragma once

#include <string>
#include <vector>

#include "platform/Shell.h"

namespace tessivo {

/// Opens nothing, and says that it did unless told otherwise.
struct FakeShell : Shell {
  bool open(WindowHandle owner, const std::string& file, const std::string& parameters) override {
    lastOwner = owner;
    opened.push_back(file + "|" + parameters);
    return opens;
  }

  void associationsChanged() override { ++changes; }

  std::vector<std::string> opened;  ///< "file|parameters"
  WindowHandle lastOwner = 0;
  bool opens = true;
  int changes = 0;
};

}  // namespace tessivo
