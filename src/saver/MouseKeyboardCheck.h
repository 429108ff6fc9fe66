#pragma once

#include <cstdint>

#include "base/Signal.h"
#include "platform/IdleInput.h"
#include "platform/TimerClass.h"

namespace tessivo {

/// What a `MouseKeyboardCheck` does now.
namespace idleState {
inline constexpr std::int32_t kIdle = 1;    ///< idleness was reported; waits for the user
inline constexpr std::int32_t kActive = 2;  ///< the user is active; waits for idleness
inline constexpr std::int32_t kStopped = 3;
}  // namespace idleState

/// Watches the machine's keyboard and mouse: tells once when the user has been idle for more than
/// some minutes, and once when he is active again. Which of the two it waits for, it changes by
/// itself. It polls; the screen-saver controller has the only one.
class MouseKeyboardCheck {
 public:
  MouseKeyboardCheck(const IdleInput& input, MTimer& timers);

  /// Milliseconds between two looks. A new value takes effect at once, a running watch goes on.
  std::int32_t lngCheckMilliSecondsValue() const { return lngCheckMilliSecondsValue_; }
  void lngCheckMilliSecondsValue(std::int32_t ms);
  /// Minutes without input after which the user counts as idle. Once it has been set to 0 or less
  /// it stays there for good.
  void lngFreeMinute(std::int32_t minutes);
  /// Always 0, whatever was set.
  static std::int32_t lngFreeMinute() { return 0; }
  /// One of `idleState`. Nothing happens when the value is the present one or no state; nor does
  /// the watch begin or turn when the system does not tell the last input.
  std::int32_t lngWorkState() const { return lngWorkState_; }
  void lngWorkState(std::int32_t state);

  Signal<> UserIsActive;
  Signal<> ComputerIsIdle;

 private:
  void watchFor(std::int32_t state);
  void stop();
  void tick();
  bool isIdle() const;

  const IdleInput& input_;
  std::int32_t lngCheckMilliSecondsValue_ = 1000;
  std::int32_t lngFreeMinute_ = 1;
  std::int32_t lngWorkState_ = idleState::kStopped;
  std::uint32_t lastInputTick_ = 0;
  TimerClass m_objTimer_;
};

}  // namespace tessivo
