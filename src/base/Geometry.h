#pragma once

#include <cstdint>

namespace tessivo {

/// A point in pixels of the virtual screen, unless a name says otherwise.
struct Point {
  std::int32_t x = 0;
  std::int32_t y = 0;
  friend bool operator==(const Point&, const Point&) = default;
};

/// A rectangle by its origin and its size. The unit (pixels or twips) is the holder's.
struct Rect {
  std::int32_t left = 0;
  std::int32_t top = 0;
  std::int32_t width = 0;
  std::int32_t height = 0;
  friend bool operator==(const Rect&, const Rect&) = default;
};

}  // namespace tessivo
