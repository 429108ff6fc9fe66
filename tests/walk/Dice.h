#pragma once

#include <cstdint>
#include <random>
#include <vector>

namespace tessivo::walk {

/// All the chance of a walk: the same seed gives the same walk.
class Dice {
 public:
  explicit Dice(std::uint64_t seed) : random_(seed) {}

  /// 0 … end - 1.
  int below(int end) { return static_cast<int>(random_() % static_cast<std::uint64_t>(end)); }
  int between(int from, int to) { return from + below(to - from + 1); }
  bool percent(int chances) { return below(100) < chances; }
  bool oneIn(int n) { return below(n) == 0; }
  template <typename T>
  const T& pick(const std::vector<T>& choices) {
    return choices[static_cast<std::size_t>(below(static_cast<int>(choices.size())))];
  }

 private:
  std::mt19937_64 random_;
};

}  // namespace tessivo::walk
