#pragma once

#include <functional>
#include <string>

#include "app/Controler.h"
#include "app/ProgramPaths.h"
#include "monitors/AimMonitor.h"

namespace tessivo {

/// The objects that start-up brings to life, in the composition root's hands.
struct StartUpParts {
  const ProgramPaths& paths;
  std::string commandLine;
  const Displays& displays;
  Log& log;
  AimMonitor& aimMonitor;
  PlayList& playList;
  Controler& controler;
  frmScreen& screen;
  PanelFace& panel;
  std::function<void()> loadPanel;  ///< creates and shows the control panel
};

/// From the settings to the first play, in the fixed order. Afterwards the program lives in the
/// message loop.
void startUp(const StartUpParts& parts);

}  // namespace tessivo
