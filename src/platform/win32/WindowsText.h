#pragma once

#include <string>
#include <string_view>

#include "base/Text.h"

namespace tessivo {

/// Windows' UTF-16 of our UTF-8 and back; see toUtf16 and toUtf8 for what is not valid text.
inline std::wstring toWide(std::string_view utf8) {
  const std::u16string text = toUtf16(utf8);
  return {text.begin(), text.end()};
}

inline std::string fromWide(std::wstring_view wide) {
  return toUtf8(std::u16string(wide.begin(), wide.end()));
}

}  // namespace tessivo
