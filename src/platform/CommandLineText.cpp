#include "platform/CommandLineText.h"

#include <algorithm>

namespace tessivo {

std::string_view argumentText(std::string_view commandLine) {
  constexpr std::string_view kBlanks = " \t";
  const bool quoted = commandLine.starts_with('"');
  const auto end = quoted ? commandLine.find('"', 1) : commandLine.find_first_of(kBlanks);
  if (end == std::string_view::npos) return {};
  commandLine.remove_prefix(quoted ? end + 1 : end);
  commandLine.remove_prefix(std::min(commandLine.find_first_not_of(kBlanks), commandLine.size()));
  return commandLine;
}

}  // namespace tessivo
