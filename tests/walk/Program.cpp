#include "walk/Program.h"

namespace tessivo::walk {
namespace {

constexpr OsVersion kWindows{2, 6, 2};

ProgramPaths pathsOf(const World& world) {
  ProgramPaths paths = formProgramPaths("C:\\p");
  paths.database = world.database;
  return paths;
}

}  // namespace

Program::Program(World& w, ui::Toolkit& toolkit, WalkTimers& timers, EngineMood& mood,
                 const std::string& databaseText)
    : world(w),
      paths(pathsOf(w)),
      engines(w, mood),
      controler({keys, w.files, w.displays, w.pointer, w.loop, w.leaveWatch, w.log, w.clock,
                 w.windows, timerRegistry, w.shownWindows, caughtWindows, timers, w.idleInput,
                 w.power, w.processes, w.token, paths.programFolder}),
      screen({toolkit, timers, w.displays, w.files, w.log, engines, w.windows, caughtWindows}),
      exitQuestion(toolkit, controler),
      tray({toolkit, timers, w.winProc, w.icons, w.shell, exitQuestion, kWindows, paths.helpPage},
           w.displays.twipsPerPixel(), controler, requests),
      panel({toolkit, timers, w.clock, w.pointer, w.windows, w.fileDialogs, w.shell, exitQuestion,
             paths.helpPage},
            w.displays.twipsPerPixel(), controler),
      configFace({toolkit, timers, w.shell, w.registry, w.accounts, w.log, paths.database,
                  paths.programFolder},
                 w.clock, w.processes, controler),
      notice(toolkit, timers, panel, databaseText) {
  controler.configFaceWanted.listen([this] {
    const bool overPanel = panel.visible() && panel.enabled();
    configFace.open(overPanel ? static_cast<ui::Form&>(panel) : tray);
  });
}

void Program::start(const std::string& commandLine) {
  startUp({paths, commandLine, world.displays, world.log, aimMonitor, playList, controler, screen,
           commandLines, requests, tray, panel, [this] { tray.load(); },
           [this] { panel.load(panelArea(world.displays)); }});
}

}  // namespace tessivo::walk
