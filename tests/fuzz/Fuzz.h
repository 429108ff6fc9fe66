#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <span>
#include <string>
#include <type_traits>

/// The entry of a target, which libFuzzer and the regression run (RunCorpus.cpp) call with each
/// input. It must come through every input; what must hold is checked with `holds`.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace tessivo::fuzz {

/// Each target says how many changed copies of each file of its corpus the regression run tries.
extern const int kChangesPerFile;

/// Ends the process, as a crash does, when something does not hold that must.
inline void holds(bool condition, const char* what) {
  if (condition) return;
  std::fprintf(stderr, "does not hold: %s\n", what);
  std::abort();
}

/// Takes an input apart from its beginning. What is asked for behind the end is empty or 0.
class Input {
 public:
  Input(const std::uint8_t* data, std::size_t size) : rest_(data, size) {}

  bool atEnd() const { return rest_.empty(); }
  std::uint8_t byte() {
    if (rest_.empty()) return 0;
    const std::uint8_t first = rest_.front();
    rest_ = rest_.subspan(1);
    return first;
  }
  /// The low byte first.
  template <typename Integer>
  Integer integer() {
    std::make_unsigned_t<Integer> number = 0;
    for (std::size_t i = 0; i < sizeof number; ++i) {
      number =
          static_cast<decltype(number)>(number | static_cast<decltype(number)>(byte()) << (8 * i));
    }
    return static_cast<Integer>(number);
  }
  std::string text(std::size_t length) {
    const auto part = rest_.first(length < rest_.size() ? length : rest_.size());
    rest_ = rest_.subspan(part.size());
    return {part.begin(), part.end()};
  }
  /// Up to the end of the line, which is not part of it.
  std::string line() {
    std::size_t length = 0;
    while (length < rest_.size() && rest_[length] != '\n') ++length;
    std::string found = text(length);
    byte();
    return found;
  }
  std::span<const std::uint8_t> bytes() const { return rest_; }
  std::string rest() { return text(rest_.size()); }

 private:
  std::span<const std::uint8_t> rest_;
};

}  // namespace tessivo::fuzz
