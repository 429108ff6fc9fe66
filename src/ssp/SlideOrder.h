#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <random>
#include <string>
#include <string_view>
#include <vector>

#include "ssp/PictureSettings.h"

namespace tessivo::ssp {

/// Whether the file's name says that it is a picture that can be shown: .jpg, .jpeg, .png, .bmp,
/// .gif, .tif or .tiff in any case.
bool isPictureName(std::string_view name);

/// In which order pictures come: rounds in which each comes once.
class SlideOrder {
 public:
  explicit SlideOrder(std::uint32_t seed) : random_(seed) {}

  /// A new round of these names. By name: ASCII letters compared without regard to case, all else
  /// by its bytes. At random: never the one first that came last before.
  void begin(std::vector<std::string> names, PictureOrder order);
  /// Nothing when the round is over.
  std::optional<std::string> next();

 private:
  void shuffle();

  std::mt19937 random_;
  std::vector<std::string> names_;
  std::size_t position_ = 0;
  std::string last_;
};

}  // namespace tessivo::ssp
