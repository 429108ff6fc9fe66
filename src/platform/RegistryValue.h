#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>

namespace tessivo {

/// The kinds of registry values that are read, as the system numbers them.
namespace registryKind {
inline constexpr std::uint32_t kText = 1;
inline constexpr std::uint32_t kTextWithVariables = 2;  ///< taken as it is
inline constexpr std::uint32_t kNumber = 4;             ///< of four bytes, the low one first
}  // namespace registryKind

/// A registry value as text, from its kind and its bytes, which any program may have written. A
/// text goes up to its first NUL, which need not be there; half a character at the end is none. A
/// number is told in decimal, with its sign; one that has not four bytes is 0. Nothing for any
/// other kind.
std::optional<std::string> registryValueText(std::uint32_t kind,
                                             std::span<const std::uint8_t> bytes);

}  // namespace tessivo
