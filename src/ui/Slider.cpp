#include "ui/Slider.h"

#include <algorithm>

namespace tessivo::ui {

void Slider::setRange(std::int32_t min, std::int32_t max) {
  if (min_ == min && max_ == max) return;
  min_ = min;
  max_ = std::max(min, max);
  changed(Aspect::range);
  setValue(value_);
}

void Slider::setValue(std::int32_t value) {
  committed_ = std::clamp(value, min_, max_);
  if (value_ == committed_) return;
  value_ = committed_;
  changed(Aspect::value);
}

void Slider::drag(std::int32_t value) {
  value = std::clamp(value, min_, max_);
  if (!enabled() || value_ == value) return;
  value_ = value;
  changed(Aspect::value);
  onScroll.raise();
}

void Slider::commit() {
  if (committed_ == value_) return;
  committed_ = value_;
  onChange.raise();
}

}  // namespace tessivo::ui
