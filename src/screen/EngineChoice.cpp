#include "screen/EngineChoice.h"

#include <filesystem>
#include <optional>

#include "base/FilePath.h"
#include "base/IniText.h"
#include "base/Text.h"

namespace tessivo {
namespace {

std::optional<EngineChoice> choiceOf(std::string_view value) {
  const std::string upper = toUpper(value);
  if (upper == "CONTROL") return EngineChoice::control;
  if (upper == "EMBEDDED") return EngineChoice::embedded;
  if (upper == "AUTO") return EngineChoice::automatic;
  return std::nullopt;
}

/// Reads line by line what it was made for.
class Reader {
 public:
  explicit Reader(Log& log) : log_(log) {}

  void read(const IniLine& line) {
    if (line.section != "[ENGINES]" || !line.value) return complain(line.text);
    EngineChoice* slot = line.key == "MEDIAPLAYER"  ? &choices_.mediaPlayer
                         : line.key == "REALPLAYER" ? &choices_.realPlayer
                                                    : nullptr;
    const auto choice = choiceOf(*line.value);
    if (!slot || !choice) complain(line.text);
    if (slot) *slot = choice.value_or(EngineChoice::control);
  }

  const EngineChoices& choices() const { return choices_; }

 private:
  void complain(std::string_view line) {
    constexpr std::size_t kShown = 80;
    log_.error("Engines.ini: not understood: " + std::string(line.substr(0, kShown)));
  }

  Log& log_;
  EngineChoices choices_;
};

}  // namespace

EngineChoices parseEngineChoices(std::string_view text, Log& log) {
  const auto lines = parseIniText(text);
  if (!lines) {
    log.error("Engines.ini is no such file; the installed controls are used");
    return {};
  }
  Reader reader(log);
  for (const IniLine& line : *lines) reader.read(line);
  return reader.choices();
}

EngineChoices readEngineChoices(const std::string& path, Log& log) {
  std::error_code error;
  if (!std::filesystem::exists(toFilePath(path), error) && !error) return {};
  const auto text = readIniText(path);
  if (!text) {
    log.error("Engines.ini cannot be read; the installed controls are used");
    return {};
  }
  return parseEngineChoices(*text, log);
}

}  // namespace tessivo
