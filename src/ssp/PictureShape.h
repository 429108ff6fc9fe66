#pragma once

#include <cstdint>
#include <vector>

#include "ssp/Size.h"

namespace tessivo::ssp {

/// How a camera says that its picture is to be turned: the numbers 1 to 8 of the Orientation tag.
/// 1 is upright, 3 upside down, 6 and 8 lie on a side, the others are mirrored, too.
using Orientation = int;

/// Whether a picture has more pixels than are ever decoded: 100 million. One without any counts
/// as well.
bool cannotBeDecoded(std::uint32_t width, std::uint32_t height);

/// The largest size with the picture's proportions inside the area, at least one pixel each way.
Size fittedInto(Size picture, Size area);

/// Whether the picture's width and height change places when it is turned upright.
bool liesOnASide(Orientation orientation);

/// The picture's pixels, row by row from the top, turned upright. `size` is that before. A number
/// that is none of the eight turns nothing.
std::vector<std::uint32_t> turnedUpright(const std::vector<std::uint32_t>& pixels, Size size,
                                         Orientation orientation);

}  // namespace tessivo::ssp
