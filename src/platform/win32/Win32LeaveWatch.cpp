#include "platform/win32/Win32LeaveWatch.h"

#include <windows.h>

#include <chrono>
#include <condition_variable>
#include <exception>
#include <mutex>
#include <optional>
#include <string>
#include <thread>
#include <utility>

namespace tessivo {

using WatchClock = std::chrono::steady_clock;

/// Shared with the thread, which may outlive the watch.
struct Win32LeaveWatch::State {
  State(Log& to, std::function<void()> end) : log(to), endProcess(std::move(end)) {}

  Log& log;
  const std::function<void()> endProcess;
  /// Held while the last will is carried out: who comes back then waits for the end here.
  std::mutex mutex;
  std::condition_variable changed;
  bool hasThread = false;
  bool isOver = false;
  std::optional<WatchClock::time_point> deadline;
  std::function<void()> lastWill;
};

Win32LeaveWatch::Win32LeaveWatch(Log& log, std::function<void()> endProcess)
    : log_(log), state_(std::make_shared<State>(log, std::move(endProcess))) {}

Win32LeaveWatch::~Win32LeaveWatch() {
  const std::lock_guard lock(state_->mutex);
  state_->deadline.reset();
  state_->isOver = true;
  state_->changed.notify_one();
}

void Win32LeaveWatch::endByForce() {
  TerminateProcess(GetCurrentProcess(), kExitCode);
}

void Win32LeaveWatch::arm(int ms, std::function<void()> lastWill) {
  const std::lock_guard lock(state_->mutex);
  state_->deadline = WatchClock::now() + std::chrono::milliseconds(ms);
  state_->lastWill = std::move(lastWill);
  state_->changed.notify_one();
  if (state_->hasThread) return;
  try {
    std::thread([state = state_] { watch(state); }).detach();
    state_->hasThread = true;
  } catch (...) {  // no thread, no memory: leaving goes on all the same
    log_.error("nobody watches the leaving");
  }
}

void Win32LeaveWatch::disarm() {
  const std::lock_guard lock(state_->mutex);
  state_->deadline.reset();
}

void Win32LeaveWatch::watch(const std::shared_ptr<State>& state) {
  std::unique_lock lock(state->mutex);
  while (!state->isOver) {
    if (!state->deadline) {
      state->changed.wait(lock);
    } else if (WatchClock::now() < *state->deadline) {
      state->changed.wait_until(lock, *state->deadline);
    } else {
      break;
    }
  }
  if (state->isOver) return;
  state->log.error("leaving hangs: the process is ended by force");
  try {
    if (state->lastWill) state->lastWill();
  } catch (const std::exception& e) {
    state->log.error(std::string("unexpected error while leaving: ") + e.what());
  }
  state->endProcess();
}

}  // namespace tessivo
