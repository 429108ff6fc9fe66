#pragma once

#include <string>
#include <utility>

#include "base/Signal.h"
#include "platform/TimerService.h"

namespace tessivo::ui {

/// A form's timer: raises `onTimer` every `interval` milliseconds while enabled. Enabling an
/// enabled timer changes nothing; disabling drops a tick under way; enabling after that starts a
/// full interval. An interval of 0 never fires.
class Timer {
 public:
  Timer(TimerService& service, std::string name, int intervalMs, bool enabled = false)
      : service_(service), name_(std::move(name)), interval_(intervalMs) {
    setEnabled(enabled);
  }
  ~Timer() { disarm(); }
  Timer(const Timer&) = delete;
  Timer& operator=(const Timer&) = delete;

  const std::string& name() const { return name_; }
  bool enabled() const { return enabled_; }
  void setEnabled(bool enabled) {
    if (enabled_ == enabled) return;
    enabled_ = enabled;
    enabled_ ? arm() : disarm();
  }
  int interval() const { return interval_; }
  /// Restarts a running timer.
  void setInterval(int ms) {
    interval_ = ms;
    if (!enabled_) return;
    disarm();
    arm();
  }
  const std::string& tag() const { return tag_; }
  void setTag(std::string tag) { tag_ = std::move(tag); }

  Signal<> onTimer;

 private:
  void arm() {
    if (interval_ > 0) id_ = service_.start(interval_, [this] { onTimer.raise(); });
  }
  void disarm() { service_.stop(std::exchange(id_, 0)); }

  TimerService& service_;
  std::string name_;
  int interval_;
  bool enabled_ = false;
  std::string tag_;
  TimerService::Id id_ = 0;
};

}  // namespace tessivo::ui
