#include "Player.h"

#include "app/StartUp.h"
#include "platform/win32/CrashNote.h"
#include "platform/win32/ProgramFolder.h"
#include "platform/win32/Win32OsVersion.h"

namespace tessivo {

std::unique_ptr<FileLog> openLog(const ProgramPaths& paths, const Clock& clock) {
  auto log = std::make_unique<FileLog>(paths.programFolder + "\\Tessivo.log", clock);
  if (log->isOpen()) return log;
  return std::make_unique<FileLog>(localDataFolder() + "\\Tessivo.log", clock);
}

Ground::Ground() : paths(formProgramPaths(programFolder())), log(openLog(paths, clock)) {
  noteCrashes(log->path());
  loop.setFilter([](MSG& message) { return ui::Win32Toolkit::translate(message); });
}

Player::Player(Ground& with, const EngineChoices& choices)
    : ground(with),
      log(*with.log),
      engines(choices, log),
      aimMonitor(with.displays),
      keys(with.clock),
      controler({keys, files, with.displays, pointer, with.loop, with.leaveWatch, log, with.clock,
                 windows, timerRegistry, shownWindows, caughtWindows, with.timers, idleInput, power,
                 processes, token, with.paths.programFolder}),
      screen(
          {with.toolkit, with.timers, with.displays, files, log, engines, windows, caughtWindows}),
      exitQuestion(with.toolkit, controler),
      tray({with.toolkit, with.timers, hiddenWinProc, trayIcons, shell, exitQuestion,
            win32OsVersion(), with.paths.helpPage},
           with.displays.twipsPerPixel(), controler, requests),
      panel({with.toolkit, with.timers, with.clock, pointer, windows, fileDialogs, shell,
             exitQuestion, with.paths.helpPage},
            with.displays.twipsPerPixel(), controler),
      configFace({with.toolkit, with.timers, shell, registry, accounts, log, with.paths.database,
                  with.paths.programFolder},
                 with.clock, processes, controler) {
  // Over the panel, unless it is hidden or has a dialog already.
  controler.configFaceWanted.listen([this] {
    const bool overPanel = panel.visible() && panel.enabled();
    configFace.open(overPanel ? static_cast<ui::Form&>(panel) : tray);
  });
}

void Player::start(const std::string& commandLine) {
  startUp({ground.paths, commandLine, ground.displays, log, aimMonitor, playList, controler, screen,
           commandLines, requests, tray, panel, [this] { tray.load(); },
           [this] { panel.load(panelArea(ground.displays)); }});
}

}  // namespace tessivo
