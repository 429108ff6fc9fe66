#pragma once

namespace tessivo {

/// The tray form as the controller sees it.
class TrayFace {
 public:
  virtual ~TrayFace() = default;

  /// The program is about to leave: the window's procedure is put back, and neither requests nor
  /// the icon's notifications are heard any more.
  virtual void removeHiddenWinProc() = 0;
  /// Asks the user whether to leave; a yes leaves.
  virtual void askToExit() = 0;
  virtual void hideAndUnloadTray() = 0;
};

}  // namespace tessivo
