#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace tessivo {

/// Texts as bytes that programs hand each other: UTF-16, the low byte first, no terminator. A NUL
/// is a character like any other; an odd byte at the end is none.
std::vector<std::uint8_t> toUtf16Bytes(std::string_view text);
std::string fromUtf16Bytes(std::span<const std::uint8_t> bytes);

}  // namespace tessivo
