#pragma once

#include <cstdint>
#include <functional>
#include <optional>

#include "platform/IdleInput.h"
#include "ui/Timer.h"

namespace tessivo::ssp {

/// Tells once that the user has touched mouse or keyboard, in whatever program: a screen saver has
/// no keyboard of its own. What happens in the first 700 ms does not count: the click that started
/// a preview, and the motion that the system makes up when a window appears under the pointer.
class InputWatch {
 public:
  static constexpr int kGraceMs = 700;
  static constexpr int kPollMs = 200;

  /// Watches from now on; both services must outlive it.
  InputWatch(const IdleInput& input, TimerService& timers, std::function<void()> onInput);

 private:
  void poll();

  const IdleInput& input_;
  std::function<void()> onInput_;
  ui::Timer timer_;
  std::optional<std::uint32_t> tickAtStart_;
};

}  // namespace tessivo::ssp
