#include "screen/EngineChoice.h"

#include <filesystem>
#include <fstream>
#include <optional>

#include "base/FilePath.h"
#include "base/Text.h"

namespace tessivo {
namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
constexpr std::size_t kLargest = 65536;  ///< bytes; what is larger is no such file

/// Blanks and tabs off both ends, and the line's carriage return.
std::string_view stripped(std::string_view text) {
  constexpr std::string_view kWhite = " \t\r";
  const auto first = text.find_first_not_of(kWhite);
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(kWhite) - first + 1);
}

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

  void read(std::string_view line) {
    if (line.empty() || line.front() == ';') return;
    if (line.front() == '[') {
      inSection_ = toUpper(line) == "[ENGINES]";
      return;
    }
    if (!inSection_) return complain(line);
    const auto equals = line.find('=');
    if (equals == std::string_view::npos) return complain(line);
    const std::string key = toUpper(stripped(line.substr(0, equals)));
    EngineChoice* slot = key == "MEDIAPLAYER"  ? &choices_.mediaPlayer
                         : key == "REALPLAYER" ? &choices_.realPlayer
                                               : nullptr;
    const auto choice = choiceOf(stripped(line.substr(equals + 1)));
    if (!slot || !choice) complain(line);
    if (slot) *slot = choice.value_or(EngineChoice::control);
  }

  const EngineChoices& choices() const { return choices_; }

 private:
  void complain(std::string_view line) {
    constexpr std::size_t kShown = 80;
    log_.error("Engines.ini: not understood: " + std::string(line.substr(0, kShown)));
  }

  Log& log_;
  bool inSection_ = false;
  EngineChoices choices_;
};

}  // namespace

EngineChoices parseEngineChoices(std::string_view text, Log& log) {
  if (text.size() > kLargest || text.find('\0') != std::string_view::npos) {
    log.error("Engines.ini is no such file; the installed controls are used");
    return {};
  }
  if (text.starts_with(kByteOrderMark)) text.remove_prefix(kByteOrderMark.size());
  Reader reader(log);
  while (!text.empty()) {
    const auto end = text.find('\n');
    reader.read(stripped(text.substr(0, end)));
    text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
  }
  return reader.choices();
}

EngineChoices readEngineChoices(const std::string& path, Log& log) {
  std::error_code error;
  if (!std::filesystem::exists(toFilePath(path), error) && !error) return {};
  std::ifstream file(toFilePath(path), std::ios::binary);
  std::string text(kLargest + 1, '\0');
  file.read(text.data(), static_cast<std::streamsize>(text.size()));
  text.resize(static_cast<std::size_t>(file.gcount()));
  if (!file.is_open() || file.bad()) {
    log.error("Engines.ini cannot be read; the installed controls are used");
    return {};
  }
  return parseEngineChoices(text, log);
}

}  // namespace tessivo
