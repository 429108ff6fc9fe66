#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <vector>

#include "base/Signal.h"
#include "platform/DesktopWindows.h"
#include "platform/WindowProcedures.h"
#include "screen/RealPlayerSlot.h"

namespace tessivo {

/// The picture windows of the installed RealPlayer control whose mouse messages the program has
/// caught, with the procedures they had. There is one, and it lives as long as the program: a
/// window that was caught calls it until its procedure is back. Its operations cost as much as
/// there are windows caught, which are one or two.
class CaughtWindows : private WindowProcedures::Filter {
 public:
  CaughtWindows(const DesktopWindows& windows, WindowProcedures& procedures)
      : windows_(windows), procedures_(procedures) {}
  CaughtWindows(const CaughtWindows&) = delete;
  CaughtWindows& operator=(const CaughtWindows&) = delete;

  /// Catches a window of ours below RealPlayer's control, once; every other one is left alone.
  void catchWindow(WindowHandle window);
  /// Gives every caught window its procedure back, in the order in which they were caught, and
  /// catches none from now on.
  void giveBackAll();

  /// The handles in decimal, in the order in which they were caught.
  const std::vector<std::string>& handles() const { return handles_; }

  /// Raised inside the window's message handling.
  Signal<PictureMouse> pictureMouse;

 private:
  bool consume(WindowHandle window, WindowMessage message) override;
  std::uintptr_t previousProcedure(WindowHandle window) const override;
  void gone(WindowHandle window) override;
  bool isBelowRealPlayer(WindowHandle window) const;

  const DesktopWindows& windows_;
  WindowProcedures& procedures_;
  std::map<std::string, std::uintptr_t> previous_;  ///< by the handle in decimal and "H"
  std::vector<std::string> handles_;
  bool closed_ = false;
};

}  // namespace tessivo
