#include "app/StartUp.h"

#include "app/CommandLine.h"
#include "monitors/cMonitors.h"

namespace tessivo {
namespace {

constexpr std::int16_t kVolumeBeforeSettings = 30;

void loadScreen(const StartUpParts& parts) {
  frmScreen& screen = parts.screen;
  const auto twips = parts.displays.twipsPerPixel();
  setInitialGeometry(screen, parts.aimMonitor, parts.displays);
  const Rect normal = screen.normal();
  screen.setBounds({toTwips(normal.left, twips.x), toTwips(normal.top, twips.y),
                    toTwips(normal.width, twips.x), toTwips(normal.height, twips.y)});
  screen.load();
  // One screen is the operator's; the picture takes a screen of its own only when there is another.
  if (parts.aimMonitor.intMonitorCount() >= 2) screen.boolMaxSize(true);
  screen.show();
  screen.intVolume(kVolumeBeforeSettings);
}

/// The file that the program was started with is opened while the panel comes up.
void openAhead(const StartUpParts& parts) {
  if (!CommandLine::isPath(parts.commandLine)) return;
  parts.screen.lngPlayRuler(parts.controler.config().lngPlayRuler());
  parts.screen.prepareNext(parts.commandLine);
}

void loadPlayList(const StartUpParts& parts) {
  if (parts.controler.config().boolSavePlayList()) {
    if (parts.playList.boolGetPlayListFromPLDB()) return;
    parts.log.error("playlist not read: " + parts.playList.strReport());
  } else if (!parts.playList.boolSavePlayListToPLDB()) {
    parts.log.error("stored playlist not cleared: " + parts.playList.strReport());
  }
}

/// Loads the stored play item without starting it; its first play starts where it was left.
void loadPlayItem(const StartUpParts& parts) {
  const SysConfig& config = parts.controler.config();
  if (!config.boolSavePlayList() || parts.playList.lngListCount() == 0) return;
  const auto item = parts.playList.objGetPlayItem();
  if (!item) return;
  parts.screen.strFilePath(item->strFilePath);
  // A position outside the item (a damaged setting, a file that is shorter now) means its start.
  const std::int32_t position = config.lngCurrentPlayPosition();
  if (position > 0 && position < config.lngCurrentPlayItemLen()) parts.screen.lngJinDu(position);
}

void listItems(const StartUpParts& parts) {
  for (std::int32_t i = 1; i <= parts.playList.lngListCount(); ++i) {
    parts.panel.AddAMovieToFaceList(*parts.playList.objGetAItem(i));
  }
  if (const auto item = parts.playList.objGetPlayItem()) {
    parts.controler.selectAItem(item->strKey);
    parts.panel.setPLItemStateByKey(item->strKey, 1);
  }
}

void showPanel(const StartUpParts& parts) {
  if (parts.screen.boolMaxSize()) {
    parts.panel.keepFaceOnTop(true);
    parts.panel.setFaceToAPlayState(panelState::kFullScreen, false);
  }
  parts.panel.bringFaceToFront();
}

}  // namespace

Rect panelArea(const Displays& displays) {
  const cMonitors monitors(displays);
  const auto primary = monitors.Monitor(monitors.primaryIndex());
  if (!primary) return displays.primaryScreen();
  return {primary->WorkLeft(), primary->WorkTop(), primary->WorkWidth(), primary->WorkHeight()};
}

void startUp(const StartUpParts& parts) {
  const SysConfig& config = parts.controler.config();
  parts.playList.strPLDBFilePath(parts.paths.database);
  parts.controler.setInitializePram(parts.paths.database, parts.paths.screenSaverFolder);
  parts.controler.guard(parts.screen);  // what the engines pop up when they are made is closed, too
  parts.loadTray();
  loadScreen(parts);
  openAhead(parts);
  parts.loadPanel();
  parts.controler.setReferences(parts.tray, parts.panel, parts.screen, parts.playList);
  loadPlayList(parts);
  parts.screen.intVolume(config.intVolumeValue());
  parts.screen.lngPlayRuler(config.lngPlayRuler());
  listItems(parts);
  loadPlayItem(parts);
  // With the stored item loaded, so that its name and position are shown, too.
  parts.panel.setFaceBySysConfigPara(config);
  if (parts.controler.leaves()) return;  // the session ended meanwhile
  showPanel(parts);
  parts.requests.boolSysReady(true);
  parts.commandLines.processCmdLine(parts.commandLine);
}

}  // namespace tessivo
