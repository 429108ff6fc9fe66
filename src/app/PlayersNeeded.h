#pragma once

#include "prereq/PlayerDetection.h"
#include "screen/EngineChoice.h"

namespace tessivo {

/// The installed players without which a slot of the playback window would stay empty: one that is
/// to hold the installed control and nothing else, or that has no engine of its own, because this
/// Windows comes without Media Foundation. `mediaFoundationIsThere` is asked only where it matters.
template <typename Asked>
PlayersNeeded playersNeeded(const EngineChoices& choices, Asked mediaFoundationIsThere) {
  return {choices.mediaPlayer == EngineChoice::control || !mediaFoundationIsThere(),
          choices.realPlayer == EngineChoice::control};
}

}  // namespace tessivo
