#include "ui/Form.h"

#include <algorithm>
#include <utility>

namespace tessivo::ui {
namespace {

// The frame of a form that has no window behind it, in pixels: what a usual desktop draws.
constexpr std::int32_t kModelFrame = 4;
constexpr std::int32_t kModelCaption = 22;

void detach(Container& container) {
  for (Control* child : container.children()) {
    if (auto* inner = dynamic_cast<Container*>(child)) detach(*inner);
    // The analyzer takes the cast that failed for a child that is not there.
    child->detachPeer();  // NOLINT(clang-analyzer-core.CallAndMessage)
  }
}

void rescale(Container& container) {
  for (Control* child : container.children()) {
    if (child->peer()) child->peer()->changed(Aspect::scale);
    if (auto* inner = dynamic_cast<Container*>(child)) rescale(*inner);
  }
}

}  // namespace

Form::Form(std::string name, std::string caption, TwipsPerPixel twipsPerPixel)
    : Container(nullptr, std::move(name)),
      caption_(std::move(caption)),
      twipsPerPixel_(twipsPerPixel) {
  setVisible(false);
}

Form::~Form() {
  setOwner(nullptr);
  for (Form* form : owned_) form->owner_ = nullptr;
}

void Form::setOwner(Form* owner) {
  if (owner_) std::erase(owner_->owned_, this);
  owner_ = owner;
  if (owner_) owner_->owned_.push_back(this);
}

void Form::setBounds(const Rect& twips) {
  // With a window behind it the form hears from the peer what became of the placement.
  peer() ? Control::setBounds(twips) : noteMoved(twips);
}

void Form::setInnerSize(std::int32_t width, std::int32_t height) {
  const Rect inner = innerSize();
  setBounds(
      {left(), top(), this->width() - inner.width + width, this->height() - inner.height + height});
}

void Form::setCaption(std::string caption) {
  if (caption_ == caption) return;
  caption_ = std::move(caption);
  changed(Aspect::caption);
}

void Form::setBoxes(bool controlBox, bool minButton, bool maxButton) {
  controlBox_ = controlBox;
  minButton_ = minButton;
  maxButton_ = maxButton;
  frameStyle_ = frame::kCaption | frame::kSizingFrame | (controlBox ? frame::kSystemMenu : 0) |
                (minButton ? frame::kMinimiseBox : 0) | (maxButton ? frame::kMaximiseBox : 0);
}

Rect Form::windowRect() const {
  if (peer()) return formPeer()->windowRect();
  return {toPixels(left(), twipsPerPixel_.x), toPixels(top(), twipsPerPixel_.y),
          toPixels(width(), twipsPerPixel_.x), toPixels(height(), twipsPerPixel_.y)};
}

Rect Form::innerSize() const {
  if (peer()) return formPeer()->innerSize();
  const std::int32_t border = frameStyle_ & frame::kSizingFrame ? kModelFrame : 0;
  const std::int32_t title = (frameStyle_ & frame::kCaption) == frame::kCaption ? kModelCaption : 0;
  return {0, 0, std::max(0, width() - toTwips(2 * border, twipsPerPixel_.x)),
          std::max(0, height() - toTwips(2 * border + title, twipsPerPixel_.y))};
}

void Form::setWindowState(WindowState state) {
  if (windowState_ == state) return;
  windowState_ = state;
  if (peer()) formPeer()->windowStateChanged();
}

void Form::setFrameStyle(std::uint32_t bits) {
  frameStyle_ = bits;
  if (peer()) formPeer()->frameStyleChanged();
}

void Form::setWindowPos(const Rect& pixels) {
  if (peer()) {
    formPeer()->setWindowPos(pixels);
    return;
  }
  noteMoved({toTwips(pixels.left, twipsPerPixel_.x), toTwips(pixels.top, twipsPerPixel_.y),
             toTwips(pixels.width, twipsPerPixel_.x), toTwips(pixels.height, twipsPerPixel_.y)});
}

void Form::setTopmost(bool topmost) {
  if (topmost_ == topmost) return;
  topmost_ = topmost;
  if (peer()) formPeer()->topmostChanged();
  // Dialogs stay above their owner.
  for (Form* form : owned_) form->setTopmost(topmost);
}

void Form::activate() {
  if (peer()) formPeer()->activate();
}

void Form::unload() {
  const auto owned = owned_;
  for (Form* form : owned) form->unload();
  onUnload.raise();
  setVisible(false);
  detach(*this);
  detachPeer();
}

void Form::popupMenu(MenuItem& menu, std::optional<Point> at) {
  onPopup.raise(menu);
  if (!peer()) return;
  if (MenuItem* chosen = formPeer()->popupMenu(menu, at)) chosen->choose();
}

bool Form::pressKey(KeyPress press) {
  onKey.raise(press);
  return press.handled;
}

void Form::noteTwipsPerPixel(TwipsPerPixel twips) {
  twipsPerPixel_ = twips;
  rescale(*this);
}

void Form::noteMoved(const Rect& twips) {
  const bool resized = twips.width != width() || twips.height != height();
  noteBounds(twips);
  if (resized) onResize.raise();
}

void Form::noteWindowState(WindowState state) {
  windowState_ = state;
}

}  // namespace tessivo::ui
