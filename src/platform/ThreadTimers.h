#pragma once

#include <cstdint>

namespace tessivo {

/// What the system calls on each tick.
class TimerProcedure {
 public:
  virtual ~TimerProcedure() = default;
  /// The identifier is that of the timer that ticks.
  virtual void timerProc(std::uint32_t identifier) = 0;
};

/// The system's timers of a thread, which need no window. They tick in the message loop of the
/// thread that set them. `MTimer` alone uses them; everybody else takes a `TimerClass`.
class ThreadTimers {
 public:
  virtual ~ThreadTimers() = default;
  /// Starts a repeating timer (milliseconds); the procedure must outlive it. Returns the timer's
  /// identifier, which is free again after `kill`, or 0 on failure.
  virtual std::uint32_t set(std::int32_t intervalMs, TimerProcedure& procedure) = 0;
  /// An unknown identifier is ignored.
  virtual void kill(std::uint32_t identifier) = 0;
};

}  // namespace tessivo
