#include "ssp/SlideOrder.h"

#include <algorithm>
#include <array>
#include <utility>

#include "base/Text.h"

namespace tessivo::ssp {

bool isPictureName(std::string_view name) {
  constexpr std::array<std::string_view, 7> kEndings{"JPG", "JPEG", "PNG", "BMP",
                                                     "GIF", "TIF",  "TIFF"};
  const auto dot = name.rfind('.');
  if (dot == std::string_view::npos) return false;
  const std::string ending = toUpper(name.substr(dot + 1));
  return std::find(kEndings.begin(), kEndings.end(), ending) != kEndings.end();
}

void SlideOrder::begin(std::vector<std::string> names, PictureOrder order) {
  names_ = std::move(names);
  position_ = 0;
  std::sort(names_.begin(), names_.end(), [](const std::string& a, const std::string& b) {
    return std::pair(toUpper(a), a) < std::pair(toUpper(b), b);
  });
  if (order == PictureOrder::random) shuffle();
}

std::optional<std::string> SlideOrder::next() {
  if (position_ == names_.size()) return std::nullopt;
  last_ = names_[position_++];
  return last_;
}

void SlideOrder::shuffle() {
  std::shuffle(names_.begin(), names_.end(), random_);
  if (names_.size() < 2 || names_.front() != last_) return;
  std::uniform_int_distribution<std::size_t> others(1, names_.size() - 1);
  std::swap(names_.front(), names_[others(random_)]);
}

}  // namespace tessivo::ssp
