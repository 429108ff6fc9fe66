#include "app/SlicedWork.h"

#include <limits>
#include <utility>

namespace tessivo {

// The timer repeats instead of being started anew for every slice: Windows delivers its ticks when
// no mouse, keyboard or paint message waits.
SlicedWork::SlicedWork(const Clock& clock, TimerService& timers)
    : clock_(clock), timNextSlice_(timers, "timNextSlice", 1) {
  timNextSlice_.onTimer.listen([this] { onTimer(); });
}

void SlicedWork::run(Step step) {
  const bool idle = waiting_.empty() && !inStep_;
  waiting_.push_back(std::make_shared<const Step>(std::move(step)));
  if (idle) proceed(clock_.ticksMs() + kSliceMs);
}

void SlicedWork::finish() {
  if (isRunning()) proceed(std::numeric_limits<std::uint64_t>::max());
}

void SlicedWork::cancel() {
  if (!isRunning()) return;
  waiting_.clear();
  timNextSlice_.setEnabled(false);
  progressed.raise();
}

void SlicedWork::onTimer() {
  if (!inStep_) proceed(clock_.ticksMs() + kSliceMs);  // else a step lets a message loop run
}

void SlicedWork::proceed(std::uint64_t endMs) {
  const auto alive = alive_;
  const bool outerStep = std::exchange(inStep_, true);
  while (!waiting_.empty()) {
    const auto step = waiting_.front();
    const auto drop = [this, &step] {
      if (!waiting_.empty() && waiting_.front() == step) waiting_.pop_front();
    };
    try {
      const bool more = (*step)();
      if (!*alive) return;
      if (!more) drop();
    } catch (...) {
      // Whoever guards the event logs it; what fails is not tried again, the other work goes on.
      if (!*alive) throw;
      drop();
      inStep_ = outerStep;
      timNextSlice_.setEnabled(isRunning());
      throw;
    }
    if (clock_.ticksMs() >= endMs) break;
  }
  inStep_ = outerStep;
  timNextSlice_.setEnabled(isRunning());
  progressed.raise();
}

}  // namespace tessivo
