#pragma once

#include <cstdint>
#include <span>
#include <string>

#include "platform/Displays.h"

namespace tessivo {

/// Calls another program's window, as a second instance calls the first.
class Messaging {
 public:
  virtual ~Messaging() = default;
  /// The top-level window with exactly this title, seen or not; 0 when there is none.
  virtual WindowHandle findTopLevel(const std::string& title) const = 0;
  /// Sends the bytes under a number (`WM_COPYDATA`) and waits until the receiver has dealt with
  /// them, yet not for ever for one that has stopped listening. The receiver may come to the front
  /// meanwhile. False when they did not get through.
  virtual bool sendCopyData(WindowHandle target, std::uintptr_t wParam, std::uintptr_t number,
                            std::span<const std::uint8_t> bytes) = 0;
  virtual void bringToForeground(WindowHandle window) = 0;
};

}  // namespace tessivo
