#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <unordered_map>

#include "base/Signal.h"
#include "platform/ThreadTimers.h"

namespace tessivo {

/// The relay between the timer procedure and one running `TimerClass`. Whoever holds it does not
/// hold the timer.
class TimerEvent {
 public:
  Signal<> ItsTimeToRaiseEvent;

 private:
  friend class MTimer;
  void raise() { ItsTimeToRaiseEvent.raise(); }
};

/// The program's one registry of running thread timers and their timer procedure. It knows relays
/// only, so a `TimerClass` ends when its owner lets it go, running or not; a tick that comes too
/// late finds no key and does nothing. Must outlive every `TimerClass`. User-interface thread only.
class MTimer : private TimerProcedure {
 public:
  explicit MTimer(ThreadTimers& system) : system_(system) {}
  MTimer(const MTimer&) = delete;
  MTimer& operator=(const MTimer&) = delete;

  /// Sets a system timer (milliseconds) that raises the relay on each tick. Returns its identifier,
  /// or 0 when the system has none; nothing is registered then.
  std::uint32_t start(std::int32_t intervalMs, std::shared_ptr<TimerEvent> relay);
  /// Kills the system timer and forgets its relay; an unknown identifier is ignored.
  void stop(std::uint32_t identifier);

  /// How many relays are registered.
  std::size_t count() const { return registry_.size(); }

 private:
  void timerProc(std::uint32_t identifier) override;
  /// The identifier in decimal and "K".
  static std::string keyOf(std::uint32_t identifier);

  ThreadTimers& system_;
  std::unordered_map<std::string, std::shared_ptr<TimerEvent>> registry_;
};

}  // namespace tessivo
