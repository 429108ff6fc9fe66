#pragma once

#include <functional>
#include <memory>

#include "platform/LeaveWatch.h"
#include "platform/Log.h"

namespace tessivo {

/// A thread that sleeps, from the first `arm` on, and that nobody waits for.
class Win32LeaveWatch : public LeaveWatch {
 public:
  /// Of a process that was ended by force.
  static constexpr unsigned kExitCode = 3;

  /// Ends the process on the spot.
  static void endByForce();

  /// The log must outlive this object.
  explicit Win32LeaveWatch(Log& log, std::function<void()> endProcess = endByForce);
  /// Disarms it.
  ~Win32LeaveWatch() override;
  Win32LeaveWatch(const Win32LeaveWatch&) = delete;
  Win32LeaveWatch& operator=(const Win32LeaveWatch&) = delete;

  void arm(int ms, std::function<void()> lastWill) override;
  void disarm() override;

 private:
  struct State;
  static void watch(const std::shared_ptr<State>& state);

  Log& log_;
  const std::shared_ptr<State> state_;
};

}  // namespace tessivo
