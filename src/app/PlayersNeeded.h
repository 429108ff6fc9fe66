#pragma once

#include "prereq/PlayerDetection.h"
#include "screen/EngineChoice.h"

namespace tessivo {

/// The installed players without which a slot of the playback window would stay empty: one that is
/// to hold the installed control and nothing else.
inline PlayersNeeded playersNeeded(const EngineChoices& choices) {
  return {choices.mediaPlayer == EngineChoice::control,
          choices.realPlayer == EngineChoice::control};
}

}  // namespace tessivo
