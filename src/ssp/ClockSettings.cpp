#include "ssp/ClockSettings.h"

#include <algorithm>

#include "base/Text.h"
#include "ssp/IniSettings.h"

namespace tessivo::ssp {
namespace {

constexpr std::array<const char*, 3> kSizeKeys{"small", "medium", "large"};

bool sameKey(std::string_view a, std::string_view b) {
  return toUpper(a) == toUpper(b);
}

ClockSize sizeOf(std::string_view value) {
  const auto* const found = std::find_if(kSizeKeys.begin(), kSizeKeys.end(),
                                         [&](const char* key) { return sameKey(key, value); });
  if (found == kSizeKeys.end()) return ClockSettings{}.size;
  return static_cast<ClockSize>(found - kSizeKeys.begin());
}

std::size_t colourOf(std::string_view value) {
  const auto* const found =
      std::find_if(kClockColours.begin(), kClockColours.end(),
                   [&](const ClockColour& colour) { return sameKey(colour.key, value); });
  if (found == kClockColours.end()) return ClockSettings{}.colour;
  return static_cast<std::size_t>(found - kClockColours.begin());
}

}  // namespace

ClockSettings parseClockSettings(std::string_view text) {
  const IniSettings values(text, "[CLOCK]");
  ClockSettings settings;
  settings.size = sizeOf(values.text("SIZE").value_or(""));
  settings.colour = colourOf(values.text("COLOUR").value_or(""));
  settings.seconds = values.flag("SECONDS", settings.seconds);
  settings.date = values.flag("DATE", settings.date);
  return settings;
}

std::string clockSettingsText(const ClockSettings& settings) {
  return std::string("[Clock]\r\nSize=") + kSizeKeys.at(static_cast<std::size_t>(settings.size)) +
         "\r\nColour=" + kClockColours.at(settings.colour).key +
         "\r\nSeconds=" + (settings.seconds ? "1" : "0") +
         "\r\nDate=" + (settings.date ? "1" : "0") + "\r\n";
}

}  // namespace tessivo::ssp
