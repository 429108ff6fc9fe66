#pragma once

#include "base/Geometry.h"
#include "ssp/Size.h"

namespace tessivo::ssp {

/// The upper left corner of a window around the point, moved into the work area where it reaches
/// out of it; of a window that is larger than that the upper left corner is inside. Pixels.
Point cornerAround(Point middle, Size window, const Rect& work);

}  // namespace tessivo::ssp
