#pragma once

#include <string_view>

namespace tessivo {

/// The text without the double quotes around it, as starters put them around a path with blanks. A
/// text of two quotes alone, or with a quote at one end only, is kept as it is.
inline std::string_view unquoted(std::string_view text) {
  const bool quoted = text.size() > 2 && text.front() == '"' && text.back() == '"';
  return quoted ? text.substr(1, text.size() - 2) : text;
}

}  // namespace tessivo
