#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "monitors/cMonitor.h"
#include "platform/Displays.h"

namespace tessivo {

/// The monitors in the order in which the system reports them, counted from 1. The list is the one
/// of the last `Refresh`; what is asked of the system (the display count, the colour formats, the
/// virtual screen's size, the monitor under a point or a window) is asked anew at each call.
///
/// Used by `cMonitors2` and `AimMonitor`; monitors are handed out as copies, so a later `Refresh`
/// leaves them alone.
class cMonitors {
 public:
  /// Refreshes itself. `displays` must outlive this object.
  explicit cMonitors(const Displays& displays);

  /// Whether all display monitors have the same colour format.
  bool AllMonitorsSame() const;
  /// The listed monitor that holds the point (pixels); nothing when none does.
  std::optional<cMonitor> MonitorForPoint(std::int32_t x, std::int32_t y) const;
  /// The listed monitor that holds most of the window; nothing when it touches none.
  std::optional<cMonitor> MonitorForWindow(WindowHandle hwnd) const;

  /// The smallest left edge of the listed monitors; nothing when the list is empty.
  std::optional<std::int32_t> VirtualScreenLeft() const;
  /// The smallest top edge of the listed monitors; nothing when the list is empty.
  std::optional<std::int32_t> VirtualScreenTop() const;
  /// The system's own figure (pixels), unlike left and top, which come from the list.
  std::int32_t VirtualScreenWidth() const;
  std::int32_t VirtualScreenHeight() const;

  /// The system's count of display monitors; may differ from `MonitorCount`.
  std::int32_t DisplayMonitorCount() const;
  /// How many monitors the list holds.
  std::int32_t MonitorCount() const;
  /// The monitor at `index`; nothing when `index` is outside 1 … `MonitorCount`.
  std::optional<cMonitor> Monitor(std::int32_t index) const;
  /// The first index whose monitor is the primary one; 0 when there is none.
  std::int32_t primaryIndex() const;

  /// Reads the list anew. A monitor that goes away while it is being read is left out.
  void Refresh();

 private:
  void add(MonitorHandle handle);
  std::optional<cMonitor> withHandle(MonitorHandle handle) const;

  const Displays* displays_;
  std::vector<cMonitor> monitors_;
};

}  // namespace tessivo
