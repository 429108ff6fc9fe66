#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <variant>

#include "base/Rounding.h"

namespace tessivo {

/// Bytes that a column holds although the program only ever writes numbers and texts.
struct Blob {
  std::string bytes;
  friend bool operator==(const Blob&, const Blob&) = default;
};

/// One field of a row as it is stored: Null, whole number, number, text (UTF-8) or bytes.
using Value = std::variant<std::monostate, std::int64_t, double, std::string, Blob>;

inline bool isNull(const Value& value) {
  return std::holds_alternative<std::monostate>(value);
}

/// The value as text: Null is "", numbers in decimal, bytes as they are.
std::string asText(const Value& value);

/// The value as a number. A text counts when it is a decimal number, with blanks around it or not;
/// anything else (Null, "", "12 min", not finite) gives nothing.
std::optional<double> asNumber(const Value& value);

/// Whether the value is the number one, the stored form of true.
inline bool isOne(const Value& value) {
  return asNumber(value) == 1.0;
}

/// The value as a whole number of the given type, a half rounded to the even neighbour; `fallback`
/// when it is no number or does not fit.
template <typename Integer>
Integer asInteger(const Value& value, Integer fallback) {
  const auto number = asNumber(value);
  return number ? roundedTo<Integer>(*number).value_or(fallback) : fallback;
}

}  // namespace tessivo
