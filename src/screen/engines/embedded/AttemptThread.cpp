#include "screen/engines/embedded/AttemptThread.h"

#include <objbase.h>

#include <exception>
#include <thread>

namespace tessivo {

AttemptThread::AttemptThread(HWND engineWindow, WPARAM serial)
    : engineWindow_(engineWindow),
      serial_(serial),
      closed_(CreateEventW(nullptr, TRUE, FALSE, nullptr)) {}

AttemptThread::~AttemptThread() {
  CloseHandle(closed_);
}

void AttemptThread::start(const std::shared_ptr<AttemptThread>& attempt) {
  try {
    // Detached: a thread that hangs in a driver must not keep the program from ending.
    std::thread([attempt] { attempt->runToTheEnd(); }).detach();
  } catch (const std::exception&) {  // no thread, or no memory for it
    attempt->refuse(E_OUTOFMEMORY);
  }
}

void AttemptThread::refuse(HRESULT reason) const {
  post(EngineEvent::failed, reason);
  SetEvent(closed_);
  post(EngineEvent::closed);
}

void AttemptThread::post(EngineEvent event, std::int32_t value) const {
  postEngineEvent(engineWindow_, event, serial_, value);
}

void AttemptThread::runToTheEnd() {
  const bool com = SUCCEEDED(CoInitializeEx(nullptr, COINIT_MULTITHREADED));
  try {
    run();
  } catch (...) {
    // A codec's, or no memory: of all that the file of this attempt is the least loss.
    post(EngineEvent::failed, E_FAIL);
  }
  try {
    letGo();
  } catch (...) {  // NOLINT(bugprone-empty-catch): what is still held cannot be helped
  }
  if (com) CoUninitialize();
  SetEvent(closed_);
  post(EngineEvent::closed);
}

}  // namespace tessivo
