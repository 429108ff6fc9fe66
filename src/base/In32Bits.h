#pragma once

#include <cstdint>
#include <limits>
#include <optional>

namespace tessivo {

/// The value when it is in the range of 32 bits, signed; nothing when it is not, which the caller
/// turns into "the call fails".
inline std::optional<std::int32_t> in32Bits(std::int64_t value) {
  using Limits = std::numeric_limits<std::int32_t>;
  if (value < Limits::min() || value > Limits::max()) return std::nullopt;
  return static_cast<std::int32_t>(value);
}

}  // namespace tessivo
