#include "monitors/cMonitors.h"

#include <algorithm>
#include <utility>

namespace tessivo {

cMonitors::cMonitors(const Displays& displays) : displays_(&displays) {
  Refresh();
}

bool cMonitors::AllMonitorsSame() const {
  return displays_->sameDisplayFormat();
}

std::optional<cMonitor> cMonitors::MonitorForPoint(std::int32_t x, std::int32_t y) const {
  return withHandle(displays_->fromPoint({x, y}));
}

std::optional<cMonitor> cMonitors::MonitorForWindow(WindowHandle hwnd) const {
  return withHandle(displays_->fromWindow(hwnd));
}

std::optional<std::int32_t> cMonitors::VirtualScreenLeft() const {
  if (monitors_.empty()) return std::nullopt;
  return std::ranges::min(monitors_, {}, &cMonitor::Left).Left();
}

std::optional<std::int32_t> cMonitors::VirtualScreenTop() const {
  if (monitors_.empty()) return std::nullopt;
  return std::ranges::min(monitors_, {}, &cMonitor::Top).Top();
}

std::int32_t cMonitors::VirtualScreenWidth() const {
  return displays_->virtualScreenWidth();
}

std::int32_t cMonitors::VirtualScreenHeight() const {
  return displays_->virtualScreenHeight();
}

std::int32_t cMonitors::DisplayMonitorCount() const {
  return displays_->displayMonitorCount();
}

std::int32_t cMonitors::MonitorCount() const {
  return static_cast<std::int32_t>(monitors_.size());
}

std::optional<cMonitor> cMonitors::Monitor(std::int32_t index) const {
  if (index < 1 || index > MonitorCount()) return std::nullopt;
  return monitors_[static_cast<std::size_t>(index) - 1];
}

std::int32_t cMonitors::primaryIndex() const {
  const auto primary = std::ranges::find_if(monitors_, &cMonitor::IsPrimary);
  if (primary == monitors_.end()) return 0;
  return static_cast<std::int32_t>(primary - monitors_.begin()) + 1;
}

void cMonitors::Refresh() {
  monitors_.clear();
  for (const MonitorHandle handle : displays_->enumerate()) add(handle);
}

void cMonitors::add(MonitorHandle handle) {
  if (auto monitor = cMonitor::read(*displays_, handle)) monitors_.push_back(*std::move(monitor));
}

std::optional<cMonitor> cMonitors::withHandle(MonitorHandle handle) const {
  const auto found = std::ranges::find(monitors_, handle, &cMonitor::hMonitor);
  if (handle == 0 || found == monitors_.end()) return std::nullopt;
  return *found;
}

}  // namespace tessivo
