#include "monitors/AimMonitor.h"

namespace tessivo {
namespace {

template <typename Value>
std::optional<Value> get(const std::optional<cMonitor>& target,
                         Value (cMonitor::*property)() const) {
  if (!target) return std::nullopt;
  return ((*target).*property)();
}

}  // namespace

AimMonitor::AimMonitor(const Displays& displays) : monitors_(displays) {}

std::int16_t AimMonitor::intMonitorCount() const {
  return static_cast<std::int16_t>(monitors_.MonitorCount());
}

std::int16_t AimMonitor::GetAimMonitorIndex() {
  monitors_.Refresh();
  const std::int32_t index = chosenIndex();
  target_ = monitors_.Monitor(index);
  return static_cast<std::int16_t>(index);
}

std::int32_t AimMonitor::chosenIndex() const {
  const std::int32_t count = monitors_.MonitorCount();
  if (count < 1) return -1;
  if (count == 1) return 1;
  const std::int32_t primary = monitors_.primaryIndex();
  return primary == count ? primary - 1 : primary + 1;
}

std::optional<MonitorHandle> AimMonitor::hMonitor() const {
  return get(target_, &cMonitor::hMonitor);
}
std::optional<std::string> AimMonitor::name() const {
  return get(target_, &cMonitor::name);
}
std::optional<std::int32_t> AimMonitor::Left() const {
  return get(target_, &cMonitor::Left);
}
std::optional<std::int32_t> AimMonitor::Top() const {
  return get(target_, &cMonitor::Top);
}
std::optional<std::int32_t> AimMonitor::Width() const {
  return get(target_, &cMonitor::Width);
}
std::optional<std::int32_t> AimMonitor::Height() const {
  return get(target_, &cMonitor::Height);
}
std::optional<std::int32_t> AimMonitor::WorkLeft() const {
  return get(target_, &cMonitor::WorkLeft);
}
std::optional<std::int32_t> AimMonitor::WorkTop() const {
  return get(target_, &cMonitor::WorkTop);
}
std::optional<std::int32_t> AimMonitor::WorkWidth() const {
  return get(target_, &cMonitor::WorkWidth);
}
std::optional<std::int32_t> AimMonitor::WorkHeight() const {
  return get(target_, &cMonitor::WorkHeight);
}

}  // namespace tessivo
