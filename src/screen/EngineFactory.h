#pragma once

#include <memory>

#include "platform/Displays.h"
#include "screen/MediaPlayerSlot.h"
#include "screen/RealPlayerSlot.h"

namespace tessivo {

/// Creates the two engines of the playback window once its window exists.
class EngineFactory {
 public:
  virtual ~EngineFactory() = default;
  /// Both return an object, never nothing: an implementation that is not there is an engine whose
  /// every play fails.
  virtual std::unique_ptr<MediaPlayerSlot> createMediaPlayer(WindowHandle parent) = 0;
  virtual std::unique_ptr<RealPlayerSlot> createRealPlayer(WindowHandle parent) = 0;
};

}  // namespace tessivo
