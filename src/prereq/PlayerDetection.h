#pragma once

#include <functional>
#include <string>

#include "platform/FileVersions.h"
#include "platform/Log.h"
#include "prereq/CheckDllVer.h"

namespace tessivo {

/// The installed players that the playback window cannot do without. A slot that has an engine of
/// its own to fall back on counts as present, whatever is installed.
struct PlayersNeeded {
  bool mediaPlayer = true;
  bool realPlayer = true;
};

/// What was found.
struct PlayersFound {
  bool mediaPlayer = false;
  bool realPlayer = false;

  bool both() const { return mediaPlayer && realPlayer; }
};

/// Finds out whether the players are installed. Whatever goes wrong, an exception, too, means that
/// one is not.
class PlayerDetection {
 public:
  /// Makes the installed RealPlayer control and calls it. Returns why it does not answer, for the
  /// log; empty: it does.
  using AskRealPlayer = std::function<std::string()>;

  /// The log gets a line for each needed player when it is first looked for, and when something has
  /// changed since.
  PlayerDetection(const FileVersions& versions, AskRealPlayer askRealPlayer, PlayersNeeded needed,
                  Log& log)
      : version_(versions), askRealPlayer_(std::move(askRealPlayer)), needed_(needed), log_(log) {}

  PlayersFound detect();

 private:
  bool mediaPlayerIsThere();
  bool realPlayerIsThere();
  void tell(std::string& last, std::string text);

  CheckDllVer version_;
  AskRealPlayer askRealPlayer_;
  PlayersNeeded needed_;
  Log& log_;
  std::string toldOfMediaPlayer_;
  std::string toldOfRealPlayer_;
};

}  // namespace tessivo
