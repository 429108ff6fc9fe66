#pragma once

#include "base/Geometry.h"

namespace tessivo {

/// The mouse pointer.
class Pointer {
 public:
  virtual ~Pointer() = default;
  /// Where it is, in pixels of the virtual screen.
  virtual Point position() const = 0;
};

}  // namespace tessivo
