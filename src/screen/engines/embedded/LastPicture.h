#pragma once

#include <memory>

#include "screen/engines/embedded/AttemptThread.h"
#include "screen/engines/embedded/ClosingAttempts.h"
#include "screen/engines/embedded/EngineWindow.h"
#include "screen/engines/embedded/PictureWindow.h"

namespace tessivo {

/// The picture at which an item has ended: it stays to be seen until the next item has its first,
/// so that no black comes in between, also where the other engine plays the next: both share the
/// one object. When nothing follows it goes soon. User-interface thread only.
class LastPicture {
 public:
  /// Of an attempt that has ended in that window. The window's owner passes its timer of that name
  /// on to letGo, and calls leave before the window and `closing` go.
  void keep(EngineWindow& window, ClosingAttempts& closing, std::shared_ptr<AttemptThread> attempt,
            std::unique_ptr<PictureWindow> picture);
  /// The window is to be hidden: at once, or when the picture in it has gone.
  void hide(EngineWindow& window);
  /// The next item is being opened, however long that takes: the picture stays until its first
  /// frame, nextPlays or nextIsOff.
  void nextIsComing();
  /// The next item plays: one without a picture never has a first frame.
  void nextPlays();
  /// The next item could not be played, or was given up before its first frame; another may follow.
  void nextIsOff();
  void letGo();
  /// That window goes, and the picture if it is in it.
  void leave(EngineWindow& window);

 private:
  void stay(UINT ms);

  EngineWindow* window_ = nullptr;  ///< with the picture, or none
  ClosingAttempts* closing_ = nullptr;
  std::shared_ptr<AttemptThread> attempt_;
  std::unique_ptr<PictureWindow> picture_;
};

}  // namespace tessivo
