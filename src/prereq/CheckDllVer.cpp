#include "prereq/CheckDllVer.h"

#include "prereq/VersionResource.h"

namespace tessivo {

std::string CheckDllVer::GetVersionInfo(const std::string& fileName) const {
  const auto version = parseVersionResource(versions_.resourceOf(fileName));
  if (!version) return "N/A";
  std::string text;
  for (const std::uint16_t number : *version) {
    text += (text.empty() ? "" : ".") + std::to_string(number);
  }
  return text;
}

}  // namespace tessivo
