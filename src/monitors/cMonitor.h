#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "platform/Displays.h"

namespace tessivo {

/// One display monitor as it was when it was read: nothing here follows later changes. Rectangles
/// in pixels of the virtual screen, so `Left` and `Top` may be negative.
class cMonitor {
 public:
  /// What the system says of the monitor with this handle; nothing when there is no such monitor
  /// (it may have gone since its handle was obtained).
  static std::optional<cMonitor> read(const Displays& displays, MonitorHandle handle);

  bool IsPrimary() const { return info_.isPrimary; }
  MonitorHandle hMonitor() const { return handle_; }
  /// The display device name that the system gives, for example `\\.\DISPLAY1`.
  std::string name() const { return info_.name; }

  std::int32_t Left() const { return info_.monitor.left; }
  std::int32_t Top() const { return info_.monitor.top; }
  std::int32_t Width() const { return info_.monitor.width; }
  std::int32_t Height() const { return info_.monitor.height; }

  /// The work area: the monitor without task bars.
  std::int32_t WorkLeft() const { return info_.work.left; }
  std::int32_t WorkTop() const { return info_.work.top; }
  std::int32_t WorkWidth() const { return info_.work.width; }
  std::int32_t WorkHeight() const { return info_.work.height; }

 private:
  cMonitor(MonitorHandle handle, DisplayInfo info);

  MonitorHandle handle_;
  DisplayInfo info_;
};

}  // namespace tessivo
