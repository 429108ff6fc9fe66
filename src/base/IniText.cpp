#include "base/IniText.h"

#include <fstream>
#include <utility>

#include "base/FilePath.h"
#include "base/Text.h"

namespace tessivo {
namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

/// Blanks and tabs off both ends, and the line's carriage return.
std::string_view stripped(std::string_view text) {
  constexpr std::string_view kWhite = " \t\r";
  const auto first = text.find_first_not_of(kWhite);
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(kWhite) - first + 1);
}

IniLine lineOf(std::string_view text, const std::string& section) {
  IniLine line{section, std::string(text), {}, {}};
  const auto equals = text.find('=');
  line.key = toUpper(stripped(text.substr(0, equals)));
  if (equals != std::string_view::npos) line.value = stripped(text.substr(equals + 1));
  return line;
}

}  // namespace

std::optional<std::vector<IniLine>> parseIniText(std::string_view text) {
  if (text.size() > kLargestIniText || text.find('\0') != std::string_view::npos) {
    return std::nullopt;
  }
  if (text.starts_with(kByteOrderMark)) text.remove_prefix(kByteOrderMark.size());
  std::vector<IniLine> lines;
  std::string section;
  while (!text.empty()) {
    const auto end = text.find('\n');
    const std::string_view line = stripped(text.substr(0, end));
    text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
    if (line.empty() || line.front() == ';') continue;
    if (line.front() == '[') {
      section = toUpper(line);
    } else {
      lines.push_back(lineOf(line, section));
    }
  }
  return lines;
}

std::optional<std::string> readIniText(const std::string& path) {
  std::ifstream file(toFilePath(path), std::ios::binary);
  std::string text(kLargestIniText + 1, '\0');
  file.read(text.data(), static_cast<std::streamsize>(text.size()));
  text.resize(static_cast<std::size_t>(file.gcount()));
  if (!file.is_open() || file.bad()) return std::nullopt;
  return text;
}

}  // namespace tessivo
