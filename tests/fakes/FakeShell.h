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

  void associationsChanged() override { ++changes; }

  std::vector<std::string> opened;  ///< "file|parameters"
  WindowHandle lastOwner = 0;
  int changes = 0;
};

}  // namespace tessivo
