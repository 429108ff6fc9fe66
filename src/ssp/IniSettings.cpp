#include "ssp/IniSettings.h"

#include "base/IniText.h"

namespace tessivo::ssp {

IniSettings::IniSettings(std::string_view text, std::string_view section) {
  const auto lines = parseIniText(text);
  if (!lines) return;
  for (const IniLine& line : *lines) {
    if (line.section == section && line.value) values_[line.key] = *line.value;
  }
}

std::optional<std::string> IniSettings::text(const std::string& key) const {
  const auto found = values_.find(key);
  if (found == values_.end()) return std::nullopt;
  return found->second;
}

bool IniSettings::flag(const std::string& key, bool otherwise) const {
  const auto value = text(key);
  if (value == "0") return false;
  if (value == "1") return true;
  return otherwise;
}

}  // namespace tessivo::ssp
