#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "monitors/cMonitor.h"
#include "monitors/cMonitors.h"
#include "platform/Displays.h"

namespace tessivo {

/// Which monitor the show goes to by default: the one reported just after the primary, or just
/// before it when the primary is the last one. With one monitor it is that one.
///
/// The target's properties are those of the last `GetAimMonitorIndex`; each is nothing while there
/// is no target (not asked for yet, or no monitor).
class AimMonitor {
 public:
  /// `displays` must outlive this object.
  explicit AimMonitor(const Displays& displays);

  /// How many monitors there were at the last reading.
  std::int16_t intMonitorCount() const;
  /// Reads the monitors anew, chooses the target, keeps it, and gives its index counted from 1 in
  /// the system's order; -1 when there is no monitor.
  std::int16_t GetAimMonitorIndex();

  std::optional<MonitorHandle> hMonitor() const;
  std::optional<std::string> name() const;
  std::optional<std::int32_t> Left() const;
  std::optional<std::int32_t> Top() const;
  std::optional<std::int32_t> Width() const;
  std::optional<std::int32_t> Height() const;
  std::optional<std::int32_t> WorkLeft() const;
  std::optional<std::int32_t> WorkTop() const;
  std::optional<std::int32_t> WorkWidth() const;
  std::optional<std::int32_t> WorkHeight() const;

 private:
  std::int32_t chosenIndex() const;

  cMonitors monitors_;
  std::optional<cMonitor> target_;
};

}  // namespace tessivo
