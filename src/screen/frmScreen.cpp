#include "screen/frmScreen.h"

#include "base/Twips.h"
#include "monitors/cMonitor.h"

namespace tessivo {
namespace {

constexpr int kDoubleClickWaitMs = 280;
constexpr int kNextTurnMs = 1;
constexpr int kTimePanelMs = 1000;
constexpr int kPositionReportMs = 2000;
constexpr const char* kSeparator = " / ";
constexpr const char* kZeroTime = "00:00:00";
constexpr const char* kCaption = "Tessivo 播放窗口";

// The time panel: a small dark plate in the upper left corner, in twips. Below the point where the
// guards look for RealPlayer's picture window, which it would hide from them.
constexpr Rect kTimePanel{120, 360, 2100, 330};
constexpr Rect kTimeLabel{75, 45, 1950, 240};
constexpr ui::Colour kBlack = 0x000000;
constexpr ui::Colour kTimeColour = 0xC8C8C8;

}  // namespace

frmScreen::frmScreen(const ScreenServices& services)
    : Form("frmScreen", kCaption, services.displays.twipsPerPixel()),
      picTimShowBack(this, "picTimShowBack"),
      labMovieTimShow(&picTimShowBack, "labMovieTimShow",
                      std::string(kZeroTime) + kSeparator + kZeroTime),
      timDBClickEvent(services.timers, "timDBClickEvent", kNextTurnMs),
      timDelayRaiseClickEvent(services.timers, "timDelayRaiseClickEvent", kDoubleClickWaitMs),
      timSetTimShowBackZOrder(services.timers, "timSetTimShowBackZOrder", kTimePanelMs),
      timFrmPosiReport(services.timers, "timFrmPosiReport", kPositionReportMs),
      services_(services),
      playback_(services.timers, services.files, services.log),
      guards_(services.timers, services.windows, services.caughtWindows, services.log),
      placement_(*this),
      menu_(services.displays) {
  setColours(std::nullopt, kBlack);
  picTimShowBack.setColours(std::nullopt, kBlack);
  picTimShowBack.setBounds(kTimePanel);
  labMovieTimShow.setColours(kTimeColour, kBlack);
  labMovieTimShow.setAlignment(ui::Alignment::centre);
  labMovieTimShow.setBounds(kTimeLabel);
  listenToPlayback();
  listenToTimers();
  onResize.listen([this] { layOut(); });
  menu_.chosen.listen([this](std::int32_t code) { clickPopuMenu.raise(code); });
  menu_.screenChosen.listen([this](const cMonitor& monitor) {
    setMaximum({monitor.Left(), monitor.Top(), monitor.Width(), monitor.Height()});
    boolMaxSize(true);
    clickPopuMenu.raise(menuCode::kScreen);
  });
}

frmScreen::~frmScreen() {
  unloadScreen();
}

void frmScreen::load() {
  services_.toolkit.open(*this);
  guards_.open(nativeHandle());
  wmpPlayer_ = services_.engines.createMediaPlayer(nativeHandle());
  realPlayer_ = services_.engines.createRealPlayer(nativeHandle());
  playback_.attach(*wmpPlayer_, *realPlayer_);
  guards_.attach(*wmpPlayer_, *realPlayer_);
  listenToEngines();
  layOut();
  raiseTimePanel();
  timFrmPosiReport.setEnabled(true);
}

void frmScreen::unloadScreen() {
  timFrmPosiReport.setEnabled(false);
  timSetTimShowBackZOrder.setEnabled(false);
  timDelayRaiseClickEvent.setEnabled(false);
  timDBClickEvent.setEnabled(false);
  guards_.detach();
  caughtMouse_.disconnect();
  playback_.detach();
  realPlayer_.reset();
  wmpPlayer_.reset();
  guards_.close();
  unload();
}

void frmScreen::listenToPlayback() {
  playback_.JinDu.listen([this](std::int32_t percent, std::int32_t position,
                                const std::string& positionText, std::int32_t length,
                                const std::string& lengthText) {
    JinDu.raise(percent, position, positionText, length, lengthText);
    showTime(positionText, lengthText);
  });
  playback_.PlayErr.listen([this](const std::string& reason) { PlayErr.raise(reason); });
  playback_.PlayOver.listen([this] { PlayOver.raise(); });
  playback_.positionCleared.listen([this] { clearPosition(); });
  playback_.playing.listen([this] { raiseTimePanel(); });
}

void frmScreen::listenToTimers() {
  timSetTimShowBackZOrder.onTimer.listen([this] {
    timSetTimShowBackZOrder.setEnabled(false);
    picTimShowBack.bringToFront();
  });
  timDelayRaiseClickEvent.onTimer.listen([this] {
    timDelayRaiseClickEvent.setEnabled(false);
    ClickPlayer.raise();
  });
  timDBClickEvent.onTimer.listen([this] {
    timDBClickEvent.setEnabled(false);
    raiseDoubleClick();
  });
  timFrmPosiReport.onTimer.listen([this] {
    placement_.hold(services_.displays);
    reportPosition.raise(reportedRect());
  });
}

void frmScreen::listenToEngines() {
  wmpPlayer_->click.listen([this](MouseButton button) {
    if (button != MouseButton::right) timDelayRaiseClickEvent.setEnabled(true);
    timSetTimShowBackZOrder.setEnabled(true);
  });
  wmpPlayer_->doubleClick.listen([this] {
    timDBClickEvent.setEnabled(true);
    raiseDoubleClick();
  });
  wmpPlayer_->mouseDown.listen([this](MouseButton button) {
    if (button == MouseButton::right) createScreenListMenu();
  });
  wmpPlayer_->mouseUp.listen([this](MouseButton button) {
    if (button == MouseButton::right) popuCtrlMenu();
  });
  realPlayer_->pictureMouse.listen([this](PictureMouse what) { onPictureMouse(what); });
  caughtMouse_ = services_.caughtWindows.pictureMouse.connect(
      [this](PictureMouse what) { onPictureMouse(what); });
}

void frmScreen::onPictureMouse(PictureMouse what) {
  if (what == PictureMouse::leftUp) timDelayRaiseClickEvent.setEnabled(true);
  if (what == PictureMouse::leftDoubleClick) timDBClickEvent.setEnabled(true);
  if (what == PictureMouse::rightUp) openControlMenu();
}

void frmScreen::layOut() {
  if (!wmpPlayer_ || !realPlayer_) return;  // on the way in or out
  const auto twips = twipsPerPixel();
  const Rect inner{0, 0, toPixels(scaleWidth(), twips.x), toPixels(scaleHeight(), twips.y)};
  wmpPlayer_->move(inner);
  wmpPlayer_->setEnableContextMenu(false);
  wmpPlayer_->setEnableErrorDialogs(false);
  wmpPlayer_->setInvokeUrls(false);
  wmpPlayer_->setFullScreen(false);
  timSetTimShowBackZOrder.setEnabled(true);
  guards_.timRealPlayerNewWinCheck.setEnabled(true);
  using Setting = RealPlayerSlot::Setting;
  realPlayer_->setSetting(Setting::s277, true);
  realPlayer_->setSetting(Setting::s353, false);
  realPlayer_->setSetting(Setting::s295, false);
  realPlayer_->setSetting(Setting::s338, false);
  realPlayer_->setSetting(Setting::s326, true);
  realPlayer_->setSetting(Setting::s307, true);
  realPlayer_->setSetting(Setting::s225, false);
  realPlayer_->move(inner);
}

void frmScreen::showTime(const std::string& position, const std::string& length) {
  labMovieTimShow.setCaption(position + kSeparator + length);
}

void frmScreen::clearPosition() {
  const std::string& text = labMovieTimShow.caption();
  const auto separator = text.find(kSeparator);
  if (separator != std::string::npos) {
    labMovieTimShow.setCaption(kZeroTime + text.substr(separator));
  }
}

void frmScreen::raiseTimePanel() {
  picTimShowBack.bringToFront();
  timSetTimShowBackZOrder.setEnabled(true);
}

/// In full screen the pending single click stays: the owner receives both events then.
void frmScreen::raiseDoubleClick() {
  if (!boolMaxSize()) timDelayRaiseClickEvent.setEnabled(false);
  DbClickPlayer.raise(boolMaxSize());
}

void frmScreen::openControlMenu() {
  createScreenListMenu();
  popuCtrlMenu();
}

void frmScreen::popuCtrlMenu() {
  if (leaving_) return;
  menu_.prepare({lngState(), boolMaxSize(), boolMute()});
  popupMenu(menu_.mnuPopuMenu());
}

Rect frmScreen::reportedRect() const {
  const auto twips = twipsPerPixel();
  // The left edge by the vertical factor, kept so; both factors are equal on ordinary displays.
  return {toPixels(left(), twips.y), toPixels(top(), twips.y), toPixels(width(), twips.x),
          toPixels(height(), twips.y)};
}

void setInitialGeometry(frmScreen& screen, AimMonitor& target, const Displays& displays) {
  if (target.GetAimMonitorIndex() > 0) {
    screen.setMaximum({target.Left().value_or(0), target.Top().value_or(0),
                       target.Width().value_or(0), target.Height().value_or(0)});
  }
  const Rect primary = displays.primaryScreen();
  screen.setNormal(middleOf(primary));
}

}  // namespace tessivo
