#pragma once

#include "ui/Control.h"

namespace tessivo::ui {

/// A drop-down list of fixed entries, each carrying a number (its item data).
class ComboBox : public Control {
 public:
  using Control::Control;
  struct Item {
    std::string text;
    std::int32_t data = 0;
  };

  void addItem(std::string text, std::int32_t data);
  /// Takes all entries away.
  void clear();
  const std::vector<Item>& items() const { return items_; }
  /// Index of the chosen entry from 0; -1 when none is.
  int listIndex() const { return listIndex_; }
  /// Silent; an index outside the list chooses none.
  void setListIndex(int index);
  /// The user chooses an entry, also the one that is chosen already; raises `onClick`.
  void choose(int index);
  void accept(ControlVisitor& visitor) override;

 private:
  std::vector<Item> items_;
  int listIndex_ = -1;
};

}  // namespace tessivo::ui
