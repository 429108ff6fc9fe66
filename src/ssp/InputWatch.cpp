#include "ssp/InputWatch.h"

#include <utility>

namespace tessivo::ssp {

InputWatch::InputWatch(const IdleInput& input, TimerService& timers, std::function<void()> onInput)
    : input_(input), onInput_(std::move(onInput)), timer_(timers, "timInput", kGraceMs) {
  timer_.onTimer.listen([this] { poll(); });
  timer_.setEnabled(true);
}

void InputWatch::poll() {
  if (!isGraceOver_) timer_.setInterval(kPollMs);
  isGraceOver_ = true;
  const auto tick = input_.lastInputTick();
  if (!tick) return;
  if (!tickAtStart_) tickAtStart_ = tick;
  if (*tick != *tickAtStart_) tell();
}

void InputWatch::noteOwnInput() {
  if (isGraceOver_ && !isTold_) tell();
}

void InputWatch::tell() {
  isTold_ = true;
  timer_.setEnabled(false);
  onInput_();
}

}  // namespace tessivo::ssp
