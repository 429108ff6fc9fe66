#include "screen/engines/embedded/ClosingAttempts.h"

#include <algorithm>
#include <utility>

namespace tessivo {
namespace {

/// False when the time was up first, also while messages keep coming.
bool waitServingSentMessages(HANDLE signal, ULONGLONG deadline) {
  for (ULONGLONG now = GetTickCount64();; now = GetTickCount64()) {
    const DWORD left = now < deadline ? static_cast<DWORD>(deadline - now) : 0;
    const DWORD woken = MsgWaitForMultipleObjects(1, &signal, FALSE, left, QS_SENDMESSAGE);
    if (woken == WAIT_OBJECT_0) return true;
    if (woken != WAIT_OBJECT_0 + 1 || left == 0) return false;
    MSG message;
    PeekMessageW(&message, nullptr, 0, 0, PM_NOREMOVE | PM_QS_SENDMESSAGE);
  }
}

}  // namespace

void ClosingAttempts::add(std::shared_ptr<AttemptThread> attempt,
                          std::unique_ptr<PictureWindow> picture) {
  attempt->close();
  // One that closed before has said so before.
  if (WaitForSingleObject(attempt->closedSignal(), 0) == WAIT_OBJECT_0) return;
  entries_.push_back({std::move(attempt), std::move(picture), now_()});
}

bool ClosingAttempts::tooManyHang() const {
  if (entries_.size() >= kMost) return true;
  const ULONGLONG now = now_();
  const auto hangs = [now](const Entry& entry) { return now - entry.since >= kHangsAfterMs; };
  return static_cast<std::size_t>(std::ranges::count_if(entries_, hangs)) >= kMostHanging;
}

void ClosingAttempts::start(const std::shared_ptr<AttemptThread>& attempt) const {
  if (tooManyHang()) return attempt->refuse(kTooManyHang);
  AttemptThread::start(attempt);
}

void ClosingAttempts::closed(WPARAM serial) {
  std::erase_if(entries_, [serial](const Entry& e) { return e.attempt->serial() == serial; });
}

void ClosingAttempts::wait(DWORD ms) {
  const ULONGLONG deadline = GetTickCount64() + ms;
  for (const Entry& entry : entries_) {
    if (!waitServingSentMessages(entry.attempt->closedSignal(), deadline)) return;
  }
}

}  // namespace tessivo
