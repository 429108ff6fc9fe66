#pragma once

#include <windows.h>

#include <functional>

namespace tessivo {

/// Runs the message loop until nothing is left in it.
inline void serve() {
  MSG message;
  while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) DispatchMessageW(&message);
}

/// Runs the message loop until the condition holds; false when the time was up first.
inline bool waitFor(const std::function<bool()>& condition, DWORD ms = 15000) {
  const ULONGLONG deadline = GetTickCount64() + ms;
  while (!condition()) {
    if (GetTickCount64() >= deadline) return false;
    MsgWaitForMultipleObjects(0, nullptr, FALSE, 10, QS_ALLINPUT);
    serve();
  }
  return true;
}

/// Runs the message loop for so long: to see that something does not happen.
inline void watch(DWORD ms) {
  waitFor([] { return false; }, ms);
}

}  // namespace tessivo
