#include "base/Utf16Bytes.h"

#include "base/Text.h"

namespace tessivo {
namespace {

constexpr unsigned kByteBits = 8;
constexpr unsigned kByteMask = 0xFF;

}  // namespace

std::vector<std::uint8_t> toUtf16Bytes(std::string_view text) {
  const std::u16string characters = toUtf16(text);
  std::vector<std::uint8_t> bytes;
  bytes.reserve(2 * characters.size());
  for (const char16_t character : characters) {
    bytes.push_back(static_cast<std::uint8_t>(character & kByteMask));
    bytes.push_back(static_cast<std::uint8_t>(character >> kByteBits));
  }
  return bytes;
}

std::string fromUtf16Bytes(std::span<const std::uint8_t> bytes) {
  std::u16string characters(bytes.size() / 2, u'\0');
  for (std::size_t i = 0; i < characters.size(); ++i) {
    characters[i] = static_cast<char16_t>(bytes[2 * i] | bytes[2 * i + 1] << kByteBits);
  }
  return toUtf8(characters);
}

}  // namespace tessivo
