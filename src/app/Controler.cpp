#include "app/Controler.h"

#include <algorithm>
#include <exception>
#include <new>

#include "base/Text.h"
#include "monitors/cMonitor.h"
#include "monitors/cMonitors2.h"

namespace tessivo {
namespace {

constexpr std::int32_t kSecondsBeforeMouseHides = 5;
constexpr std::int32_t kPrepareSeconds = 3;  ///< before the end of an item
constexpr int kEngineSettleMs = 200;
constexpr int kSaveAttempts = 10;
constexpr int kSaveAgainMs = 100;

bool contains(const cMonitor& monitor, Point point) {
  return monitor.Left() <= point.x && point.x <= monitor.Left() + monitor.Width() &&
         monitor.Top() <= point.y && point.y <= monitor.Top() + monitor.Height();
}

/// The first monitor, primary first, that contains the point, edges included.
std::optional<cMonitor> monitorUnder(const Displays& displays, Point point) {
  cMonitors2 monitors(displays);
  monitors.GetMonitorArray();
  for (std::int32_t i = 1; i <= monitors.lngMonitorsCount(); ++i) {
    auto monitor = monitors.objGetAMonitorByIndex(i);
    if (monitor && contains(*monitor, point)) return monitor;
  }
  return std::nullopt;
}

}  // namespace

Controler::Controler(const ControlerServices& services)
    : services_(services),
      setRegPrivilege_(services.token),
      adding_(services.clock, services.formTimers) {
  std::string ignored;  // what the user may not have, he does without
  setRegPrivilege_.boolEnablePrivilege(ignored);
  adding_.progressed.listen([this] { showAddingProgress(); });
}

Controler::~Controler() {
  services_.shownWindows.stop();
}

void Controler::setInitializePram(const std::string& databasePath,
                                  const std::string& screenSaverFolder) {
  config_.strDBFilePath(databasePath);
  if (!config_.boolGetData() && !config_.strReport().empty()) {
    services_.log.error("settings not read: " + config_.strReport());
  }
  holdSystemAwake();
  startMouseHiding();
  startScreenSaver(screenSaverFolder);
}

void Controler::startMouseHiding() {
  m_objMouseHideShow_ = std::make_unique<MouseHideShow>(
      MouseHideServices{services_.clock, services_.pointer, services_.windows, services_.timers});
  m_objMouseHideShow_->tellMePlayArea.listen(
      [this](PlayArea& area) { m_objMouseHideShow_tellMePlayArea(area); });
  m_objMouseHideShow_->lngBeforeHideMouseSecondNum(kSecondsBeforeMouseHides);
  m_objMouseHideShow_->boolEnabled(true);
}

void Controler::guard(frmScreen& screen) {
  services_.shownWindows.watch(
      [&screen](const ShownWindow& shown) { screen.guards().noteShown(shown); });
}

void Controler::setReferences(TrayFace& frmHide, PanelFace& frmMain, frmScreen& screen,
                              PlayList& playList) {
  tray_ = &frmHide;
  panel_ = &frmMain;
  screen_ = &screen;
  playList_ = &playList;
  listenToScreen();
}

void Controler::listenToScreen() {
  connections_.clear();
  connections_.push_back(screen_->JinDu.connect(
      [this](std::int32_t percent, std::int32_t position, const std::string& positionText,
             std::int32_t length, const std::string& lengthText) {
        panel_->setJinDu(percent, position, positionText, length, lengthText);
        prepareNextItem(length > 0 && length - position <= kPrepareSeconds);
      }));
  connections_.push_back(screen_->PlayErr.connect(
      [this](const std::string& reason) { panel_->playErrEventProcess(reason); }));
  connections_.push_back(screen_->PlayOver.connect([this] { panel_->playOverEventProcess(); }));
  connections_.push_back(screen_->DbClickPlayer.connect(
      [this](bool boolMaxSize) { frmScreen_DbClickPlayer(boolMaxSize); }));
  connections_.push_back(screen_->ClickPlayer.connect([this] { frmScreen_ClickPlayer(); }));
  connections_.push_back(
      screen_->clickPopuMenu.connect([this](std::int32_t code) { frmScreen_clickPopuMenu(code); }));
  // In full screen there is nothing to close it by.
  connections_.push_back(screen_->onClose.connect([this] { tray_->askToExit(); }));
  connections_.push_back(screen_->onEndSession.connect([this] { exitSys(); }));
  // Its first report comes later than an impatient screen saver.
  setPlayPosiForScreenSaver(screen_->windowRect());
  connections_.push_back(screen_->reportPosition.connect(
      [this](const Rect& pixels) { setPlayPosiForScreenSaver(pixels); }));
}

void Controler::exitSys() {
  if (exiting_) return;
  exiting_ = true;
  // A step that fails must not keep the others from being done, nor the program from ending.
  if (panel_) {
    for (const LeavingStep step :
         {&Controler::hearNobody, &Controler::finishWork, &Controler::saveResumePoint,
          &Controler::takeFormsDown, &Controler::watchNoMore, &Controler::saveSettings,
          &Controler::savePlayList}) {
      attempt(step);
    }
  }
  services_.leaveWatch.arm(kLongestEndMs, {});
  for (const LeavingStep step :
       {&Controler::stopGuard, &Controler::endScreenSavers, &Controler::dropPrivileges}) {
    attempt(step);
  }
  services_.log.info("stop");
  services_.loop.quit();
}

void Controler::attempt(LeavingStep step) {
  try {
    (this->*step)();
  } catch (const std::bad_alloc&) {
    services_.log.error("no memory for a step of leaving");
  } catch (const std::exception& e) {
    services_.log.error(std::string("unexpected error while leaving: ") + e.what());
  }
}

void Controler::hearNobody() {
  tray_->removeHiddenWinProc();
  services_.caughtWindows.giveBackAll();
}

void Controler::finishWork() {
  panel_->finishWork();
  finishAdding();
}

void Controler::saveResumePoint() {
  if (!config_.boolSavePlayList()) return;
  config_.lngCurrentPlayItemLen(panel_->lngGetMovieLen());
  config_.lngCurrentPlayPosition(panel_->lngGetJinDu());
}

/// Nobody waits for a window any more, so a database that another program holds for a moment (a
/// virus scanner, a backup) is tried for longer than while the forms were there.
bool Controler::savePatiently(const std::function<bool()>& save) {
  for (int attempts = 1; !save(); ++attempts) {
    if (attempts == kSaveAttempts) return false;
    services_.loop.pumpFor(kSaveAgainMs);
  }
  return true;
}

void Controler::saveSettings() {
  if (!savePatiently([this] { return config_.boolSaveData(); })) {
    services_.log.error("settings not saved: " + config_.strReport());
  }
}

void Controler::savePlayList() {
  if (!config_.boolSavePlayList()) return;
  if (!savePatiently([this] { return playList_->boolSavePlayListToPLDB(); })) {
    services_.log.error("playlist not saved: " + playList_->strReport());
  } else if (!playList_->strReport().empty()) {
    services_.log.info("playlist saved; " + playList_->strReport());
  }
}

void Controler::dropPrivileges() {
  std::string ignored;  // the process ends anyway
  setRegPrivilege_.boolUnEnablePrivilege(ignored);
}

/// While they are taken down, on another thread: nobody may turn a message loop there, and the
/// sleep that was kept off ends with the process.
void Controler::saveWithoutForms() {
  if (!config_.boolSaveData()) {
    services_.log.error("settings not saved: " + config_.strReport());
  }
  if (config_.boolSavePlayList() && !playList_->boolSavePlayListToPLDB()) {
    services_.log.error("playlist not saved: " + playList_->strReport());
  }
  if (m_objScreenSaveAndPower_) m_objScreenSaveAndPower_->OpenScreenSave();
}

void Controler::takeFormsDown() {
  services_.leaveWatch.arm(kLongestEndMs, [this] { saveWithoutForms(); });
  connections_.clear();
  screen_->leave();
  panel_->hideAndUnloadFace();
  screen_->boolMute(false);
  services_.loop.pumpFor(kEngineSettleMs);  // lets the engines settle before their window goes
  screen_->hide();
  screen_->unloadScreen();
  tray_->hideAndUnloadTray();
  m_objMouseHideShow_.reset();  // shows the pointer
}

/// The answer that playOverEventProcess of the panel will find at the end of the item.
void Controler::prepareNextItem(bool soon) {
  MoviePtr next;
  if (soon) {
    const std::int32_t type = config_.lngRecyclePlayType();
    next = type == 1 ? playList_->objGetPlayItem() : playList_->objPeekNextItem(type == 2);
  }
  screen_->prepareNext(next ? next->strFilePath : "");
}

bool Controler::play() {
  return screen_->play();
}
void Controler::pause() {
  screen_->pause();
}
void Controler::stopPlay() {
  screen_->stopPlay();
}

void Controler::setPlayRuler(std::int32_t rule) {
  config_.lngPlayRuler(rule);
  screen_->lngPlayRuler(rule);
}

void Controler::setFilePath(const std::string& path) {
  screen_->strFilePath(path);
}

void Controler::setVolume(std::int16_t volume) {
  config_.intVolumeValue(volume);
  screen_->intVolume(volume);
}

std::int32_t Controler::lngGetClipLength() const {
  return screen_->lngFileLength();
}
void Controler::setJinDu(std::int32_t position) {
  screen_->lngJinDu(position);
}
void Controler::setMute(bool mute) {
  screen_->boolMute(mute);
}
bool Controler::boolGetMuteValue() const {
  return screen_->boolMute();
}
std::int32_t Controler::lngScreenState() const {
  return screen_->lngState();
}

void Controler::showMainFace() {
  if (exiting_ || !panel_) return;
  panel_->restoreFace();
  resetMainFrmPosiByMousePosi();
  panel_->bringFaceToFront();
}

void Controler::activateMainFace() {
  if (!exiting_ && panel_) panel_->bringFaceToFront();
}

void Controler::resetMainFrmPosiByMousePosi() {
  const auto monitor = monitorUnder(services_.displays, services_.pointer.position());
  if (!monitor) return;
  const Rect face = panel_->faceRect();
  if (contains(*monitor, {face.left + face.width / 2, face.top + face.height / 2})) return;
  // Of a panel that is larger than the work area the upper left corner is to be seen.
  panel_->moveFace({monitor->WorkLeft() + std::max(0, (monitor->WorkWidth() - face.width) / 2),
                    monitor->WorkTop() + std::max(0, (monitor->WorkHeight() - face.height) / 2)});
}

void Controler::frmScreen_clickPopuMenu(std::int32_t code) {
  const auto show = [this](int state) { panel_->setFaceToAPlayState(state, false); };
  const auto mute = [this, &show](bool on) {
    screen_->boolMute(on);
    show(screen_->boolMute() ? panelState::kMuted : panelState::kSoundOn);
  };
  switch (code) {
    case menuCode::kExitFullScreen:
      switchFullScreen(false);
      break;
    case menuCode::kScreen:
      switchFullScreen(true);
      break;
    case menuCode::kPlay:
      show(play() ? panelState::kPlaying : panelState::kPaused);
      break;
    case menuCode::kPause:
      pause();
      show(panelState::kPaused);
      break;
    case menuCode::kStop:
      stopPlay();
      show(panelState::kStopped);
      break;
    case menuCode::kSoundOn:
      mute(false);
      break;
    case menuCode::kMute:
      mute(true);
      break;
    case menuCode::kShowMainFace:
      showMainFace();
      break;
    default:
      break;
  }
}

void Controler::switchFullScreen(bool fullScreen) {
  screen_->boolMaxSize(fullScreen);
  panel_->keepFaceOnTop(fullScreen);
  panel_->setFaceToAPlayState(fullScreen ? panelState::kFullScreen : panelState::kNormal, false);
}

void Controler::frmScreen_DbClickPlayer(bool boolMaxSize) {
  if (boolMaxSize) {
    showMainFace();
    return;
  }
  const auto monitor = monitorUnder(services_.displays, services_.pointer.position());
  if (!monitor) return;
  showOn(*monitor);
}

std::int32_t Controler::lngMonitorCount() const {
  cMonitors2 monitors(services_.displays);
  monitors.GetMonitorArray();
  return monitors.lngMonitorsCount();
}

bool Controler::showOnMonitor(std::int32_t number) {
  cMonitors2 monitors(services_.displays);
  monitors.GetMonitorArray();
  const auto monitor = monitors.objGetAMonitorByIndex(number);
  if (!monitor) return false;
  // In full screen already, it comes to another monitor by leaving and entering again.
  if (screen_->boolMaxSize()) screen_->boolMaxSize(false);
  showOn(*monitor);
  return true;
}

void Controler::showOn(const cMonitor& monitor) {
  screen_->setMaximum({monitor.Left(), monitor.Top(), monitor.Width(), monitor.Height()});
  switchFullScreen(true);
}

void Controler::m_objMouseHideShow_tellMePlayArea(PlayArea& area) const {
  if (!screen_) return;
  const Rect window = screen_->windowRect();
  area = {window.left,       window.top, window.width, window.height, screen_->boolMaxSize(),
          screen_->caption()};
}

}  // namespace tessivo
