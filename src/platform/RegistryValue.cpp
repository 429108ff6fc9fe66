#include "platform/RegistryValue.h"

#include <algorithm>

#include "base/Utf16Bytes.h"

namespace tessivo {
namespace {

std::string textOf(std::span<const std::uint8_t> bytes) {
  std::string text = fromUtf16Bytes(bytes);
  text.resize(std::min(text.find('\0'), text.size()));
  return text;
}

std::string numberOf(std::span<const std::uint8_t> bytes) {
  constexpr std::size_t kBytes = 4;
  constexpr unsigned kByteBits = 8;
  std::uint32_t number = 0;
  if (bytes.size() == kBytes) {
    for (std::size_t i = kBytes; i > 0; --i) number = number << kByteBits | bytes[i - 1];
  }
  return std::to_string(static_cast<std::int32_t>(number));
}

}  // namespace

std::optional<std::string> registryValueText(std::uint32_t kind,
                                             std::span<const std::uint8_t> bytes) {
  switch (kind) {
    case registryKind::kText:
    case registryKind::kTextWithVariables:
      return textOf(bytes);
    case registryKind::kNumber:
      return numberOf(bytes);
    default:
      return std::nullopt;
  }
}

}  // namespace tessivo
