#include "ui/Control.h"

#include <utility>

namespace tessivo::ui {

Control::Control(Container* parent, std::string name) : name_(std::move(name)), parent_(parent) {
  if (parent_) parent_->children_.push_back(this);
}

Control::~Control() {
  if (!parent_) return;
  if (hasFocus()) root().focus_ = nullptr;
  std::erase(parent_->children_, this);
}

Container& Control::root() const {
  Container* at = parent_;
  while (at->parent_) at = at->parent_;
  return *at;
}

void Control::setBounds(const Rect& twips) {
  if (bounds_ == twips) return;
  bounds_ = twips;
  changed(Aspect::bounds);
}

void Control::setVisible(bool visible) {
  if (visible_ == visible) return;
  visible_ = visible;
  changed(Aspect::visible);
}

void Control::setEnabled(bool enabled) {
  if (enabled_ == enabled) return;
  enabled_ = enabled;
  changed(Aspect::enabled);
}

void Control::setToolTip(std::string text) {
  if (toolTip_ == text) return;
  toolTip_ = std::move(text);
  changed(Aspect::toolTip);
}

void Control::setColours(std::optional<Colour> fore, std::optional<Colour> back) {
  foreColour_ = fore;
  backColour_ = back;
  changed(Aspect::colours);
}

void Control::setPointerShape(PointerShape shape) {
  if (pointerShape_ == shape) return;
  pointerShape_ = shape;
  changed(Aspect::pointer);
}

void Control::bringToFront() {
  if (peer_) peer_->bringToFront();
}

void Control::setFocus() {
  if (parent_) root().focus_ = this;
  if (peer_) peer_->setFocus();
}

bool Control::hasFocus() const {
  return parent_ && root().focus_ == this;
}

void Control::gainFocus() {
  if (parent_) root().focus_ = this;
}

void Control::repaint() {
  if (peer_) peer_->repaint();
}

}  // namespace tessivo::ui
