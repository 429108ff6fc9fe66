#include "ssp/Placement.h"

#include <algorithm>
#include <cstdint>

namespace tessivo::ssp {
namespace {

/// In 64 bits: the point is what another program says.
std::int32_t edgeAround(std::int64_t middle, std::int64_t size, std::int64_t from,
                        std::int64_t length) {
  const std::int64_t last = from + length - size;
  return static_cast<std::int32_t>(std::max(from, std::min(middle - size / 2, last)));
}

}  // namespace

Point cornerAround(Point middle, Size window, const Rect& work) {
  return {edgeAround(middle.x, window.width, work.left, work.width),
          edgeAround(middle.y, window.height, work.top, work.height)};
}

}  // namespace tessivo::ssp
