#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "monitors/cMonitor.h"
#include "platform/Displays.h"

namespace tessivo {

/// The monitors in the order shown to the user: the primary one first, the others in the order in
/// which the system reports them. The screen menu of the playback window and the search for the
/// monitor under the pointer go by this order.
class cMonitors2 {
 public:
  /// Empty until `GetMonitorArray` is called. `displays` must outlive this object.
  explicit cMonitors2(const Displays& displays);

  /// Builds the list from the monitors as they are now.
  void GetMonitorArray();
  /// How many monitors the list holds.
  std::int32_t lngMonitorsCount() const;
  /// The monitor at `index`; nothing when `index` is outside 1 … `lngMonitorsCount`.
  std::optional<cMonitor> objGetAMonitorByIndex(std::int32_t index) const;

 private:
  const Displays* displays_;
  std::vector<cMonitor> ordered_;
};

}  // namespace tessivo
