// The text of Engines.ini.
#include <algorithm>

#include "base/IniText.h"
#include "base/Text.h"
#include "fakes/FakeLog.h"
#include "fuzz/Fuzz.h"
#include "screen/EngineChoice.h"

namespace tessivo::fuzz {

const int kChangesPerFile = 2000;

namespace {

const char* nameOf(EngineChoice choice) {
  return choice == EngineChoice::control    ? "control"
         : choice == EngineChoice::embedded ? "embedded"
                                            : "auto";
}

void checkLines(const std::string& text) {
  const auto lines = parseIniText(text);
  const bool possible = text.size() <= kLargestIniText && text.find('\0') == std::string::npos;
  holds(lines.has_value() == possible, "a text without NUL that is not too large");
  if (!lines) return;
  holds(lines->size() <= static_cast<std::size_t>(std::ranges::count(text, '\n')) + 1,
        "no more lines than the text has");
  for (const IniLine& line : *lines) {
    holds(!line.text.empty() && line.text.find('\n') == std::string::npos, "one line each");
    holds(line.key == toUpper(line.key) && line.section == toUpper(line.section), "upper case");
    holds(line.section.empty() || line.section.front() == '[', "a heading");
    holds(line.value.has_value() == (line.text.find('=') != std::string::npos), "a value behind =");
  }
}

void run(Input input) {
  const std::string text = input.rest();
  checkLines(text);
  FakeLog log;
  const EngineChoices choices = parseEngineChoices(text, log);
  constexpr std::size_t kLongestLine = 150;
  for (const std::string& line : log.lines) holds(line.size() < kLongestLine, "short log lines");
  FakeLog none;
  const std::string written = std::string("[Engines]\r\nMediaPlayer=") +
                              nameOf(choices.mediaPlayer) +
                              "\r\nRealPlayer=" + nameOf(choices.realPlayer) + "\r\n";
  holds(parseEngineChoices(written, none) == choices && none.lines.empty(),
        "written it reads the same");
}

}  // namespace
}  // namespace tessivo::fuzz

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  tessivo::fuzz::run({data, size});
  return 0;
}
