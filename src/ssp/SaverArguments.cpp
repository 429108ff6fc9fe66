#include "ssp/SaverArguments.h"

#include <charconv>
#include <cstdint>
#include <limits>
#include <optional>

#include "base/Text.h"

namespace tessivo::ssp {
namespace {

constexpr std::string_view kSeparator = "##";
constexpr std::int32_t kLongestSide = 32767;  ///< of a window

/// Takes the fields off the text one by one.
class Fields {
 public:
  explicit Fields(std::string_view text) : rest_(text) {}

  /// The text up to the next separator; nothing when there is none.
  std::optional<std::string_view> next() {
    const auto end = rest_.find(kSeparator);
    if (end == std::string_view::npos) return std::nullopt;
    const std::string_view field = rest_.substr(0, end);
    rest_.remove_prefix(end + kSeparator.size());
    return field;
  }
  std::optional<std::int32_t> nextNumber() {
    const auto field = next();
    if (!field) return std::nullopt;
    std::int32_t number = 0;
    const char* const end = field->data() + field->size();
    const auto [stopped, error] = std::from_chars(field->data(), end, number);
    if (error != std::errc() || stopped != end) return std::nullopt;
    return number;
  }
  std::optional<bool> nextFlag() {
    const auto field = next();
    if (field != "0" && field != "1") return std::nullopt;
    return field == "1";
  }
  std::string rest() const { return std::string(rest_); }

 private:
  std::string_view rest_;
};

/// Whether the edges can be told in 32 bits and the window can be that large.
bool canBeCovered(const Rect& area) {
  constexpr std::int32_t kFarthest = std::numeric_limits<std::int32_t>::max() - kLongestSide;
  return area.width <= kLongestSide && area.height <= kLongestSide && area.left <= kFarthest &&
         area.top <= kFarthest;
}

SaverArguments parseRun(Fields& fields) {
  const auto left = fields.nextNumber();
  const auto top = fields.nextNumber();
  const auto width = fields.nextNumber();
  const auto height = fields.nextNumber();
  const auto fullScreen = fields.nextFlag();
  if (!left || !top || !width || !height || !fullScreen) return {};
  SaverArguments arguments;
  arguments.area = {*left, *top, *width, *height};
  arguments.fullScreen = *fullScreen;
  arguments.caption = fields.rest();
  const bool isPreview = *width <= 0 || *height <= 0;
  if (!isPreview && !canBeCovered(arguments.area)) return {};
  arguments.task = isPreview ? SaverTask::preview : SaverTask::run;
  return arguments;
}

SaverArguments parseConfigure(Fields& fields) {
  const auto x = fields.nextNumber();
  const auto y = fields.nextNumber();
  if (!x || !y) return {};
  SaverArguments arguments;
  arguments.task = SaverTask::configure;
  arguments.middle = {*x, *y};
  arguments.ownerCaption = fields.rest();
  return arguments;
}

}  // namespace

SaverArguments parseSaverArguments(std::string_view text) {
  if (trim(text).empty()) {
    SaverArguments arguments;
    arguments.task = SaverTask::settings;
    return arguments;
  }
  Fields fields(text);
  const auto verb = fields.next();
  if (verb == "RUN") return parseRun(fields);
  if (verb == "SHOW_CONFIG_FACE") return parseConfigure(fields);
  return {};
}

}  // namespace tessivo::ssp
