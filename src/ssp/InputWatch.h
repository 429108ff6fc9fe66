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

  /// A key or a button in the saver's own window: it is told at once, but not in the first 700 ms.
  void noteOwnInput();

 private:
  void poll();
  void tell();

  const IdleInput& input_;
  std::function<void()> onInput_;
  ui::Timer timer_;
  std::optional<std::uint32_t> tickAtStart_;
  bool isGraceOver_ = false;
  bool isTold_ = false;
};

}  // namespace tessivo::ssp
