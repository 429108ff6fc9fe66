#pragma once

#include <cstdint>
#include <functional>

namespace tessivo {

/// Repeating timers on the user-interface thread. A timer that was stopped never fires again, also
/// not with a tick that was already under way.
class TimerService {
 public:
  using Id = std::uint64_t;
  virtual ~TimerService() = default;
  /// Calls `onTick` every `intervalMs` (1 or more) until stopped. Never returns an Id twice.
  virtual Id start(int intervalMs, std::function<void()> onTick) = 0;
  /// An unknown Id is ignored.
  virtual void stop(Id id) = 0;
};

}  // namespace tessivo
