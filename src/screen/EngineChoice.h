#pragma once

#include <string>
#include <string_view>

#include "platform/Log.h"

namespace tessivo {

/// Which of its two implementations fills a slot of the playback window.
enum class EngineChoice {
  control,   ///< the installed control and nothing else
  embedded,  ///< the engine that Windows brings along
  automatic  ///< the control where it can be made, else the embedded engine
};

struct EngineChoices {
  EngineChoice mediaPlayer = EngineChoice::control;
  EngineChoice realPlayer = EngineChoice::control;

  bool operator==(const EngineChoices&) const = default;
};

/// The choices in the text of an `Engines.ini`:
///
///     [Engines]
///     MediaPlayer=control | embedded | auto
///     RealPlayer=control | embedded | auto
///
/// Case does not matter, lines that begin with ';' are comments. A slot that is missing is
/// `control`, and so is one with an unknown value; the log says what was not understood.
EngineChoices parseEngineChoices(std::string_view text, Log& log);

/// The same of a file. Without the file both slots are `control`; of one that cannot be read, too,
/// and the log says so. Called once at start-up.
EngineChoices readEngineChoices(const std::string& path, Log& log);

}  // namespace tessivo
