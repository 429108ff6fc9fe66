#pragma once

#include <cstdint>
#include <memory>

#include "base/Signal.h"
#include "platform/MTimer.h"

namespace tessivo {

/// A repeating timer for classes without a form, which poll. It needs no window and ticks in the
/// message loop. Ending a running one stops it; a listener of `ItsTime` may end it, too.
class TimerClass {
 public:
  explicit TimerClass(MTimer& timers) : timers_(timers) {}
  ~TimerClass() { boolEnabled(false); }
  TimerClass(const TimerClass&) = delete;
  TimerClass& operator=(const TimerClass&) = delete;

  /// Milliseconds.
  std::int32_t lngInterval() const { return lngInterval_; }
  /// Ignored while the timer runs (stop, set, start) and for values below 1.
  void lngInterval(std::int32_t ms);
  /// Whether it runs; stays false when the system has no timer left.
  bool boolEnabled() const { return boolEnabled_; }
  void boolEnabled(bool enabled);

  /// Once per tick.
  Signal<> ItsTime;

 private:
  void start();
  void stop();

  MTimer& timers_;
  std::int32_t lngInterval_ = 1000;
  bool boolEnabled_ = false;
  std::uint32_t identifier_ = 0;
  std::shared_ptr<TimerEvent> m_objTE_;
  Connection itsTimeToRaiseEvent_;
};

}  // namespace tessivo
