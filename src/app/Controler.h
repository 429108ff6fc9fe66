#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "app/PanelFace.h"
#include "app/SlicedWork.h"
#include "app/TrayFace.h"
#include "config/SetRegPrivilege.h"
#include "data/PlayList.h"
#include "data/RunParameter.h"
#include "data/SysConfig.h"
#include "platform/Files.h"
#include "platform/LeaveWatch.h"
#include "platform/Log.h"
#include "platform/MessageLoop.h"
#include "platform/Pointer.h"
#include "platform/ShownWindows.h"
#include "saver/ScreenSaveAndPower.h"
#include "saver/ScreenSaverCtrl.h"
#include "screen/CaughtWindows.h"
#include "screen/MouseHideShow.h"
#include "screen/frmScreen.h"

namespace tessivo {

class cMonitor;

/// What the controller needs of the system.
struct ControlerServices {
  MovieKeys& movieKeys;
  const Files& files;
  const Displays& displays;
  Pointer& pointer;
  MessageLoop& loop;
  LeaveWatch& leaveWatch;
  Log& log;
  const Clock& clock;
  const DesktopWindows& windows;
  MTimer& timers;
  ShownWindows& shownWindows;
  CaughtWindows& caughtWindows;
  TimerService& formTimers;
  const IdleInput& idleInput;
  SystemPower& power;
  Processes& processes;
  ProcessToken& token;
  std::string applicationFolder;  ///< without a backslash at its end
};

/// Directions of stepping.
namespace stepDirection {
inline constexpr int kNext = 1;
inline constexpr int kPrevious = 2;
}  // namespace stepDirection

/// The centre of the program: owns the settings and the playlist's use, carries out every command
/// of the control panel and the playback window, and is the only one that calls either. Nothing
/// throws out of its operations.
class Controler {
 public:
  explicit Controler(const ControlerServices& services);
  ~Controler();
  Controler(const Controler&) = delete;
  Controler& operator=(const Controler&) = delete;

  /// The start sequence: loads the settings from the database, keeps the system awake, begins to
  /// hide the pointer over the picture and, if the settings say so, to watch for an idle user.
  void setInitializePram(const std::string& databasePath, const std::string& screenSaverFolder);
  /// From here on windows that an engine of the playback window pops up are closed.
  void guard(frmScreen& screen);
  /// The references, once the forms are there. From here on the controller hears the playback
  /// window's events.
  void setReferences(TrayFace& frmHide, PanelFace& frmMain, frmScreen& screen, PlayList& playList);
  static constexpr int kLongestEndMs = 5000;
  /// The only way out: completes the additions under way, saves, takes the forms down and ends the
  /// message loop. Forms or engines that hang while they are taken down are given kLongestEndMs;
  /// everything is saved all the same, and the process ends by force. What those additions were to
  /// play is not started: the resume point is that of the item that played. A second call, from an
  /// event inside the first, does nothing. Before the references are set there is nothing to save:
  /// the loop ends as soon as it begins.
  void exitSys();
  /// Whether the program is about to end.
  bool leaves() const { return exiting_; }

  bool play();
  void pause();
  void stopPlay();
  void setPlayRuler(std::int32_t rule);
  void setFilePath(const std::string& path);
  void setVolume(std::int16_t volume);
  std::int32_t lngGetClipLength() const;
  /// Seconds.
  void setJinDu(std::int32_t position);
  void setMute(bool mute);
  bool boolGetMuteValue() const;

  /// Adds one file; nothing when the path is neither a web address nor an existing file, or longer
  /// than the system's longest. Double quotes around the path are not part of it, nor is anything
  /// from a NUL on.
  MoviePtr AddAMovieToPL(const std::string& path);
  /// Adds the paths from index 1 on and, if asked, plays the first one added. A few are added
  /// before the call returns; of many the rest follows in slices, while the user goes on working,
  /// and further batches wait until it is their turn. Whoever plays or selects "the first" means
  /// the first of the batch that is still in the list then.
  void BatchAddMovie(std::vector<std::string> paths, bool play);
  /// Removes an item. `next` is the entry to select then: the one that followed, else the one
  /// before, else nothing; it is the act item and, when the removed item was the play item, the
  /// play item, loaded but not started.
  bool deleteAItemFromPL(const std::string& key, MoviePtr& next);
  /// Empties the list, also of what still waits to be added; nothing plays afterwards, not even
  /// what a waiting batch was to play.
  void deleteAllItemFromPL();
  bool moveAItemUpDown(int direction, const std::string& key, MoviePtr& neighbour);
  void selectAItem(const std::string& key);
  MoviePtr objGetPlayItem() const;
  std::int32_t lngGetIndexByItemFlag(const std::string& key) const;
  std::int32_t lngGetPlayListItemCount() const;
  bool PlayAMovieByFlag(const std::string& key);
  /// Steps the play item (1 next, 2 previous) and loads the new one; starting it is the caller's
  /// step. Any other direction does nothing.
  void playNextPreviousPlayItem(int direction, bool recycle, MoviePtr& previous, MoviePtr& now);

