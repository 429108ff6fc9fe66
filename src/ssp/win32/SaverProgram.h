#pragma once

#include <memory>
#include <string>

#include "platform/FileDialogs.h"
#include "platform/TimerService.h"
#include "ssp/SettingsForm.h"
#include "ssp/win32/SaverWindow.h"

namespace tessivo::ssp {

/// What draws on a screen saver's window, for as long as it lives.
class Saver {
 public:
  virtual ~Saver() = default;
};

/// What one screen-saver program has of its own.
class SaverProgram {
 public:
  virtual ~SaverProgram() = default;
  /// The title of its windows, and the name of its settings' file without ".ini".
  virtual std::string name() const = 0;
  /// Begins to draw on the window, which is seen already, without waiting for anything. `settings`
  /// is the text of the settings' file. What is handed in outlives the saver.
  virtual std::unique_ptr<Saver> start(SaverWindow& window, const std::string& settings,
                                       TimerService& timers) const = 0;
  /// The dialog for these settings, not open yet; `dialogs` outlives it.
  virtual std::unique_ptr<SettingsForm> makeForm(const std::string& settings, FileDialogs& dialogs,
                                                 TwipsPerPixel twips) const = 0;
};

/// Does what the command line says, and ends the process: with 0, with 1 when the system had no
/// window for it, with 2 when the command line was not understood.
[[noreturn]] void runSaverProgram(const SaverProgram& program);

}  // namespace tessivo::ssp
