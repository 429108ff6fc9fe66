#pragma once

#include "platform/Log.h"
#include "platform/WindowProcedures.h"

namespace tessivo {

/// The procedures of real windows (`GWLP_WNDPROC`). Ending the object ends what the filter hears,
/// also of windows that have not got their procedure back: those answer as the system does.
class Win32WindowProcedures final : public WindowProcedures {
 public:
  explicit Win32WindowProcedures(Log& log) : log_(log) {}
  ~Win32WindowProcedures() override;
  Win32WindowProcedures(const Win32WindowProcedures&) = delete;
  Win32WindowProcedures& operator=(const Win32WindowProcedures&) = delete;

  std::uintptr_t replace(WindowHandle window, Filter& filter) override;
  void restore(WindowHandle window, std::uintptr_t previous) override;

 private:
  Log& log_;
};

}  // namespace tessivo
