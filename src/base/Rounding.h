#pragma once

#include <cmath>
#include <cstdint>
#include <limits>
#include <optional>

namespace tessivo {

/// Rounds to the nearest whole number, a half to the even neighbour.
inline double roundHalfEven(double value) {
  const double below = std::floor(value);
  const double rest = value - below;
  if (rest < 0.5) return below;
  if (rest > 0.5) return below + 1;
  return std::fmod(below, 2) == 0 ? below : below + 1;
}

/// The value rounded half to even as a whole number of the given type; nothing when it does not
/// fit or is not a number. For signed types. The caller turns nothing into "the call fails".
template <typename Integer>
std::optional<Integer> roundedTo(double value) {
  const double rounded = roundHalfEven(value);
  const double end = std::ldexp(1.0, std::numeric_limits<Integer>::digits);  // one past the largest
  if (!(rounded >= -end && rounded < end)) return std::nullopt;
  return static_cast<Integer>(rounded);
}

inline std::optional<std::int16_t> roundedToInt16(double value) {
  return roundedTo<std::int16_t>(value);
}
inline std::optional<std::int32_t> roundedToInt32(double value) {
  return roundedTo<std::int32_t>(value);
}

}  // namespace tessivo
