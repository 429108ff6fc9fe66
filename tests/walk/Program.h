#pragma once

#include <functional>
#include <string>

#include "app/CommandLine.h"
#include "app/ConfigFace.h"
#include "app/RequestReceiver.h"
#include "app/StartUp.h"
#include "panel/DatabaseNotice.h"
#include "panel/ExitQuestion.h"
#include "panel/frmHide.h"
#include "panel/frmMain.h"
#include "walk/Engines.h"

namespace tessivo::walk {

/// One life of the program: every object of `Player` (src/Player.h) in its order, on the machine of
/// the walk.
struct Program {
  Program(World& world, ui::Toolkit& toolkit, WalkTimers& timers, EngineMood& mood,
          const std::string& databaseText);

  bool playbackIsMedia() { return screen.playback().mediaPlayerIsCurrent(); }
  /// From the settings to the first play.
  void start(const std::string& commandLine);

  World& world;
  ProgramPaths paths;
  MTimer timerRegistry{world.threadTimers};
  CaughtWindows caughtWindows{world.windows, world.procedures};
  WalkEngineFactory engines;
  AimMonitor aimMonitor{world.displays};
  MovieKeys keys{world.clock};
  PlayList playList{keys};
  Controler controler;
  frmScreen screen;
  CommandLine commandLines{controler, world.memory, world.log};
  RequestReceiver requests{controler, commandLines, world.log};
  ExitQuestion exitQuestion;
  frmHide tray;
  frmMain panel;
  ConfigFace configFace;
  DatabaseNotice notice;
};

}  // namespace tessivo::walk
