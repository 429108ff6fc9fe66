#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace tessivo::fuzz {

/// Changes inputs a little, the same way in every run.
class Changes {
 public:
  explicit Changes(std::uint64_t seed) : state_(seed) {}

  /// The input with one to eight changes: bits and bytes, parts taken out, doubled or put in from
  /// one of the others, numbers at the ends of their range.
  std::string changed(const std::string& input, const std::vector<std::string>& others);

 private:
  std::uint64_t next();
  std::size_t below(std::size_t end) { return end == 0 ? 0 : next() % end; }
  void change(std::string& input, const std::vector<std::string>& others);
  void putNumber(std::string& input);

  std::uint64_t state_;
};

}  // namespace tessivo::fuzz
