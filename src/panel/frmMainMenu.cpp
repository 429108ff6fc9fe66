// The control panel's copies of what the tray's menu has.
#include "panel/HelpPage.h"
#include "panel/frmAbout.h"
#include "panel/frmMain.h"

namespace tessivo {

void frmMain::listenToMenu() {
  mnuConfig.onClick.listen([this] { controler_.showConfigFace(); });
  mnuFAQ.onClick.listen([this] { openHelp(); });
  mnuAbout.onClick.listen([this] { showAbout(); });
  mnuHideFace.onClick.listen([this] { hide(); });
  for (ui::MenuItem* item : {&mnuExit, &mnuExit2}) {
    item->onClick.listen([this] { services_.exitQuestion.ask(*this); });
  }
  cmdMenu.onClick.listen([this] {
    const Rect& button = cmdMenu.bounds();
    popupMenu(mnuSystem, Point{button.left, button.top + button.height});
  });
  onMouseUp.listen([this](const ui::MouseEvent& event) {
    if (event.button == MouseButton::right) popupMenu(mnuFace);
  });
}

void frmMain::openHelp() {
  openHelpPage(services_.shell, services_.toolkit, *this, services_.helpPage);
}

void frmMain::showAbout() {
  frmAbout about(services_.shell, twipsPerPixel());
  about.showOver(services_.toolkit, *this);
}

}  // namespace tessivo
