#include "ui/Control.h"

#include <utility>

namespace tessivo::ui {

Control::Control(Container* parent, std::string name) : name_(std::move(name)), parent_(parent) {
  if (parent_) parent_->children_.push_back(this);
}

Control::~Control() {
  if (parent_) std::erase(parent_->children_, this);
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
  if (peer_) peer_->setFocus();
}

void Control::repaint() {
  if (peer_) peer_->repaint();
}

}  // namespace tessivo::ui
