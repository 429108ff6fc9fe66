#pragma once

#include "platform/Log.h"
#include "platform/WindowProcedures.h"

namespace tessivo {

/// The procedures of real windows (`GWLP_WNDPROC`).
class Win32WindowProcedures : public WindowProcedures {
 public:
  explicit Win32WindowProcedures(Log& log) : log_(log) {}

  std::uintptr_t replace(WindowHandle window, Filter& filter) override;
  void restore(WindowHandle window, std::uintptr_t previous) override;

 private:
  Log& log_;
};

}  // namespace tessivo
