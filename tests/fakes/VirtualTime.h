#pragma once

#include <algorithm>
#include <map>
#include <utility>

#include "platform/Clock.h"
#include "platform/TimerService.h"

namespace tessivo {

/// Clock and timers of a test: time stands still until `advance`, which fires what falls due, in
/// order of the due times and, for equal times, of the starts. A tick may advance it further: it
/// takes that long, and never goes back.
class VirtualTime : public Clock, public TimerService {
 public:
  LocalTime now() const override {
    LocalTime time = date_;
    time.msOfDay += static_cast<int>(nowMs_);
    return time;
  }
  std::uint64_t ticksMs() const override { return nowMs_; }
  void setDate(const LocalTime& date) { date_ = date; }

  Id start(int intervalMs, std::function<void()> onTick) override {
    const Id id = ++lastId_;
    due_[{nowMs_ + static_cast<std::uint64_t>(intervalMs), id}] = {intervalMs, std::move(onTick)};
    return id;
  }
  void stop(Id id) override {
    std::erase_if(due_, [id](const auto& entry) { return entry.first.second == id; });
  }

  void advance(std::uint64_t ms) {
    const std::uint64_t end = nowMs_ + ms;
    while (!due_.empty() && due_.begin()->first.first <= end) {
      const auto node = due_.begin();
      const auto [when, id] = node->first;
      const Tick tick = node->second;
      due_.erase(node);
      nowMs_ = when;
      due_[{when + static_cast<std::uint64_t>(tick.intervalMs), id}] = tick;
      tick.onTick();
    }
    nowMs_ = std::max(nowMs_, end);
  }
  /// Time goes by while something is done: nothing fires.
  void skip(std::uint64_t ms) { nowMs_ += ms; }
  std::size_t running() const { return due_.size(); }

 private:
  struct Tick {
    int intervalMs;
    std::function<void()> onTick;
  };
  LocalTime date_{2026, 1, 1, 0};
  std::uint64_t nowMs_ = 0;
  Id lastId_ = 0;
  std::map<std::pair<std::uint64_t, Id>, Tick> due_;
};

}  // namespace tessivo
