#pragma once

#include <memory>
#include <vector>

#include "screen/engines/embedded/AttemptThread.h"
#include "screen/engines/embedded/PictureWindow.h"

namespace tessivo {

/// The attempts that an engine has given up and that are still letting go, each with the window
/// its renderer draws into. User-interface thread only.
class ClosingAttempts {
 public:
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
  };
  std::vector<Entry> entries_;
};

}  // namespace tessivo
