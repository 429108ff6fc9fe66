#pragma once

#include <windows.h>

#include <cstdint>
#include <memory>

#include "screen/engines/embedded/EngineEvent.h"

namespace tessivo {

/// One attempt to play one source, with a thread of its own on which everything slow happens:
/// opening a file may take as long as a dead network share likes, and the user interface must not
/// wait for it. The thread keeps its object alive, posts its news to the engine's window, and its
/// last word is EngineEvent::closed. An attempt that was told to close says nothing else any more
/// that the engine listens to (the serial number has moved on).
class AttemptThread {
 public:
  virtual ~AttemptThread();
  AttemptThread(const AttemptThread&) = delete;
  AttemptThread& operator=(const AttemptThread&) = delete;

  /// Starts the thread of a new attempt; without a thread the attempt fails and is closed.
  static void start(const std::shared_ptr<AttemptThread>& attempt);
  /// Instead of starting it: the new attempt has failed and is closed.
  void refuse(HRESULT reason) const;

  /// Gives the attempt up. Returns at once; `closed` follows. May be repeated.
  virtual void close() = 0;

  WPARAM serial() const { return serial_; }
  /// Signalled when the attempt has let go of everything, shortly before `closed` is posted.
  HANDLE closedSignal() const { return closed_; }

 protected:
  AttemptThread(HWND engineWindow, WPARAM serial);
  /// The thread's work, in the multithreaded apartment. When it throws, the attempt has failed.
  virtual void run() = 0;
  /// Lets go of everything, on the same thread and in its apartment, also after run has thrown.
  virtual void letGo() {}
  void post(EngineEvent event, std::int32_t value = 0) const;

 private:
  void runToTheEnd();

  HWND engineWindow_;
  WPARAM serial_;
  HANDLE closed_;
};

}  // namespace tessivo
