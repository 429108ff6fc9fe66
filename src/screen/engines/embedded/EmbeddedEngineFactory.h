#pragma once

#include "platform/Log.h"
#include "screen/EngineFactory.h"

namespace tessivo {

/// The engines that Windows brings along: Media Foundation in the Media Player slot, DirectShow in
/// the RealPlayer slot. The thread that calls it has COM initialised and runs the message loop.
class EmbeddedEngineFactory final : public EngineFactory {
 public:
  /// `log` gets a line for each file that an engine cannot play, with the reason.
  explicit EmbeddedEngineFactory(Log& log) : log_(log) {}

  std::unique_ptr<MediaPlayerSlot> createMediaPlayer(WindowHandle parent) override;
  std::unique_ptr<RealPlayerSlot> createRealPlayer(WindowHandle parent) override;

 private:
  Log& log_;
};

}  // namespace tessivo
