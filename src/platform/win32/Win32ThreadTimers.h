#pragma once

#include <windows.h>

#include "platform/Log.h"
#include "platform/ThreadTimers.h"

namespace tessivo {

/// Thread timers of Windows (`SetTimer` without a window). Ending the object kills what it has set.
/// All objects belong to one thread, the one with the message loop.
class Win32ThreadTimers : public ThreadTimers {
 public:
  explicit Win32ThreadTimers(Log& log) : log_(log) {}
  ~Win32ThreadTimers() override;
  Win32ThreadTimers(const Win32ThreadTimers&) = delete;
  Win32ThreadTimers& operator=(const Win32ThreadTimers&) = delete;

  std::uint32_t set(std::int32_t intervalMs, TimerProcedure& procedure) override;
  void kill(std::uint32_t identifier) override;

 private:
  static void CALLBACK timerProc(HWND, UINT, UINT_PTR identifier, DWORD);

  Log& log_;
};

}  // namespace tessivo
