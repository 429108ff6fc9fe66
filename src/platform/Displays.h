#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "base/Geometry.h"
#include "base/Twips.h"

namespace tessivo {

/// The system's handle of a monitor; 0 is none.
using MonitorHandle = std::uintptr_t;
/// The system's handle of a window; 0 is none.
using WindowHandle = std::uintptr_t;

/// What the system says of one monitor. Rectangles in pixels of the virtual screen.
struct DisplayInfo {
  bool isPrimary = false;
  std::string name;  ///< display device name
  Rect monitor;
  Rect work;  ///< without task bars
};

/// The system's view of the display monitors.
class Displays {
 public:
  virtual ~Displays() = default;
  /// The monitors in the order in which the system reports them.
  virtual std::vector<MonitorHandle> enumerate() const = 0;
  /// Nothing when the handle names no monitor (any more).
  virtual std::optional<DisplayInfo> info(MonitorHandle monitor) const = 0;
  /// The monitor that holds the point; 0 when none does.
  virtual MonitorHandle fromPoint(Point point) const = 0;
  /// The monitor that holds most of the window; 0 when the window touches none.
  virtual MonitorHandle fromWindow(WindowHandle window) const = 0;
  /// The system's count of display monitors.
  virtual int displayMonitorCount() const = 0;
  /// Whether all monitors have the same colour format.
  virtual bool sameDisplayFormat() const = 0;
  virtual int virtualScreenWidth() const = 0;   ///< pixels
  virtual int virtualScreenHeight() const = 0;  ///< pixels
  /// The primary screen's size in pixels.
  virtual Rect primaryScreen() const = 0;
  /// Fixed for the life of the process.
  virtual TwipsPerPixel twipsPerPixel() const = 0;
};

}  // namespace tessivo
