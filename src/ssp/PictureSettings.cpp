#include "ssp/PictureSettings.h"

#include <algorithm>

#include "base/Text.h"
#include "ssp/IniSettings.h"

namespace tessivo::ssp {
namespace {

int staySecondsOf(const std::string& value) {
  const auto* const found =
      std::find_if(kStaySeconds.begin(), kStaySeconds.end(),
                   [&](int seconds) { return std::to_string(seconds) == value; });
  return found == kStaySeconds.end() ? PictureSettings{}.staySeconds : *found;
}

bool isOneLine(const std::string& text) {
  return std::none_of(text.begin(), text.end(),
                      [](char c) { return static_cast<unsigned char>(c) < ' '; });
}

}  // namespace

PictureSettings parsePictureSettings(std::string_view text) {
  const IniSettings values(text, "[PICTURES]");
  PictureSettings settings;
  settings.folder = values.text("FOLDER").value_or("");
  settings.staySeconds = staySecondsOf(values.text("SECONDS").value_or(""));
  if (toUpper(values.text("ORDER").value_or("")) == "RANDOM") settings.order = PictureOrder::random;
  return settings;
}

std::string pictureSettingsText(const PictureSettings& settings) {
  return "[Pictures]\r\nFolder=" + (isOneLine(settings.folder) ? settings.folder : "") +
         "\r\nSeconds=" + std::to_string(settings.staySeconds) +
         "\r\nOrder=" + (settings.order == PictureOrder::random ? "random" : "name") + "\r\n";
}

}  // namespace tessivo::ssp
