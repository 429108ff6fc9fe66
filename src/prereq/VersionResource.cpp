#include "prereq/VersionResource.h"

#include <algorithm>
#include <cstddef>
#include <string_view>

namespace tessivo {
namespace {

// The first of the nested blocks: its length, the length of its value, its kind (16 bits each), its
// key in UTF-16 with the NUL, and its value at the next multiple of four bytes.
constexpr std::size_t kValueLengthAt = 2;
constexpr std::size_t kKeyAt = 6;
constexpr std::u16string_view kKey(u"VS_VERSION_INFO\0", 16);
constexpr std::size_t kValueAt = 40;
constexpr std::size_t kValueSize = 52;
constexpr std::size_t kSignatureAt = kValueAt;
constexpr std::uint32_t kSignature = 0xFEEF04BD;
constexpr std::size_t kVersionAt = kValueAt + 8;

std::uint16_t wordAt(std::span<const std::uint8_t> bytes, std::size_t at) {
  return static_cast<std::uint16_t>(bytes[at] | bytes[at + 1] << 8);
}

std::uint32_t doubleWordAt(std::span<const std::uint8_t> bytes, std::size_t at) {
  return wordAt(bytes, at) | static_cast<std::uint32_t>(wordAt(bytes, at + 2)) << 16;
}

bool hasKey(std::span<const std::uint8_t> bytes) {
  for (std::size_t i = 0; i < kKey.size(); ++i) {
    if (wordAt(bytes, kKeyAt + 2 * i) != kKey[i]) return false;
  }
  return true;
}

}  // namespace

std::optional<FileVersion> parseVersionResource(std::span<const std::uint8_t> resource) {
  constexpr std::size_t kLeast = kValueAt + kValueSize;
  if (resource.size() < kLeast || wordAt(resource, 0) < kLeast ||
      wordAt(resource, kValueLengthAt) < kValueSize || !hasKey(resource) ||
      doubleWordAt(resource, kSignatureAt) != kSignature) {
    return std::nullopt;
  }
  // Two numbers in each of two double words, the greater one in the upper half.
  return FileVersion{wordAt(resource, kVersionAt + 2), wordAt(resource, kVersionAt),
                     wordAt(resource, kVersionAt + 6), wordAt(resource, kVersionAt + 4)};
}

}  // namespace tessivo
