#pragma once

#include <functional>
#include <string>

#include "app/Controler.h"
#include "app/ProgramPaths.h"
#include "app/RequestReceiver.h"
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
  CommandLine& commandLines;
  RequestReceiver& requests;
  TrayFace& tray;
  PanelFace& panel;
  std::function<void()> loadTray;   ///< creates the tray form, with its icon
  std::function<void()> loadPanel;  ///< creates the control panel, hidden
};

/// From the settings to the first play, in the fixed order, but that the panel takes its settings
/// when the stored item is loaded, whose name and position it shows, and is itself shown when it is
/// complete: nobody may press a button of a panel whose controller has no playback window yet.
/// Afterwards the program lives in the message loop.
void startUp(const StartUpParts& parts);

/// Where the control panel may be: the work area of the primary monitor, the operator's. Pixels.
Rect panelArea(const Displays& displays);

}  // namespace tessivo
