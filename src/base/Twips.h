#pragma once

#include <cstdint>

#include "base/Rounding.h"

namespace tessivo {

/// How many twips (1/1440 inch) one pixel takes, per axis: 15 at 96 dpi, 10 at 144 dpi.
struct TwipsPerPixel {
  double x = 15;
  double y = 15;
};

inline TwipsPerPixel twipsPerPixelAt(double dpi) {
  return {1440.0 / dpi, 1440.0 / dpi};
}

/// Whole twips of so many pixels; a result that does not fit is clamped to 0 by the caller's range.
inline std::int32_t toTwips(std::int32_t pixels, double twipsPerPixel) {
  return roundedToInt32(pixels * twipsPerPixel).value_or(0);
}
/// Whole pixels of so many twips, a half to the even neighbour.
inline std::int32_t toPixels(std::int32_t twips, double twipsPerPixel) {
  return roundedToInt32(twips / twipsPerPixel).value_or(0);
}

}  // namespace tessivo
