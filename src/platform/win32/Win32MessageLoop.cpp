#include "platform/win32/Win32MessageLoop.h"

namespace tessivo {

void Win32MessageLoop::run() {
  // Half as many calls of the system a message as a loop that looks and waits.
  MSG message;
  while (!quitting_ && GetMessageW(&message, nullptr, 0, 0) > 0) handle(message);
  // The message that ended the loop must not end the next one.
  PeekMessageW(&message, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE);
  quitting_ = false;
}

void Win32MessageLoop::runWhile(const std::function<bool()>& condition) {
  while (!quitting_ && condition()) {
    if (!handleWaiting([&] { return !condition(); }) || !condition()) return;
    MsgWaitForMultipleObjectsEx(0, nullptr, INFINITE, QS_ALLINPUT, MWMO_INPUTAVAILABLE);
  }
}

void Win32MessageLoop::pumpFor(int ms) {
  const ULONGLONG end = GetTickCount64() + static_cast<ULONGLONG>(ms < 0 ? 0 : ms);
  while (handleWaiting([end] { return GetTickCount64() >= end; })) {
    const ULONGLONG now = GetTickCount64();
    if (now >= end) return;
    MsgWaitForMultipleObjectsEx(0, nullptr, static_cast<DWORD>(end - now), QS_ALLINPUT,
                                MWMO_INPUTAVAILABLE);
  }
}

void Win32MessageLoop::quit() {
  quitting_ = true;
  // Windows' own loops: that of a system dialog ends by the message; that of a menu may not.
  EndMenu();
  PostQuitMessage(0);
}

bool Win32MessageLoop::handleWaiting(const std::function<bool()>& isDone) {
  MSG message;
  while (!quitting_ && PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
    if (message.message == WM_QUIT) {
      // The loops around this one must end too.
      PostQuitMessage(static_cast<int>(message.wParam));
      quitting_ = true;
      return false;
    }
    handle(message);
    if (isDone()) break;
  }
  return !quitting_;
}

void Win32MessageLoop::handle(MSG& message) {
  if (filter_ && filter_(message)) return;
  TranslateMessage(&message);
  DispatchMessageW(&message);
}

}  // namespace tessivo
