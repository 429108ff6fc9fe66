#pragma once

#include "ui/Control.h"

namespace tessivo::ui {

/// A row of tabs; it holds no pages, its owner shows and hides them.
class TabStrip : public Control {
 public:
  using Control::Control;
  void addTab(std::string caption) {
    tabs_.push_back(std::move(caption));
    changed(Aspect::items);
  }
  const std::vector<std::string>& tabs() const { return tabs_; }
  /// Number of the selected tab, from 1.
  int selected() const { return selected_; }
  /// Silent.
  void setSelected(int tab) {
    if (selected_ == tab) return;
    selected_ = tab;
    changed(Aspect::value);
  }
  /// The user clicks a tab, also the selected one; raises `onClick`.
  void choose(int tab) {
    setSelected(tab);
    click();
  }
  void accept(ControlVisitor& visitor) override;

 private:
  std::vector<std::string> tabs_;
  int selected_ = 1;
};

}  // namespace tessivo::ui
