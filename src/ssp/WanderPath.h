#pragma once

#include <cstdint>

#include "base/Geometry.h"
#include "ssp/Size.h"

namespace tessivo::ssp {

/// The way of a block that must not burn into the screen: slowly from side to side, a little lower
/// each time, at the bottom up again, so that over time every point of the area has been under it.
/// It never leaves the area and never stands still, unless the block is as large as the area.
/// A block that is larger than the area stays at its upper left corner.
class WanderPath {
 public:
  static constexpr std::int32_t kStep = 4;  ///< pixels sideways

  /// Begins in the upper left corner.
  WanderPath(Size area, Size block);

  /// The block has another size; it stays where it is, as far as the area allows.
  void setBlock(Size block);
  /// The block's upper left corner, in pixels of the area.
  Point position() const;
  void advance();

 private:
  Size area_;
  Size block_;
  Size room_;  ///< how far the corner can go
  std::int32_t x_ = 0;
  double y_ = 0;
  bool rightward_ = true;
  bool downward_ = true;
  double stepDown_ = 0;
  int turnsToWait_;  ///< sideways, until it leaves the top or the bottom
};

}  // namespace tessivo::ssp
