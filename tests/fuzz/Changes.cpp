#include "fuzz/Changes.h"

#include <algorithm>
#include <array>

namespace tessivo::fuzz {

/// SplitMix64: short, and the same on every machine.
std::uint64_t Changes::next() {
  state_ += 0x9E3779B97F4A7C15;
  std::uint64_t mixed = state_;
  mixed = (mixed ^ mixed >> 30) * 0xBF58476D1CE4E5B9;
  mixed = (mixed ^ mixed >> 27) * 0x94D049BB133111EB;
  return mixed ^ mixed >> 31;
}

std::string Changes::changed(const std::string& input, const std::vector<std::string>& others) {
  constexpr std::size_t kMost = 8;
  std::string result = input;
  for (std::size_t count = 1 + below(kMost); count > 0; --count) change(result, others);
  return result;
}

void Changes::change(std::string& input, const std::vector<std::string>& others) {
  const std::size_t at = below(input.size() + 1);
  const std::size_t length = below(std::min<std::size_t>(input.size() - at, 64) + 1);
  switch (below(8)) {
    case 0:
      if (at < input.size()) input[at] = static_cast<char>(input[at] ^ (1 << below(8)));
      break;
    case 1:
      if (at < input.size()) input[at] = static_cast<char>(next());
      break;
    case 2:
      input.insert(at, 1 + below(4), static_cast<char>(next()));
      break;
    case 3:
      input.erase(at, length);
      break;
    case 4:
      input.insert(at, input.substr(at, length));
      break;
    case 5:
      input.resize(at);
      break;
    case 6: {
      const std::string& other = others[below(others.size())];
      input.insert(at, other.substr(below(other.size() + 1), below(64)));
      break;
    }
    default:
      putNumber(input);
  }
}

void Changes::putNumber(std::string& input) {
  static const std::array<std::string, 10> kTexts{
      "0",           "-1",    "2147483647", "2147483648", "-2147483648",
      "-2147483649", "65536", "1e308",      "##",         std::string("\0", 1)};
  static const std::array<std::uint64_t, 8> kNumbers{
      0, 1, 0x7FFF, 0x8000, 0xFFFF, 0x7FFFFFFF, 0x80000000, 0xFFFFFFFFFFFFFFFF};
  const std::size_t at = below(input.size() + 1);
  if (below(2) == 0) {
    input.insert(at, kTexts[below(kTexts.size())]);
    return;
  }
  const std::uint64_t number = kNumbers[below(kNumbers.size())];
  const std::size_t size = std::size_t{1} << below(4);
  for (std::size_t i = 0; i < size && at + i < input.size(); ++i) {
    input[at + i] = static_cast<char>(number >> 8 * i);
  }
}

}  // namespace tessivo::fuzz
