#pragma once

#include <cstdint>

namespace tessivo {

/// Where a player comes from on one operating system.
struct PlayerSource {
  const char* product;    ///< what the installer installs; empty: none is offered
  const char* installer;  ///< file name in the folder PlyPcks; empty: none is offered
  const char* page;       ///< file name in the folder DLUrls: where to download the player
};

struct PlayerSources {
  PlayerSource mediaPlayer;
  PlayerSource realPlayer;
};

/// The sources for the system of that flag (`CheckOSVersion`). The pages are named after three
/// systems: those before Windows 2000 have its pages, those that nobody knew then have the newest.
const PlayerSources& playerSources(std::int32_t flag);

}  // namespace tessivo
