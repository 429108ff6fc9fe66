#include "screen/engines/ChosenEngineFactory.h"

#include <string>

#include "screen/engines/direct_show/EmbeddedRealPlayer.h"
#include "screen/engines/media_foundation/EmbeddedMediaPlayer.h"
#include "screen/engines/real_player/RealPlayerControl.h"
#include "screen/engines/windows_media_player/WindowsMediaPlayerControl.h"

namespace tessivo {
namespace {

template <typename Control, typename Embedded, typename Slot>
std::unique_ptr<Slot> create(EngineChoice choice, const std::string& slot, WindowHandle parent,
                             Log& log, const std::shared_ptr<LastPicture>& last) {
  auto* const window = reinterpret_cast<HWND>(parent);
  if (choice != EngineChoice::embedded) {
    auto control = std::make_unique<Control>(window, log);
    if (control->created()) {
      log.info(slot + " slot: the installed control");
      return control;
    }
    if (choice == EngineChoice::control) {
      log.error(slot + " slot: empty, nothing plays in it");
      return control;
    }
  }
  log.info(slot + " slot: the embedded engine");
  return std::make_unique<Embedded>(window, log, last);
}

}  // namespace

ChosenEngineFactory::ChosenEngineFactory(const EngineChoices& choices, Log& log)
    : choices_(choices), log_(log), last_(std::make_shared<LastPicture>()) {}

std::unique_ptr<MediaPlayerSlot> ChosenEngineFactory::createMediaPlayer(WindowHandle parent) {
  return create<WindowsMediaPlayerControl, EmbeddedMediaPlayer, MediaPlayerSlot>(
      choices_.mediaPlayer, "Media Player", parent, log_, last_);
}

std::unique_ptr<RealPlayerSlot> ChosenEngineFactory::createRealPlayer(WindowHandle parent) {
  return create<RealPlayerControl, EmbeddedRealPlayer, RealPlayerSlot>(
      choices_.realPlayer, "RealPlayer", parent, log_, last_);
}

}  // namespace tessivo
