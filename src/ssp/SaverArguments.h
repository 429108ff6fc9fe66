#pragma once

#include <string>
#include <string_view>

#include "base/Geometry.h"

namespace tessivo::ssp {

enum class SaverTask {
  run,        ///< cover the area
  preview,    ///< cover the monitor under the pointer
  configure,  ///< show the settings at a place, for the window of another program
  settings,   ///< show the settings; nobody waits for them
  invalid,    ///< not understood
};

/// What a screen-saver program is started for.
struct SaverArguments {
  SaverTask task = SaverTask::invalid;
  Rect area;                 ///< run: pixels of the virtual screen, neither side longer than 32 767
  bool fullScreen = false;   ///< run: whether the player's picture fills its monitor
  std::string caption;       ///< run: the title of the player's window
  Point middle;              ///< configure: where the settings open, pixels of the virtual screen
  std::string ownerCaption;  ///< configure: the title of the window that waits for them
};

/// Reads what follows the program's name in the command line:
///
///     RUN##left##top##width##height##flag##caption
///     SHOW_CONFIG_FACE##x##y##ownerCaption
///
/// The last field is the rest of the text, with all its blanks and "##". An area without width or
/// height means a preview; nothing at all the settings.
SaverArguments parseSaverArguments(std::string_view text);

}  // namespace tessivo::ssp
