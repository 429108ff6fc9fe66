#include "ui/ComboBox.h"

#include <utility>

namespace tessivo::ui {

void ComboBox::addItem(std::string text, std::int32_t data) {
  items_.push_back({std::move(text), data});
  changed(Aspect::items);
}

void ComboBox::clear() {
  items_.clear();
  listIndex_ = -1;
  changed(Aspect::items);
}

void ComboBox::setListIndex(int index) {
  if (index < 0 || index >= static_cast<int>(items_.size())) index = -1;
  if (listIndex_ == index) return;
  listIndex_ = index;
  changed(Aspect::value);
}

void ComboBox::choose(int index) {
  if (!enabled() || index < 0 || index >= static_cast<int>(items_.size())) return;
  setListIndex(index);
  click();
}

}  // namespace tessivo::ui
