#pragma once

#include <cstdint>

#include "platform/Displays.h"

namespace tessivo {

/// What it takes to type at another window.
class KeyPosting {
 public:
  virtual ~KeyPosting() = default;
  /// The keyboard's scan code of a virtual-key code; 0 when it has none.
  virtual std::uint32_t scanCodeOf(std::uint32_t virtualKey) const = 0;
  /// Puts a message into the window's queue.
  virtual void post(WindowHandle window, std::uint32_t message, std::uint32_t virtualKey,
                    std::int32_t keyData) = 0;
};

}  // namespace tessivo
