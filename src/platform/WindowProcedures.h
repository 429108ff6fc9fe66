#pragma once

#include <cstdint>

#include "platform/Displays.h"

namespace tessivo {

/// What a window receives of the mouse, as far as whoever replaces its procedure asks.
enum class WindowMessage {
  leftDown,
  leftUp,
  leftDoubleClick,
  rightDown,
  rightUp,
  rightDoubleClick,
  mouseMove,
  other
};

/// Replaces the procedures of this thread's windows that others wrote.
class WindowProcedures {
 public:
  /// Whoever has the replaced windows' messages. Outlives the replacement.
  class Filter {
   public:
    virtual ~Filter() = default;
    /// True: the message is consumed. Called inside the window's message handling.
    virtual bool consume(WindowHandle window, WindowMessage message) = 0;
    /// The procedure that the other messages go to; 0 when the window is not known.
    virtual std::uintptr_t previousProcedure(WindowHandle window) const = 0;
    /// The window is being destroyed; its procedure is back already.
    virtual void gone(WindowHandle window) = 0;
  };

  virtual ~WindowProcedures() = default;
  /// The previous procedure; 0 when the system refuses or the window belongs to another thread, and
  /// then nothing has changed. One filter
  /// serves all windows.
  virtual std::uintptr_t replace(WindowHandle window, Filter& filter) = 0;
  /// Gives the window its procedure back; one that has gone is ignored.
  virtual void restore(WindowHandle window, std::uintptr_t previous) = 0;
};

}  // namespace tessivo
