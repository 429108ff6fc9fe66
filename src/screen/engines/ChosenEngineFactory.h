#pragma once

#include <memory>

#include "platform/Log.h"
#include "screen/EngineChoice.h"
#include "screen/EngineFactory.h"

namespace tessivo {

class LastPicture;

/// Fills each slot as chosen: with the installed control or with the engine that Windows brings
/// along (Media Foundation in the Media Player slot, DirectShow in the RealPlayer slot). The thread
/// that calls it has COM initialised and runs the message loop.
class ChosenEngineFactory final : public EngineFactory {
 public:
  /// `log` gets a line with what each slot was filled with, and one for each file that an engine
  /// cannot play, with the reason.
  ChosenEngineFactory(const EngineChoices& choices, Log& log);

  std::unique_ptr<MediaPlayerSlot> createMediaPlayer(WindowHandle parent) override;
  std::unique_ptr<RealPlayerSlot> createRealPlayer(WindowHandle parent) override;

 private:
  EngineChoices choices_;
  Log& log_;
  std::shared_ptr<LastPicture> last_;  ///< of both embedded engines
};

}  // namespace tessivo
