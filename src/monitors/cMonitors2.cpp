#include "monitors/cMonitors2.h"

#include "monitors/cMonitors.h"

namespace tessivo {

cMonitors2::cMonitors2(const Displays& displays) : displays_(&displays) {}

void cMonitors2::GetMonitorArray() {
  const cMonitors monitors(*displays_);
  const std::int32_t primary = monitors.primaryIndex();
  ordered_.clear();
  if (primary > 0) ordered_.push_back(*monitors.Monitor(primary));
  for (std::int32_t i = 1; i <= monitors.MonitorCount(); ++i) {
    if (i != primary) ordered_.push_back(*monitors.Monitor(i));
  }
}

std::int32_t cMonitors2::lngMonitorsCount() const {
  return static_cast<std::int32_t>(ordered_.size());
}

std::optional<cMonitor> cMonitors2::objGetAMonitorByIndex(std::int32_t index) const {
  if (index < 1 || index > lngMonitorsCount()) return std::nullopt;
  return ordered_[static_cast<std::size_t>(index) - 1];
}

}  // namespace tessivo
