#include "app/Request.h"

#include <algorithm>
#include <array>

#include "base/Text.h"
#include "base/Utf16Bytes.h"

namespace tessivo::request {

std::optional<std::vector<std::uint8_t>> encode(const std::string& text) {
  std::vector<std::uint8_t> bytes = toUtf16Bytes(text);
  bytes.push_back(0);
  if (bytes.size() > kBufferBytes) return std::nullopt;
  return bytes;
}

std::optional<std::string> decode(std::span<const std::uint8_t> bytes) {
  if (bytes.size() > kBufferBytes) return std::nullopt;
  // An odd byte at the end is half a character; the other half is that of the empty buffer.
  std::array<std::uint8_t, kBufferBytes> buffer{};
  std::ranges::copy(bytes, buffer.begin());
  const std::string text = fromUtf16Bytes(buffer);
  return text.substr(0, text.find('\0'));
}

}  // namespace tessivo::request
