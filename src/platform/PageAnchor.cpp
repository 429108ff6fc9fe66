#include "platform/PageAnchor.h"

#include <algorithm>
#include <string_view>

#include "base/Text.h"

namespace tessivo {
namespace {

constexpr std::string_view kPlain =
    "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789-._~/:";

std::string escaped(std::string_view text) {
  constexpr std::string_view kDigits = "0123456789ABCDEF";
  std::string result;
  for (const char c : text) {
    if (kPlain.find(c) != std::string_view::npos) {
      result += c;
      continue;
    }
    const auto byte = static_cast<unsigned char>(c);
    result += '%';
    result += kDigits[byte / 16];
    result += kDigits[byte % 16];
  }
  return result;
}

}  // namespace

std::optional<PageAnchor> pageAnchorOf(const std::string& text) {
  const auto sign = text.rfind('#');
  if (sign == std::string::npos || sign + 1 == text.size()) return std::nullopt;
  PageAnchor place{text.substr(0, sign), text.substr(sign + 1)};
  const std::string upper = toUpper(place.page);
  if (!upper.ends_with(".HTM") && !upper.ends_with(".HTML")) return std::nullopt;
  return place;
}

std::string addressOf(const PageAnchor& place) {
  std::string path = place.page;
  std::replace(path.begin(), path.end(), '\\', '/');
  const bool ofServer = path.starts_with("//");
  return (ofServer ? "file:" : "file:///") + escaped(path) + '#' + escaped(place.anchor);
}

}  // namespace tessivo
