#pragma once

#include <functional>
#include <utility>

#include "platform/LeaveWatch.h"

namespace tessivo {

/// Notes when it is armed and disarmed, where it is told to, and never ends anything.
struct FakeLeaveWatch : LeaveWatch {
  void arm(int ms, std::function<void()> will) override {
    armedMs = ms;
    lastWill = std::move(will);
    if (whenArmed) whenArmed();
  }
  void disarm() override { armedMs = 0; }

  int armedMs = 0;  ///< 0: it is not
  std::function<void()> lastWill;
  std::function<void()> whenArmed;
};

}  // namespace tessivo
