#include "platform/win32/Win32ThreadTimers.h"

#include <limits>
#include <string>
#include <unordered_map>

#include "platform/win32/Guarded.h"

namespace tessivo {
namespace {

struct Running {
  Win32ThreadTimers* owner;
  TimerProcedure* procedure;
};

/// By identifier. Windows hands its timer procedure nothing but that.
std::unordered_map<UINT_PTR, Running>& running() {
  static std::unordered_map<UINT_PTR, Running> timers;
  return timers;
}

}  // namespace

Win32ThreadTimers::~Win32ThreadTimers() {
  std::erase_if(running(), [this](const auto& timer) {
    if (timer.second.owner != this) return false;
    KillTimer(nullptr, timer.first);
    return true;
  });
}

std::uint32_t Win32ThreadTimers::set(std::int32_t intervalMs, TimerProcedure& procedure) {
  const UINT_PTR identifier = SetTimer(nullptr, 0, static_cast<UINT>(intervalMs), timerProc);
  if (identifier == 0 || identifier > std::numeric_limits<std::uint32_t>::max()) {
    log_.error("no timer of " + std::to_string(intervalMs) + " ms, error " +
               std::to_string(GetLastError()));
    if (identifier != 0) KillTimer(nullptr, identifier);
    return 0;
  }
  running()[identifier] = {this, &procedure};
  return static_cast<std::uint32_t>(identifier);
}

void Win32ThreadTimers::kill(std::uint32_t identifier) {
  const auto found = running().find(identifier);
  if (found == running().end() || found->second.owner != this) return;
  KillTimer(nullptr, identifier);
  running().erase(found);
}

void CALLBACK Win32ThreadTimers::timerProc(HWND, UINT, UINT_PTR identifier, DWORD) {
  const auto found = running().find(identifier);
  if (found == running().end()) return;
  // The call may kill the timer, and with it this entry, or end the owner.
  const Running timer = found->second;
  Log& log = timer.owner->log_;
  guarded(log, [&] { timer.procedure->timerProc(static_cast<std::uint32_t>(identifier)); });
}

}  // namespace tessivo
