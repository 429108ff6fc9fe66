#include "base/Text.h"

#include <algorithm>
#include <array>

namespace tessivo {
namespace {

constexpr char32_t kReplacement = 0xFFFD;

bool isHighSurrogate(char32_t c) {
  return c >= 0xD800 && c <= 0xDBFF;
}
bool isLowSurrogate(char32_t c) {
  return c >= 0xDC00 && c <= 0xDFFF;
}

void appendUtf8(std::string& out, char32_t c) {
  const auto put = [&out](char32_t byte) { out.push_back(static_cast<char>(byte)); };
  if (c < 0x80) {
    put(c);
  } else if (c < 0x800) {
    put(0xC0 | (c >> 6));
    put(0x80 | (c & 0x3F));
  } else if (c < 0x10000) {
    put(0xE0 | (c >> 12));
    put(0x80 | ((c >> 6) & 0x3F));
    put(0x80 | (c & 0x3F));
  } else {
    put(0xF0 | (c >> 18));
    put(0x80 | ((c >> 12) & 0x3F));
    put(0x80 | ((c >> 6) & 0x3F));
    put(0x80 | (c & 0x3F));
  }
}

struct Decoded {
  char32_t codePoint;
  std::size_t length;
};

Decoded decodeOne(std::string_view text) {
  const auto byte = [&text](std::size_t i) { return static_cast<unsigned char>(text[i]); };
  const unsigned char first = byte(0);
  if (first < 0x80) return {first, 1};
  const std::size_t length = first >= 0xF0 ? 4 : first >= 0xE0 ? 3 : 2;
  if (first < 0xC2 || first > 0xF4 || text.size() < length) return {kReplacement, 1};
  constexpr std::array<unsigned char, 5> kMask{0, 0, 0x1F, 0x0F, 0x07};
  char32_t c = first & kMask[length];
  for (std::size_t i = 1; i < length; ++i) {
    if ((byte(i) & 0xC0) != 0x80) return {kReplacement, 1};
    c = (c << 6) | (byte(i) & 0x3F);
  }
  constexpr std::array<char32_t, 5> kSmallest{0, 0, 0x80, 0x800, 0x10000};
  if (c < kSmallest[length] || c > 0x10FFFF) return {kReplacement, 1};
  return {c, length};
}

char upper(char c) {
  return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
}

}  // namespace

std::string toUtf8(std::u16string_view utf16) {
  std::string out;
  out.reserve(utf16.size());
  for (std::size_t i = 0; i < utf16.size(); ++i) {
    char32_t c = utf16[i];
    if (isHighSurrogate(c) && i + 1 < utf16.size() && isLowSurrogate(utf16[i + 1])) {
      c = 0x10000 + ((c - 0xD800) << 10) + (utf16[++i] - 0xDC00);
    }
    appendUtf8(out, c);
  }
  return out;
}

std::u16string toUtf16(std::string_view utf8) {
  std::u16string out;
  out.reserve(utf8.size());
  while (!utf8.empty()) {
    const auto [c, length] = decodeOne(utf8);
    if (c >= 0x10000) {
      out.push_back(static_cast<char16_t>(0xD800 + ((c - 0x10000) >> 10)));
      out.push_back(static_cast<char16_t>(0xDC00 + ((c - 0x10000) & 0x3FF)));
    } else {
      out.push_back(static_cast<char16_t>(c));
    }
    utf8.remove_prefix(length);
  }
  return out;
}

std::string_view trim(std::string_view text) {
  const auto first = text.find_first_not_of(' ');
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

std::string toUpper(std::string_view text) {
  std::string out(text);
  std::transform(out.begin(), out.end(), out.begin(), upper);
  return out;
}

bool containsNoCase(std::string_view text, std::string_view part) {
  return std::search(text.begin(), text.end(), part.begin(), part.end(),
                     [](char a, char b) { return upper(a) == upper(b); }) != text.end();
}

std::string_view fileNameOf(std::string_view path) {
  const auto separator = path.rfind('\\');
  return separator == std::string_view::npos ? path : path.substr(separator + 1);
}

}  // namespace tessivo
