#pragma once

#include <algorithm>
#include <cstdint>

#include "base/Geometry.h"

namespace tessivo {

/// The largest centred rectangle inside an area of the given size with the picture's aspect ratio;
/// the whole area when the picture has no size.
inline Rect letterbox(std::int32_t areaWidth, std::int32_t areaHeight, std::int32_t pictureWidth,
                      std::int32_t pictureHeight) {
  if (pictureWidth <= 0 || pictureHeight <= 0) return {0, 0, areaWidth, areaHeight};
  const std::int64_t widthAtFullHeight = std::int64_t{areaHeight} * pictureWidth / pictureHeight;
  Rect fitted{0, 0, areaWidth, areaHeight};
  if (widthAtFullHeight <= areaWidth) {
    fitted.width = static_cast<std::int32_t>(widthAtFullHeight);
  } else {
    fitted.height =
        static_cast<std::int32_t>(std::int64_t{areaWidth} * pictureHeight / pictureWidth);
  }
  fitted.left = (areaWidth - fitted.width) / 2;
  fitted.top = (areaHeight - fitted.height) / 2;
  return fitted;
}

}  // namespace tessivo
