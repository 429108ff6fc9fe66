#pragma once

#include "platform/Log.h"
#include "platform/Shell.h"

namespace tessivo {

/// The Windows shell, with the verb "open", an ordinary window and no folder given. A page of the
/// disk with an anchor goes to the browser as an address, since the shell knows no anchors; where
/// pages are opened with something else than the browser, it is opened without.
class Win32Shell : public Shell {
 public:
  explicit Win32Shell(Log& log) : log_(log) {}

  bool open(WindowHandle owner, const std::string& file, const std::string& parameters) override;
  void associationsChanged() override;

 private:
  Log& log_;
};

}  // namespace tessivo
