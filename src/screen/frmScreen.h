#pragma once

#include <memory>
#include <optional>
#include <string>

#include "base/Signal.h"
#include "monitors/AimMonitor.h"
#include "platform/DesktopWindows.h"
#include "platform/Displays.h"
#include "screen/CaughtWindows.h"
#include "screen/EngineFactory.h"
#include "screen/EngineGuards.h"
#include "screen/FullScreenPlacement.h"
#include "screen/Playback.h"
#include "screen/ScreenMenu.h"
#include "ui/Controls.h"
#include "ui/Form.h"
#include "ui/Timer.h"

namespace tessivo {

/// What the playback window needs of the rest of the program.
struct ScreenServices {
  ui::Toolkit& toolkit;
  TimerService& timers;
  const Displays& displays;
  const Files& files;
  Log& log;
  EngineFactory& engines;
  const DesktopWindows& windows;
  CaughtWindows& caughtWindows;
};

/// The playback window: shows the picture on the chosen monitor. It never decides what to play next
/// and calls nobody: it reports progress, the end of a file, errors and the mouse's gestures by
/// events, and its owner, the controller, acts.
class frmScreen : public ui::Form {
 public:
  explicit frmScreen(const ScreenServices& services);
  ~frmScreen() override;

  /// Creates the window, hidden, with both engines.
  void load();
  /// The program leaves: no menu holds it up from here on.
  void leave() { leaving_ = true; }
  /// Takes the engines and the window down.
  void unloadScreen();

  // What plays; see Playback for the rules.
  std::int32_t lngState() const { return playback_.lngState(); }
  std::int32_t lngPlayRuler() const { return playback_.lngPlayRuler(); }
  void lngPlayRuler(std::int32_t rule) { playback_.lngPlayRuler(rule); }
  std::string strFilePath() const { return playback_.strFilePath(); }
  void strFilePath(const std::string& path) { playback_.strFilePath(path); }
  bool play() { return playback_.play(); }
  void pause() { playback_.pause(); }
  void stopPlay() { playback_.stopPlay(); }
  std::int16_t intVolume() const { return playback_.intVolume(); }
  void intVolume(std::int16_t volume) { playback_.intVolume(volume); }
  bool boolMute() const { return playback_.boolMute(); }
  void boolMute(bool mute) { playback_.boolMute(mute); }
  /// See Playback.
  void prepareNext(const std::string& path) { playback_.prepareNext(path); }
  std::optional<std::int32_t> lngJinDu() { return playback_.lngJinDu(); }
  bool lngJinDu(std::int32_t seconds) { return playback_.lngJinDu(seconds); }
  std::int32_t lngFileLength() const { return playback_.lngFileLength(); }
  /// Kept only: whether the owner wants progress.
  bool boolReportJinDu() const { return reportJinDu_; }
  void boolReportJinDu(bool report) { reportJinDu_ = report; }

  // Placement, in pixels.
  bool boolMaxSize() const { return placement_.boolMaxSize(); }
  void boolMaxSize(bool maxSize) { placement_.boolMaxSize(maxSize); }
  const Rect& maximum() const { return placement_.maximum(); }
  void setMaximum(const Rect& pixels) { placement_.setMaximum(pixels); }
  const Rect& normal() const { return placement_.normal(); }
  void setNormal(const Rect& pixels) { placement_.setNormal(pixels); }

  void createScreenListMenu() { menu_.createScreenListMenu(); }
  /// Shows the control menu at the pointer and returns when it is closed.
  void popuCtrlMenu();
  ScreenMenu& menu() { return menu_; }
  Playback& playback() { return playback_; }
  EngineGuards& guards() { return guards_; }

  /// Percent, position (s), its text, length (s), its text.
  Signal<std::int32_t, std::int32_t, std::string, std::int32_t, std::string> JinDu;
  Signal<std::string> PlayErr;
  Signal<> PlayOver;
  /// `boolMaxSize` before any change.
  Signal<bool> DbClickPlayer;
  Signal<> ClickPlayer;
  Signal<std::int32_t> clickPopuMenu;
  /// Every two seconds from load to unload: the window's rectangle in pixels.
  Signal<Rect> reportPosition;

  ui::PictureBox picTimShowBack;
  ui::Label labMovieTimShow;
  ui::Timer timDBClickEvent;
  ui::Timer timDelayRaiseClickEvent;
  ui::Timer timSetTimShowBackZOrder;
  ui::Timer timFrmPosiReport;

 private:
  void listenToPlayback();
  void listenToTimers();
  void listenToEngines();
  void layOut();
  void showTime(const std::string& position, const std::string& length);
  void clearPosition();
  void raiseTimePanel();
  void raiseDoubleClick();
  void onPictureMouse(PictureMouse what);
  void openControlMenu();
  Rect reportedRect() const;

  ScreenServices services_;
  std::unique_ptr<MediaPlayerSlot> wmpPlayer_;
  std::unique_ptr<RealPlayerSlot> realPlayer_;
  Playback playback_;
  EngineGuards guards_;
  FullScreenPlacement placement_;
  ScreenMenu menu_;
  Connection caughtMouse_;
  bool reportJinDu_ = true;
  bool leaving_ = false;
};

/// Fills the two placements at start-up: full screen on the target monitor, and three quarters of
/// the primary screen, centred. It switches nothing.
void setInitialGeometry(frmScreen& screen, AimMonitor& target, const Displays& displays);

}  // namespace tessivo
