#pragma once

#include <cstdint>

namespace tessivo::ssp {

/// A width and a height in pixels.
struct Size {
  std::int32_t width = 0;
  std::int32_t height = 0;
  friend bool operator==(const Size&, const Size&) = default;
};

}  // namespace tessivo::ssp
