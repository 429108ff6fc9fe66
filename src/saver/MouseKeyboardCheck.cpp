#include "saver/MouseKeyboardCheck.h"

#include <cmath>

#include "base/In32Bits.h"
#include "base/Rounding.h"

namespace tessivo {
namespace {

constexpr double kMsPerSecond = 1000;
constexpr std::int64_t kSecondsPerMinute = 60;

}  // namespace

MouseKeyboardCheck::MouseKeyboardCheck(const IdleInput& input, MTimer& timers)
    : input_(input), m_objTimer_(timers) {
  m_objTimer_.lngInterval(lngCheckMilliSecondsValue_);
  m_objTimer_.ItsTime.listen([this] { tick(); });
}

void MouseKeyboardCheck::lngCheckMilliSecondsValue(std::int32_t ms) {
  if (ms == lngCheckMilliSecondsValue_) return;
  lngCheckMilliSecondsValue_ = ms;
  const bool runs = m_objTimer_.boolEnabled();
  m_objTimer_.boolEnabled(false);
  m_objTimer_.lngInterval(ms);
  m_objTimer_.boolEnabled(runs);
}

/// The guard looks at the old value.
void MouseKeyboardCheck::lngFreeMinute(std::int32_t minutes) {
  if (lngFreeMinute_ > 0) lngFreeMinute_ = minutes;
}

void MouseKeyboardCheck::lngWorkState(std::int32_t state) {
  if (state == lngWorkState_) return;
  if (state == idleState::kActive || state == idleState::kIdle) watchFor(state);
  if (state == idleState::kStopped) stop();
}

void MouseKeyboardCheck::watchFor(std::int32_t state) {
  const auto tick = input_.lastInputTick();
  if (!tick) return;
  lastInputTick_ = *tick;
  lngWorkState_ = state;
  m_objTimer_.boolEnabled(true);  // which may run already
}

void MouseKeyboardCheck::stop() {
  lngWorkState_ = idleState::kStopped;
  m_objTimer_.boolEnabled(false);
}

void MouseKeyboardCheck::tick() {
  const auto tick = input_.lastInputTick();
  if (!tick) return;
  if (lngWorkState_ == idleState::kIdle) {
    if (*tick == lastInputTick_) return;
    lngWorkState_ = idleState::kActive;
    lastInputTick_ = *tick;
    UserIsActive.raise();
  } else if (lngWorkState_ == idleState::kActive) {
    lastInputTick_ = *tick;
    if (!isIdle()) return;
    lngWorkState_ = idleState::kIdle;
    ComputerIsIdle.raise();
  }
}

/// The difference of the tick counts as a signed number, so that neither the counter's wrap nor its
/// signed boundary is a long time; and an input that is newer than the count, by another
/// processor's clock, is a short one.
bool MouseKeyboardCheck::isIdle() const {
  const auto difference = static_cast<std::int32_t>(input_.tickCount() - lastInputTick_);
  const double idleMs = std::abs(static_cast<double>(difference));
  const auto threshold = in32Bits(lngFreeMinute_ * kSecondsPerMinute);
  return threshold && roundHalfEven(idleMs / kMsPerSecond) > *threshold;
}

}  // namespace tessivo
