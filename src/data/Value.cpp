#include "data/Value.h"

#include <charconv>
#include <cmath>
#include <system_error>

#include "base/Text.h"

namespace tessivo {
namespace {

std::string decimal(double number) {
  char text[32];
  auto* const end = std::to_chars(text, text + sizeof text, number).ptr;
  return {text, end};
}

std::optional<double> parsed(std::string_view text) {
  text = trim(text);
  if (text.starts_with('+')) {
    text.remove_prefix(1);
    if (text.starts_with('-')) return std::nullopt;
  }
  double number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (error != std::errc() || end != text.data() + text.size() || !std::isfinite(number)) {
    return std::nullopt;
  }
  return number;
}

}  // namespace

std::string asText(const Value& value) {
  if (const auto* whole = std::get_if<std::int64_t>(&value)) return std::to_string(*whole);
  if (const auto* number = std::get_if<double>(&value)) return decimal(*number);
  if (const auto* text = std::get_if<std::string>(&value)) return *text;
  if (const auto* blob = std::get_if<Blob>(&value)) return blob->bytes;
  return {};
}

std::optional<double> asNumber(const Value& value) {
  if (const auto* whole = std::get_if<std::int64_t>(&value)) return static_cast<double>(*whole);
  if (const auto* number = std::get_if<double>(&value)) return *number;
  if (const auto* text = std::get_if<std::string>(&value)) return parsed(*text);
  return std::nullopt;
}

}  // namespace tessivo
