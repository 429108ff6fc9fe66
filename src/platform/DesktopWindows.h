#pragma once

#include <string>

#include "base/Geometry.h"
#include "platform/Displays.h"

namespace tessivo {

/// Questions about windows, our own and those of others. A window that has gone gives 0, an empty
/// text or false.
class DesktopWindows {
 public:
  virtual ~DesktopWindows() = default;
  /// The window that the mouse would reach at a point of the virtual screen, in pixels.
  virtual WindowHandle under(Point screen) const = 0;
  /// Whether the mouse would reach that window there. Cheap where the point is far from it.
  virtual bool isUnder(WindowHandle window, Point screen) const = 0;
  virtual WindowHandle parentOf(WindowHandle window) const = 0;
  virtual std::string classOf(WindowHandle window) const = 0;
  virtual std::string titleOf(WindowHandle window) const = 0;
  /// Whether this process made it.
  virtual bool isOurs(WindowHandle window) const = 0;
  /// A point of the window's client area on the virtual screen, in pixels.
  virtual Point toScreen(WindowHandle window, Point client) const = 0;
  /// Asks the window to close (`WM_CLOSE`), without waiting.
  virtual void postClose(WindowHandle window) const = 0;
};

}  // namespace tessivo
