#pragma once

#include "app/TrayFace.h"
#include "fakes/Trace.h"

namespace tessivo {

/// The tray form as the controller's tests see it: notes what it is told.
struct FakeTray : TrayFace {
  explicit FakeTray(Trace& t) : trace(t) {}
  void removeHiddenWinProc() override { trace.add("requests end"); }
  void askToExit() override { trace.add("exit asked"); }
  void hideAndUnloadTray() override { trace.add("tray gone"); }
  Trace& trace;
};

}  // namespace tessivo
