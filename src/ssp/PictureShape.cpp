#include "ssp/PictureShape.h"

#include <algorithm>
#include <cstddef>

namespace tessivo::ssp {
namespace {

constexpr std::uint64_t kMostPixels = 100'000'000;

std::int32_t scaled(std::int32_t length, std::int32_t to, std::int32_t from) {
  const std::int64_t exact = (std::int64_t{length} * to + from / 2) / from;
  return static_cast<std::int32_t>(std::max<std::int64_t>(exact, 1));
}

/// From which end the rows and the columns of the stored picture are read.
bool isReversedAcross(Orientation orientation) {
  return orientation == 2 || orientation == 3 || orientation == 7 || orientation == 8;
}
bool isReversedDown(Orientation orientation) {
  return orientation == 3 || orientation == 4 || orientation == 6 || orientation == 7;
}

}  // namespace

bool cannotBeDecoded(std::uint32_t width, std::uint32_t height) {
  const std::uint64_t pixels = std::uint64_t{width} * height;
  return pixels == 0 || pixels > kMostPixels;
}

Size fittedInto(Size picture, Size area) {
  const bool isWider =
      std::int64_t{picture.width} * area.height >= std::int64_t{area.width} * picture.height;
  if (isWider) return {area.width, scaled(picture.height, area.width, picture.width)};
  return {scaled(picture.width, area.height, picture.height), area.height};
}

bool liesOnASide(Orientation orientation) {
  return orientation >= 5 && orientation <= 8;
}

std::vector<std::uint32_t> turnedUpright(const std::vector<std::uint32_t>& pixels, Size size,
                                         Orientation orientation) {
  const bool turned = liesOnASide(orientation);
  const Size upright = turned ? Size{size.height, size.width} : size;
  std::vector<std::uint32_t> result;
  result.reserve(pixels.size());
  for (std::int32_t y = 0; y < upright.height; ++y) {
    for (std::int32_t x = 0; x < upright.width; ++x) {
      std::int32_t column = turned ? y : x;
      std::int32_t row = turned ? x : y;
      if (isReversedAcross(orientation)) column = size.width - 1 - column;
      if (isReversedDown(orientation)) row = size.height - 1 - row;
      result.push_back(pixels[static_cast<std::size_t>(row) * static_cast<std::size_t>(size.width) +
                              static_cast<std::size_t>(column)]);
    }
  }
  return result;
}

}  // namespace tessivo::ssp
