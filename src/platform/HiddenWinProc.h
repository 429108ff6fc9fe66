#pragma once

#include <cstdint>
#include <span>

#include "platform/Displays.h"

namespace tessivo {

/// Replaces the procedure of the hidden tray form's window, for what other programs and the shell
/// send there. Every message, heard or not, goes on to the procedure before.
class HiddenWinProc {
 public:
  /// Called inside the window's message handling. Outlives the replacement.
  class Listener {
   public:
    virtual ~Listener() = default;
    /// Another program sent bytes under a number (`WM_COPYDATA`). The bytes are gone afterwards.
    virtual void copyData(std::uintptr_t number, std::span<const std::uint8_t> bytes) = 0;
    /// The shell has made its task bar anew ("TaskbarCreated").
    virtual void taskbarCreated() = 0;
  };

  virtual ~HiddenWinProc() = default;
  /// One window at a time; another one before it is given back first. Also programs with fewer
  /// rights may send to the window from here on.
  virtual void installHiddenWinProc(WindowHandle window, Listener& listener) = 0;
  /// Gives the window its procedure back; nothing when none is replaced.
  virtual void removeHiddenWinProc() = 0;
};

}  // namespace tessivo
