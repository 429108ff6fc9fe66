#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <span>

namespace tessivo {

/// Major, minor and the two further numbers.
using FileVersion = std::array<std::uint16_t, 4>;

/// The file's version in a version resource (VS_VERSIONINFO, of 32- and 64-bit files). Nothing when
/// the bytes are none or end before it: they come from a file of somebody else's.
std::optional<FileVersion> parseVersionResource(std::span<const std::uint8_t> resource);

}  // namespace tessivo
