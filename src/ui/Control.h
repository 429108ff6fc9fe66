#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/Geometry.h"
#include "base/Signal.h"
#include "platform/MouseButton.h"
#include "ui/Peer.h"

namespace tessivo::ui {

class Container;
class ControlVisitor;

/// A mouse event of a control; x and y in twips from the control's upper left corner.
struct MouseEvent {
  MouseButton button = MouseButton::left;
  std::int32_t x = 0;
  std::int32_t y = 0;
};

/// Key codes are the system's virtual-key codes (33 page up … 40 arrow down).
using KeyCode = int;

/// Colours as 0xRRGGBB.
using Colour = std::uint32_t;

/// What the mouse pointer looks like over a control; `standard` is the control's usual shape.
enum class PointerShape { standard, sizeVertical, hand, busy };

/// What every control of a form has. A plain object: without a peer it has no window behind it and
/// works all the same. Bounds are in twips inside the parent. `set…` is what the program does and
/// raises no event; the user's verbs (`click`, `mouse…`, `key…`) raise theirs.
class Control {
 public:
  /// Belongs to `parent` (nothing for a form), which must outlive it.
  Control(Container* parent, std::string name);
  virtual ~Control();
  Control(const Control&) = delete;
  Control& operator=(const Control&) = delete;

  const std::string& name() const { return name_; }
  Container* parent() const { return parent_; }

  const Rect& bounds() const { return bounds_; }
  void setBounds(const Rect& twips);
  bool visible() const { return visible_; }
  void setVisible(bool visible);
  bool enabled() const { return enabled_; }
  void setEnabled(bool enabled);
  /// A small state field of the program's; no peer sees it.
  const std::string& tag() const { return tag_; }
  void setTag(std::string tag) { tag_ = std::move(tag); }
  const std::string& toolTip() const { return toolTip_; }
  void setToolTip(std::string text);
  /// What a screen reader calls a control that shows no text of its own, or a button whose text
  /// does not tell it from another. Before the form is opened.
  const std::string& accessibleName() const { return accessibleName_; }
  void setAccessibleName(std::string text) { accessibleName_ = std::move(text); }
  /// Nothing: the system's colour.
  std::optional<Colour> foreColour() const { return foreColour_; }
  std::optional<Colour> backColour() const { return backColour_; }
  void setColours(std::optional<Colour> fore, std::optional<Colour> back);
  PointerShape pointerShape() const { return pointerShape_; }
  /// On a form other than `standard`: for all its controls too.
  void setPointerShape(PointerShape shape);
  /// Whether the keyboard can go to this kind of control.
  virtual bool focusable() const { return true; }

  void bringToFront();
  /// Gives the control the keyboard: now when its form is active, else when it becomes so.
  void setFocus();
  bool hasFocus() const;
  void repaint();
  /// 0 without a peer.
  WindowHandle nativeHandle() const { return peer_ ? peer_->nativeHandle() : 0; }

  // What the user does.
  virtual void click() { onClick.raise(); }
  void doubleClick() { onDoubleClick.raise(); }
  void mouseDown(const MouseEvent& event) { onMouseDown.raise(event); }
  void mouseMove(const MouseEvent& event) { onMouseMove.raise(event); }
  void mouseUp(const MouseEvent& event) { onMouseUp.raise(event); }
  void keyDown(KeyCode key) { onKeyDown.raise(key); }
  void keyUp(KeyCode key) { onKeyUp.raise(key); }
  void gainFocus();
  void loseFocus() { onLoseFocus.raise(); }

  Signal<> onClick;
  Signal<> onDoubleClick;
  Signal<MouseEvent> onMouseDown;
  Signal<MouseEvent> onMouseMove;
  Signal<MouseEvent> onMouseUp;
  Signal<KeyCode> onKeyDown;
  Signal<KeyCode> onKeyUp;
  /// The keyboard went elsewhere; the release of a key that is down will not come here.
  Signal<> onLoseFocus;

  virtual void accept(ControlVisitor& visitor) = 0;

  /// Called by the toolkit alone.
  void attachPeer(std::unique_ptr<Peer> peer) { peer_ = std::move(peer); }
  void detachPeer() { peer_.reset(); }
  Peer* peer() const { return peer_.get(); }

 protected:
  void changed(Aspect aspect) {
    if (peer_) peer_->changed(aspect);
  }
  /// Stores bounds that come from the real control.
  void noteBounds(const Rect& twips) { bounds_ = twips; }

 private:
  Container& root() const;  ///< of a control that has a parent

  std::string name_;
  Container* parent_;
  Rect bounds_;
  bool visible_ = true;
  bool enabled_ = true;
  std::string tag_;
  std::string toolTip_;
  std::string accessibleName_;
  std::optional<Colour> foreColour_;
  std::optional<Colour> backColour_;
  PointerShape pointerShape_ = PointerShape::standard;
  std::unique_ptr<Peer> peer_;
};

/// A control that holds others, in tab order.
class Container : public Control {
 public:
  using Control::Control;
  const std::vector<Control*>& children() const { return children_; }
  bool focusable() const override { return false; }

 private:
  friend class Control;
  std::vector<Control*> children_;
  const Control* focus_ = nullptr;  ///< of a form: the control that has the keyboard, or gets it
};

}  // namespace tessivo::ui
