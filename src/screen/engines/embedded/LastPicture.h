#pragma once

#include <memory>

#include "screen/engines/embedded/AttemptThread.h"
#include "screen/engines/embedded/ClosingAttempts.h"
#include "screen/engines/embedded/EngineWindow.h"
#include "screen/engines/embedded/PictureWindow.h"

namespace tessivo {

/// The picture at which an item has ended: it stays to be seen until the next item has its first,
/// so that no black comes in between. When nothing follows it goes soon. User-interface thread
/// only; the engine passes on the timer of that name.
class LastPicture {
 public:
  /// Both outlive this.
  LastPicture(EngineWindow& window, ClosingAttempts& closing)
      : window_(window), closing_(closing) {}

  /// Of an attempt that has ended.
  void keep(std::shared_ptr<AttemptThread> attempt, std::unique_ptr<PictureWindow> picture);
  /// The next item is being opened, however long that takes.
  void nextIsComing();
  /// The next item plays: one without a picture never has a first frame.
  void nextPlays();
  /// The next item could not be played; another may follow.
  void nextFailed();
  void letGo();

 private:
  void stay(UINT ms);

  EngineWindow& window_;
  ClosingAttempts& closing_;
  std::shared_ptr<AttemptThread> attempt_;
  std::unique_ptr<PictureWindow> picture_;
};

}  // namespace tessivo
