#include "app/CommandLine.h"

#include <charconv>
#include <optional>
#include <string_view>
#include <utility>
#include <vector>

#include "app/Controler.h"
#include "app/MF.h"
#include "base/Text.h"

namespace tessivo {
namespace {

constexpr std::string_view kAddAndPlay = "DMenuF_1__";
constexpr std::string_view kAddOnly = "DMenuF_2__";
constexpr std::string_view kFieldSeparator = "/?%/";
constexpr std::string_view kPathSeparator = "@@_F%D-F_@";
/// Room for a hundred thousand long paths. A selection that says to be larger is a mistake.
constexpr std::int32_t kLargestSelection = 64 * 1024 * 1024;

std::vector<std::string> split(std::string_view text, std::string_view separator) {
  std::vector<std::string> parts;
  for (std::size_t at = 0;;) {
    const auto end = text.find(separator, at);
    parts.emplace_back(text.substr(at, end - at));
    if (end == std::string_view::npos) return parts;
    at = end + separator.size();
  }
}

/// A decimal number of at least 1 that fits into 32 bits, blanks around it or not.
std::optional<std::int32_t> sizeOf(std::string_view text) {
  const std::string_view digits = trim(text);
  std::int32_t size = 0;
  const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), size);
  if (error != std::errc() || end != digits.data() + digits.size() || size < 1) return std::nullopt;
  return size;
}

}  // namespace

void CommandLine::processCmdLine(const std::string& text) {
  if (text.empty()) return;
  if (text.starts_with(kAddAndPlay)) return addSelection(text, true);
  if (text.starts_with(kAddOnly)) return addSelection(text, false);
  controler_.BatchAddMovie({"", text}, true);
}

bool CommandLine::isPath(const std::string& text) {
  return !text.empty() && !text.starts_with(kAddAndPlay) && !text.starts_with(kAddOnly);
}

void CommandLine::addSelection(const std::string& text, bool play) {
  const auto fields = split(text, kFieldSeparator);
  if (fields.size() < 3) return refuse("fewer than three fields in " + text);
  const auto size = sizeOf(fields[2]);
  if (!size) return refuse("no size: " + fields[2]);
  if (*size > kLargestSelection) return refuse("too large: " + fields[2] + " bytes");
  // To open one that is not there would make one of that size.
  if (!memory_.exists(fields[1])) return refuse("no mapping named " + fields[1]);
  std::string selection;
  {
    MF mapping(memory_);
    mapping.strFMN(fields[1]);
    mapping.lngFS(*size);
    mapping.OFM();
    if (!mapping.MFV()) return refuse("mapping not readable: " + fields[1]);
    selection = mapping.RF();
    mapping.UFV();
    mapping.CFM();
  }
  // Also when the mapping went between the two looks at it, and was made anew.
  if (selection.empty() || selection.front() == '\0') return refuse("nothing in " + fields[1]);
  auto paths = split(selection, kPathSeparator);
  paths.insert(paths.begin(), "");  // counted from 1
  controler_.BatchAddMovie(std::move(paths), play);
}

void CommandLine::refuse(const std::string& why) {
  log_.error("shell menu refused: " + why);
}

}  // namespace tessivo
