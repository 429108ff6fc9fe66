#include "monitors/cMonitor.h"

#include <utility>

namespace tessivo {

cMonitor::cMonitor(MonitorHandle handle, DisplayInfo info)
    : handle_(handle), info_(std::move(info)) {}

std::optional<cMonitor> cMonitor::read(const Displays& displays, MonitorHandle handle) {
  auto info = displays.info(handle);
  if (!info) return std::nullopt;
  return cMonitor(handle, *std::move(info));
}

}  // namespace tessivo
