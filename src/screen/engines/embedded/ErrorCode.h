#pragma once

#include <cstdint>
#include <cstdio>
#include <string>

namespace tessivo {

/// A COM result code as the operator's log shows it: "0x80070002".
inline std::string hexOf(std::int32_t code) {
  char text[16];
  std::snprintf(text, sizeof(text), "0x%08x", static_cast<unsigned>(code));
  return text;
}

}  // namespace tessivo
