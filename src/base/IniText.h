#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tessivo {

/// Bytes of an ini file; what is larger is no such file.
inline constexpr std::size_t kLargestIniText = 65536;

/// A line of an ini file that is neither empty nor a comment (';') nor a section's heading.
struct IniLine {
  std::string section;               ///< "[SECTION]" above it, ASCII letters in upper case
  std::string text;                  ///< the line without white space at its ends
  std::string key;                   ///< before the first '=', ASCII letters in upper case
  std::optional<std::string> value;  ///< behind it; nothing when there is no '='
};

/// The lines in their order. Nothing for a text that is no ini file: too large, or with a NUL.
std::optional<std::vector<IniLine>> parseIniText(std::string_view text);

/// What the file holds; of one that is too large a byte more than is allowed. Nothing when it
/// cannot be read.
std::optional<std::string> readIniText(const std::string& path);

}  // namespace tessivo
