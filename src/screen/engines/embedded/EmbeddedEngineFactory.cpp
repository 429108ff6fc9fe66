#include "screen/engines/embedded/EmbeddedEngineFactory.h"

#include "screen/engines/direct_show/EmbeddedRealPlayer.h"
#include "screen/engines/media_foundation/EmbeddedMediaPlayer.h"

namespace tessivo {

std::unique_ptr<MediaPlayerSlot> EmbeddedEngineFactory::createMediaPlayer(WindowHandle parent) {
  return std::make_unique<EmbeddedMediaPlayer>(reinterpret_cast<HWND>(parent), log_);
}

std::unique_ptr<RealPlayerSlot> EmbeddedEngineFactory::createRealPlayer(WindowHandle parent) {
  return std::make_unique<EmbeddedRealPlayer>(reinterpret_cast<HWND>(parent), log_);
}

}  // namespace tessivo
