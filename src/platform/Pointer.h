#pragma once

#include "base/Geometry.h"

namespace tessivo {

/// The mouse pointer.
class Pointer {
 public:
  virtual ~Pointer() = default;
  /// Where it is, in pixels of the virtual screen.
  virtual Point position() const = 0;
  /// Moves the system's display counter up (`show`) or down by one and returns it. The pointer is
  /// seen over the program's windows while the counter is 0 or more.
  virtual int changeDisplayCount(bool show) = 0;
};

}  // namespace tessivo
