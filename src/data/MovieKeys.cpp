#include "data/MovieKeys.h"

#include <algorithm>

#include "base/Text.h"

namespace tessivo {
namespace {

constexpr std::size_t kDigits = 8;
constexpr std::uint32_t kNumbers = 100000000;

std::string eightDigits(std::uint32_t number) {
  const auto digits = std::to_string(number);
  return std::string(kDigits - digits.size(), '0') + digits;
}

}  // namespace

std::string MovieKeys::newKey() {
  const auto now = clock_.now();
  const auto start =
      "F" + std::to_string(now.year) + std::to_string(now.month) + std::to_string(now.day);
  auto& taken = takenByStart_[start];
  auto number = firstFree(taken, static_cast<std::uint32_t>(now.msOfDay) % kNumbers);
  if (number == kNumbers) number = firstFree(taken, 0);
  taken[number] = number + 1;
  return start + eightDigits(number);
}

void MovieKeys::reserve(std::string_view key) {
  if (key.size() <= kDigits) return;
  const auto digits = key.substr(key.size() - kDigits);
  if (!std::all_of(digits.begin(), digits.end(), [](char c) { return c >= '0' && c <= '9'; })) {
    return;
  }
  std::uint32_t number = 0;
  for (const char c : digits) number = number * 10 + static_cast<std::uint32_t>(c - '0');
  takenByStart_[toUpper(key.substr(0, key.size() - kDigits))].emplace(number, number + 1);
}

/// The first number from `from` on that is not taken; kNumbers when there is none. Every number
/// passed on the way is pointed there.
std::uint32_t MovieKeys::firstFree(Taken& taken, std::uint32_t from) {
  auto free = from;
  for (auto entry = taken.find(free); entry != taken.end(); entry = taken.find(free)) {
    free = entry->second;
  }
  for (auto number = from; number != free;) {
    auto& next = taken[number];
    number = next;
    next = free;
  }
  return free;
}

}  // namespace tessivo
