#pragma once

#include <functional>
#include <string>

#include "app/Controler.h"
#include "app/RequestReceiver.h"
#include "app/TrayFace.h"
#include "panel/ExitQuestion.h"
#include "platform/HiddenWinProc.h"
#include "platform/OsVersion.h"
#include "platform/Shell.h"
#include "platform/TrayIcons.h"
#include "ui/Controls.h"
#include "ui/Form.h"
#include "ui/Timer.h"

namespace tessivo {

/// What the tray form needs of the system.
struct TrayServices {
  ui::Toolkit& toolkit;
  TimerService& timers;
  HiddenWinProc& winProc;
  TrayIcons& icons;
  Shell& shell;
  ExitQuestion& exitQuestion;
  OsVersion osVersion;
  std::string helpPage;
};

/// The form that nobody sees: it owns the icon in the notification area and its menu, and its
/// window is where later instances find this one and hand over what they were started with.
class frmHide : public ui::Form, public TrayFace, private HiddenWinProc::Listener {
 public:
  frmHide(const TrayServices& services, TwipsPerPixel twipsPerPixel, Controler& controler,
          RequestReceiver& requests);
  ~frmHide() override;

  /// Creates the window, which stays hidden, and puts the icon into the notification area.
  void load();
  /// Puts the icon there anew; one that is still there does not become two.
  void resetTray();

  // TrayFace
  void removeHiddenWinProc() override;
  void askToExit() override;
  void hideAndUnloadTray() override { unload(); }

  ui::PictureBox picTrayIco_XP;
  ui::PictureBox picTrayIco_2000;

  ui::MenuItem mnuTrayMenu;
  ui::MenuItem& mnuShowMainFace;
  ui::MenuItem& mnuLine1;
  ui::MenuItem& mnuConfig;
  ui::MenuItem& mnuLine2;
  ui::MenuItem& mnuAbout;
  ui::MenuItem& mnuFAQ;
  ui::MenuItem& mnuLine3;
  ui::MenuItem& mnuExit;

  /// The guard against a burst of requests.
  ui::Timer timDelayCallWinProc;
  /// Between the window's activation and its handing on.
  ui::Timer timDelayActivate;

 private:
  void copyData(std::uintptr_t number, std::span<const std::uint8_t> bytes) override;
  void taskbarCreated() override { resetTray(); }

  void listenToMenu();
  void takeNotification(std::int32_t code);
  void handForegroundOn();
  void openMenu();
  void openHelp();
  void showAbout();
  /// Shows the menu or dialog, unless a dialog of the tray's is up, which then comes to the front.
  void present(const std::function<void()>& menuOrDialog);
  const ui::PictureBox& picture() const;
  TrayIconRecord record() const;

  TrayServices services_;
  Controler& controler_;
  RequestReceiver& requests_;
  bool loaded_ = false;
  bool listening_ = false;  ///< from the load until the program leaves
  int presented_ = 0;       ///< menus and dialogs that are up
};

}  // namespace tessivo
