#pragma once

#include <windows.h>

#include "base/Geometry.h"
#include "platform/Log.h"
#include "platform/MouseButton.h"
#include "screen/engines/embedded/EngineEvent.h"

namespace tessivo {

/// The child window of an embedded engine: black, takes the mouse for the picture as well, and
/// receives the engine's events. Used on the user-interface thread only.
class EngineWindow {
 public:
  enum class Gesture { down, up, doubleClick };
  enum class Timer : UINT_PTR { heldStop = 1, lastPicture };

  /// The engine. Called from the window procedure; may destroy the window in any of the calls. What
  /// it throws ends in the log.
  class Owner {
   public:
    virtual ~Owner() = default;
    /// `inside`: the pointer is over the window (it need not be when a button is released).
    virtual void onMouse(Gesture gesture, MouseButton button, bool inside) = 0;
    virtual void onEngineEvent(EngineEvent event, WPARAM serial, std::int32_t value) = 0;
    virtual void onResized() = 0;
    virtual void onTimer(Timer timer) = 0;
  };

  /// `log` outlives the window.
  EngineWindow(Owner& owner, Log& log) : owner_(owner), log_(log) {}
  ~EngineWindow();
  EngineWindow(const EngineWindow&) = delete;
  EngineWindow& operator=(const EngineWindow&) = delete;

  /// Creates the window, hidden and without size. Without a parent there is no window and every
  /// operation does nothing.
  void open(HWND parent);

  HWND handle() const { return window_; }
  bool visible() const;
  /// Shown it is below the other windows in its parent, so that what those still show stays.
  void setVisible(bool visible);
  /// Counts as hidden from now on, and is to be seen until hideNow.
  void hideLater() { hidesLater_ = true; }
  void hideNow();
  void move(const Rect& pixels);

  /// Calls Owner::onTimer once, after so many milliseconds.
  void startTimer(Timer timer, UINT ms);
  void stopTimer(Timer timer);

 private:
  static LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
  LRESULT handle(UINT message, WPARAM wParam, LPARAM lParam);
  bool handleMouse(UINT message, LPARAM lParam);
  void press(Gesture gesture, MouseButton button);
  void release(MouseButton button, LPARAM point);

  Owner& owner_;
  Log& log_;
  HWND window_ = nullptr;
  bool hidesLater_ = false;
};

}  // namespace tessivo
