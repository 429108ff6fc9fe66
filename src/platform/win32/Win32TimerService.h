#pragma once

#include <windows.h>

#include <memory>
#include <unordered_map>

#include "platform/Log.h"
#include "platform/TimerService.h"

namespace tessivo {

/// Timers of a window that nobody sees; they tick in the message loop of the thread that made the
/// service, also inside Windows' own loops (menus, dragging a window). Each start has a fresh id,
/// so a tick of a stopped timer that is still in the queue finds nothing.
///
/// Windows does not tick faster than every 10 ms. The first tick of a shorter interval is posted
/// and comes on the next turn of the message loop, never inside `start`.
class Win32TimerService : public TimerService {
 public:
  explicit Win32TimerService(Log& log);
  ~Win32TimerService() override;
  Win32TimerService(const Win32TimerService&) = delete;
  Win32TimerService& operator=(const Win32TimerService&) = delete;

  Id start(int intervalMs, std::function<void()> onTick) override;
  void stop(Id id) override;
  /// Started and not stopped.
  std::size_t running() const { return timers_.size(); }

 private:
  static LRESULT CALLBACK windowProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
  void tick(Id id);

  Log& log_;
  HWND window_ = nullptr;
  Id lastId_ = 0;
  std::unordered_map<Id, std::shared_ptr<const std::function<void()>>> timers_;
};

}  // namespace tessivo
