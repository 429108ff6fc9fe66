// The settings files of the screen-saver programs.
#include <algorithm>

#include "fuzz/Fuzz.h"
#include "ssp/ClockSettings.h"
#include "ssp/PictureSettings.h"

namespace tessivo::fuzz {

const int kChangesPerFile = 2000;

namespace {

using namespace tessivo::ssp;

void checkClock(const std::string& text) {
  const ClockSettings settings = parseClockSettings(text);
  holds(settings.colour < kClockColours.size(), "a colour that there is");
  holds(parseClockSettings(clockSettingsText(settings)) == settings, "saved it reads the same");
}

void checkPictures(const std::string& text) {
  PictureSettings settings = parsePictureSettings(text);
  holds(std::ranges::find(kStaySeconds, settings.staySeconds) != kStaySeconds.end(),
        "a time that there is");
  holds(settings.folder.find('\0') == std::string::npos, "a folder has no NUL");
  const bool oneLine = std::ranges::none_of(
      settings.folder, [](char c) { return static_cast<unsigned char>(c) < ' '; });
  if (!oneLine) settings.folder.clear();  // no path has such a character
  holds(parsePictureSettings(pictureSettingsText(settings)) == settings, "saved it reads the same");
}

void run(Input input) {
  const std::string text = input.rest();
  checkClock(text);
  checkPictures(text);
}

}  // namespace
}  // namespace tessivo::fuzz

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  tessivo::fuzz::run({data, size});
  return 0;
}
