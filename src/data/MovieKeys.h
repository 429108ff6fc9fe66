#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>

#include "platform/Clock.h"

namespace tessivo {

/// Makes the keys of playlist items: "F", year, month and day without padding, then the
/// milliseconds since midnight with eight digits. No key is given out twice, nor one that has been
/// reserved: when a number is taken, the next free one of that day is used (after 99999999 the
/// search goes on at 0). One for the life of the process.
///
/// A key costs the same however many were made in the same millisecond (amortised).
class MovieKeys {
 public:
  explicit MovieKeys(const Clock& clock) : clock_(clock) {}

  std::string newKey();

  /// Notes a key that came from elsewhere (a stored list), so that newKey does not repeat it.
  void reserve(std::string_view key);

 private:
  /// A taken number and a larger one from which to search on: paths get shorter as they are used.
  using Taken = std::unordered_map<std::uint32_t, std::uint32_t>;

  static std::uint32_t firstFree(Taken& taken, std::uint32_t from);

  const Clock& clock_;
  /// By what stands before the number. Different dates can share that text (11 January and
  /// 1 November: both "111"), therefore it is not the date.
  std::unordered_map<std::string, Taken> takenByStart_;
};

}  // namespace tessivo
