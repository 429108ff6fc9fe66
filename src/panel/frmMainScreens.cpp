// The control panel's full-screen button and its menu of monitors.
#include "panel/frmMain.h"
#include "ui/Icons.h"

namespace tessivo {

// The playback window's new place gives it the keyboard, and on the panel's own monitor covers the
// panel, which takes both back.

void frmMain::setScreen() {
  if (cmdSetScreen.tag() == "2") {
    controler_.leaveFullScreen();
    setFaceToAPlayState(panelState::kNormal, false);
    activate();
    return;
  }
  if (mnuScreens.count() == 0) addScreenEntry("");
  mnuScreens.shrinkTo(1);
  mnuSx(0).setCaption("主屏幕");
  const std::int32_t monitors = controler_.lngMonitorCount();
  for (std::int32_t number = 2; number <= monitors; ++number) {
    addScreenEntry("屏幕" + std::to_string(number));
  }
  mnuScreens.add("mnuSx" + std::to_string(mnuScreens.count()), "取消");
  const Rect& button = cmdSetScreen.bounds();
  popupMenu(mnuScreens, Point{button.left, button.top + button.height});
}

/// The entry for the next monitor.
ui::MenuItem& frmMain::addScreenEntry(const std::string& caption) {
  const std::size_t index = mnuScreens.count();
  ui::MenuItem& entry = mnuScreens.add("mnuSx" + std::to_string(index), caption);
  entry.onClick.listen([this, index] {
    if (controler_.showOnMonitor(static_cast<std::int32_t>(index) + 1)) {
      setFaceToAPlayState(panelState::kFullScreen, false);
      activate();
    }
  });
  return entry;
}

void frmMain::showScreenState(bool fullScreen) {
  cmdSetScreen.setTag(fullScreen ? "2" : "1");
  cmdSetScreen.setCaption(fullScreen ? "退出全屏" : "全屏到>");
  cmdSetScreen.setIcon(fullScreen ? icon::kLeaveFullScreen : icon::kFullScreen);
}

}  // namespace tessivo
