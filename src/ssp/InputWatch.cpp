#include "ssp/InputWatch.h"

#include <utility>

namespace tessivo::ssp {

InputWatch::InputWatch(const IdleInput& input, TimerService& timers, std::function<void()> onInput)
    : input_(input), onInput_(std::move(onInput)), timer_(timers, "timInput", kGraceMs) {
  timer_.onTimer.listen([this] { poll(); });
  timer_.setEnabled(true);
}

void InputWatch::poll() {
  if (timer_.interval() != kPollMs) timer_.setInterval(kPollMs);
  const auto tick = input_.lastInputTick();
  if (!tick) return;
  if (!tickAtStart_) tickAtStart_ = tick;
  if (*tick == *tickAtStart_) return;
  timer_.setEnabled(false);
  onInput_();
}

}  // namespace tessivo::ssp
