#pragma once

#include <string>
#include <vector>

#include "platform/Shell.h"

namespace tessivo {

/// Opens nothing.
struct FakeShell : Shell {
  void open(WindowHandle owner, const std::string& file, const std::string& parameters) override {
    lastOwner = owner;
    opened.push_back(file + "|" + parameters);
  }

  std::vector<std::string> opened;  ///< "file|parameters"
  WindowHandle lastOwner = 0;
};

}  // namespace tessivo
