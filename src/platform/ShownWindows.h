#pragma once

#include <functional>

#include "platform/Displays.h"

namespace tessivo {

/// A window of this thread that is being shown.
struct ShownWindow {
  WindowHandle window = 0;
  WindowHandle rootOwner = 0;  ///< the end of its chain of owners; itself when it has none
  bool isChild = false;        ///< part of another window
  bool hasCaption = false;
  bool isOurs = false;  ///< of a class that the program itself has registered
};

/// Tells of the windows that this thread shows, whoever makes them.
class ShownWindows {
 public:
  virtual ~ShownWindows() = default;
  /// `onShown` is called inside the window's message handling, perhaps twice for one showing: it
  /// only takes note.
  virtual void watch(std::function<void(const ShownWindow&)> onShown) = 0;
  virtual void stop() = 0;
};

}  // namespace tessivo
