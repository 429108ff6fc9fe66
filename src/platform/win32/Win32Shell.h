#pragma once

#include "platform/Log.h"
#include "platform/Shell.h"

namespace tessivo {

/// The Windows shell, with the verb "open", an ordinary window and no folder given.
class Win32Shell : public Shell {
 public:
  explicit Win32Shell(Log& log) : log_(log) {}

  void open(WindowHandle owner, const std::string& file, const std::string& parameters) override;
  void associationsChanged() override;

 private:
  Log& log_;
};

}  // namespace tessivo
