#pragma once

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "base/Signal.h"

namespace tessivo::ui {

/// An entry of a menu, or a whole menu: an entry with entries below it. A caption of "-" is a
/// separator. The items below belong to this one.
class MenuItem {
 public:
  MenuItem(std::string name, std::string caption)
      : name_(std::move(name)), caption_(std::move(caption)) {}

  const std::string& name() const { return name_; }
  const std::string& caption() const { return caption_; }
  void setCaption(std::string caption) { caption_ = std::move(caption); }
  bool visible() const { return visible_; }
  void setVisible(bool visible) { visible_ = visible; }
  bool enabled() const { return enabled_; }
  void setEnabled(bool enabled) { enabled_ = enabled; }
  /// The entry that a double click on whatever has the menu stands for; drawn in bold.
  bool isDefault() const { return isDefault_; }
  void setDefault(bool isDefault) { isDefault_ = isDefault; }
  bool isSeparator() const { return caption_ == "-"; }

  MenuItem& add(std::string name, std::string caption) {
    items_.push_back(std::make_unique<MenuItem>(std::move(name), std::move(caption)));
    return *items_.back();
  }
  MenuItem& addSeparator(std::string name) { return add(std::move(name), "-"); }
  /// Removes the entries from `count` on.
  void shrinkTo(std::size_t count) {
    if (count < items_.size()) items_.resize(count);
  }
  std::size_t count() const { return items_.size(); }
  MenuItem& item(std::size_t index) { return *items_[index]; }
  const MenuItem& item(std::size_t index) const { return *items_[index]; }

  /// What the user does: an entry that is off or hidden cannot be chosen.
  void choose() {
    if (enabled_ && visible_) onClick.raise();
  }
  Signal<> onClick;

 private:
  std::string name_;
  std::string caption_;
  bool visible_ = true;
  bool enabled_ = true;
  bool isDefault_ = false;
  std::vector<std::unique_ptr<MenuItem>> items_;
};

}  // namespace tessivo::ui
