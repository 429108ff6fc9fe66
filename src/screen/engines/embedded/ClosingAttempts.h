#pragma once

#include <cstddef>
#include <memory>
#include <vector>

#include "screen/engines/embedded/AttemptThread.h"
#include "screen/engines/embedded/PictureWindow.h"

namespace tessivo {

/// The attempts that an engine has given up and that are still letting go, each with the window
/// its renderer draws into. User-interface thread only.
class ClosingAttempts {
 public:
  /// An attempt that takes longer to close hangs: in a driver, or in a file that does not answer.
  static constexpr ULONGLONG kHangsAfterMs = 5000;
  static constexpr std::size_t kMostHanging = 8;
  static constexpr std::size_t kMost = 64;  ///< closing, whether they hang or not

  /// The time in milliseconds, for tests.
  explicit ClosingAttempts(ULONGLONG (*now)() = tickCount) : now_(now) {}

  /// Starts a new attempt of the same engine. When too many hang it is refused with kTooManyHang:
  /// it would take one more thread, and perhaps hang there, too.
  void start(const std::shared_ptr<AttemptThread>& attempt) const;
  static constexpr HRESULT kTooManyHang = HRESULT_FROM_WIN32(ERROR_NO_SYSTEM_RESOURCES);
  /// Tells the attempt to close. Its picture stays until it has closed.
  void add(std::shared_ptr<AttemptThread> attempt, std::unique_ptr<PictureWindow> picture);
  /// The attempt has closed: its picture goes.
  void closed(WPARAM serial);
  /// Waits for all, so long at most. Windows of other threads can still send to ours meanwhile.
  void wait(DWORD ms);

 private:
  struct Entry {
    std::shared_ptr<AttemptThread> attempt;
    std::unique_ptr<PictureWindow> picture;
    ULONGLONG since;
  };
  bool tooManyHang() const;
  static ULONGLONG tickCount() { return GetTickCount64(); }

  ULONGLONG (*now_)();
  std::vector<Entry> entries_;
};

}  // namespace tessivo