  /// The monitors there are now.
  std::int32_t lngMonitorCount() const;
  /// Full screen on a monitor: counted from 1, the primary first, then as the system reports them.
  /// False and nothing done when there is no such monitor (any more).
  bool showOnMonitor(std::int32_t number);
  void leaveFullScreen() { switchFullScreen(false); }

  /// Shows the control panel, wherever it is hidden, in front of everything, on the pointer's
  /// monitor. Nothing while the program starts or leaves.
  void showMainFace();
  /// Shows the control panel where it is, in front, with the keyboard.
  void activateMainFace();
  /// Asks for the settings dialog.
  void showConfigFace() {
    if (!exiting_) configFaceWanted.raise();
  }
  /// Puts the control panel on the monitor under the pointer: where it is when it stands there
  /// already, else in the middle of that monitor's work area.
  void resetMainFrmPosiByMousePosi();

  /// Where the playback window is, which a screen-saver program is to cover. Pixels.
  void setPlayPosiForScreenSaver(const Rect& pixels);
  void previewAScrSavProcByName(const std::string& name);
  /// See `ScreenSaverCtrl::showAScrSavPrcPramConfigFace`.
  std::string showAScrSavPrcPramConfigFace(const std::string& name, std::int32_t x, std::int32_t y,
                                           const std::string& ownerCaption);
  /// The screen-saver programs that the folder holds now.
  std::vector<std::string> screenSaverNames();
  /// Takes what the settings dialog asked into the settings, saves them, and lets the screen saver
  /// follow them at once.
  void saveRunPram(const RunParameter& parameter);

  SysConfig& config() { return config_; }
  std::int32_t lngScreenState() const;

  /// Whoever has the settings dialog opens it.
  Signal<> configFaceWanted;

  // The playback window's events.
  void frmScreen_clickPopuMenu(std::int32_t code);
  void frmScreen_ClickPlayer() { showMainFace(); }
  void frmScreen_DbClickPlayer(bool boolMaxSize);

  /// The mouse hider's question: the playback window, while it is full screen.
  void m_objMouseHideShow_tellMePlayArea(PlayArea& area) const;

 private:
  /// Paths on their way into the list.
  struct Batch {
    std::vector<std::string> paths;
    bool play = false;
    std::size_t next = 1;
    std::vector<bool> areFiles;  ///< of the paths from `lookedFrom` on
    std::size_t lookedFrom = 1;
    std::vector<MoviePtr> added;
  };

  static void lookAhead(Batch& batch, const Files& files);
  MoviePtr addPlain(const std::string& plain, bool isFile);
  bool isListed(const MoviePtr& movie) const;
  void prepareNextItem(bool soon);
  void listenToScreen();
  void holdSystemAwake();
  void startMouseHiding();
  void startScreenSaver(const std::string& folder);
  void switchScreenSaver(bool on);
  bool addNext(Batch& batch);
  void endBatch(const Batch& batch);
  void startBatch(const Movie& first);
  void showAddingProgress();
  void finishAdding();
  void showOn(const cMonitor& monitor);
  void switchFullScreen(bool fullScreen);
  using LeavingStep = void (Controler::*)();
  void attempt(LeavingStep step);
  void hearNobody();
  void finishWork();
  void saveResumePoint();
  void takeFormsDown();
  void watchNoMore() { services_.leaveWatch.disarm(); }
  void saveWithoutForms();
  bool savePatiently(const std::function<bool()>& save);
  void saveSettings();
  void savePlayList();
  void stopGuard() { services_.shownWindows.stop(); }
  void endScreenSavers();
  void dropPrivileges();

  ControlerServices services_;
  SetRegPrivilege setRegPrivilege_;
  SysConfig config_;
  TrayFace* tray_ = nullptr;
  PanelFace* panel_ = nullptr;
  frmScreen* screen_ = nullptr;
  PlayList* playList_ = nullptr;
  std::vector<Connection> connections_;
  std::unique_ptr<ScreenSaveAndPower> m_objScreenSaveAndPower_;
  std::unique_ptr<MouseHideShow> m_objMouseHideShow_;
  std::unique_ptr<ScreenSaverCtrl> m_objScreenSaverCtrl_;
  std::int32_t pathsDone_ = 0;  ///< of the batches under way
  std::int32_t pathsTotal_ = 0;
  bool addingShown_ = false;
  SlicedWork adding_;
  bool exiting_ = false;
};

}  // namespace tessivo
