#pragma once

#include <windows.h>

#include <memory>

#include "ui/Control.h"

namespace tessivo::ui {

/// Turns the mouse and key messages of one window into the user's verbs of its model. Presses,
/// moves and keys down come before the system's own handling of the message, releases after it: so
/// the order is press, what the control made of it, release.
class InputVerbs {
 public:
  /// What the system's control does not do by itself.
  struct Extras {
    bool clicks = false;          ///< a press and release inside the window is a click
    bool captures = false;        ///< the pointer is followed outside the window while pressed
    bool ownRightButton = false;  ///< the peer reports the right button's release itself
  };

  /// `twips` may change while this object lives.
  InputVerbs(Control& model, const TwipsPerPixel& twips, Extras extras)
      : model_(model), twips_(twips), extras_(extras) {}
  ~InputVerbs() { *alive_ = false; }
  InputVerbs(const InputVerbs&) = delete;
  InputVerbs& operator=(const InputVerbs&) = delete;

  /// Both may end the life of this object and its peer.
  void before(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
  void after(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

  /// Becomes false when the peer is gone.
  std::shared_ptr<const bool> alive() const { return alive_; }

  MouseEvent eventAt(MouseButton button, POINT pixels) const;

 private:
  void press(HWND window, MouseButton button, LPARAM position, bool isDouble);
  void release(HWND window, MouseButton button, LPARAM position);
  void loseCapture();
  bool reports(MouseButton button) const {
    return button != MouseButton::right || !extras_.ownRightButton;
  }

  Control& model_;
  const TwipsPerPixel& twips_;
  Extras extras_;
  unsigned pressed_ = 0;       ///< the buttons that went down here
  bool clickPending_ = false;  ///< the left button went down here, and not for a double click
  MouseEvent last_;
  std::shared_ptr<bool> alive_ = std::make_shared<bool>(true);
};

}  // namespace tessivo::ui
