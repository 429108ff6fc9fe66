#pragma once

#include <deque>
#include <string>
#include <vector>

#include "app/Controler.h"
#include "app/PanelFace.h"
#include "app/SlicedWork.h"
#include "panel/ExitQuestion.h"
#include "platform/FileDialogs.h"
#include "platform/Shell.h"
#include "ui/Controls.h"
#include "ui/Form.h"
#include "ui/Timer.h"

namespace tessivo {

/// What the control panel needs of the system.
struct PanelServices {
  ui::Toolkit& toolkit;
  TimerService& timers;
  const Clock& clock;
  const Pointer& pointer;
  const DesktopWindows& windows;
  FileDialogs& fileDialogs;
  Shell& shell;
  ExitQuestion& exitQuestion;
  std::string helpPage;
};

/// The control panel: the playlist, the log of playback errors and the transport. It holds no
/// playlist of its own and never talks to the playback window: every command goes to the
/// controller, whose calls it answers by showing what is.
///
/// The sources are split by subject: frmMain (construction, window, keyboard), frmMainLayout,
/// frmMainTransport (play to loop mode), frmMainScreens (full screen), frmMainMenu (what the tray's
/// menu has, too), frmMainList (rows, marks, menu, moving), frmMainFiles (adding, deleting),
/// frmMainErrors (error log, what follows an error).
class frmMain : public ui::Form, public PanelFace {
 public:
  frmMain(const PanelServices& services, TwipsPerPixel twipsPerPixel, Controler& controler);
  ~frmMain() override;

  /// Creates the window, hidden, on the given work area (pixels).
  void load(const Rect& workArea);
  /// Columns, rules and the first state of all controls. Once, before the window is created.
  void initializeFace();

  // PanelFace
  void AddAMovieToFaceList(const Movie& movie) override;
  void setPLItemStateByKey(const std::string& key, int state) override;
  void selectPLItemByKey(const std::string& key) override;
  void setFaceToAPlayState(int state, bool refresh) override;
  void setJinDu(std::int32_t percent, std::int32_t position, const std::string& positionText,
                std::int32_t length, const std::string& lengthText) override;
  void playErrEventProcess(const std::string& reason) override;
  void playOverEventProcess() override;
  std::int32_t lngGetMovieLen() const override { return sldJinDu.max(); }
  std::int32_t lngGetJinDu() const override { return sldJinDu.value(); }
  void setFaceBySysConfigPara(const SysConfig& config) override;
  void showAdding(std::int32_t done, std::int32_t total) override;
  void finishWork() override;
  Rect faceRect() const override { return windowRect(); }
  void moveFace(Point upperLeft) override;
  void restoreFace() override;
  void bringFaceToFront() override;
  void keepFaceOnTop(bool onTop) override { setTopmost(onTop); }
  void hideFace() override { hide(); }
  void hideAndUnloadFace() override;

  /// State 1: "暂停" with tag "1"; state 2: "播放" with tag "2"; others change nothing.
  void setPlayButtonState(int state);
  /// Progress without the percentage. A length of -1 leaves the slider's end, a length text of "X"
  /// the length label; a length of 0 changes nothing, nor does anything while the user drags.
  void setJinDu(std::int32_t position, const std::string& positionText, std::int32_t length,
                const std::string& lengthText);
  /// Shows the muted or the sound-on picture.
  void setMute(bool mute);
  /// Whether the panel is the active window, 450 ms after that last changed.
  bool isActive() const { return active_; }
  /// The window's state as of at most a second ago.
  ui::WindowState recordedWindowState() const { return recordedState_; }
  ui::MenuItem& mnuSx(std::size_t index) { return mnuScreens.item(index); }

  // The transport, in tab order.
  ui::Label labPlayState1;
  ui::TextBox txtFileName;
  ui::Label labSlidMax;
  ui::Label labMoviePosi;
  ui::Slider sldJinDu;
  ui::Label labMovieLen;
  ui::Button cmdPlay;
  ui::Button cmdStop;
  ui::PictureBox picJingFangYin;
  ui::Slider sldVolume;
  ui::Button cmdSetScreen;
  ui::Label labPlayRuler;
  ui::ComboBox comboPlayRuler;
  ui::Button cmdRecyclePlayPL;
  ui::Button cmdMenu;
  ui::Button cmdHideShowPL;
  ui::PictureBox picSeparator;

  // The lists.
  ui::TabStrip tsLists;
  ui::Label labWork;
  ui::PictureBox picPlayErrNote;
  ui::PictureBox picPlayErrSign;
  ui::Label labPlayErrNote;
  ui::PictureBox picPlayListBackGround;
  ui::ListView lvPlayList;
  ui::CheckBox chkToDeleteAll;
  ui::Button cmdPLAdd;
  ui::Button cmdPLDelete;
  ui::Button cmdPLUp;
  ui::Button cmdPLDown;
  ui::Label labDeleteNote;
  ui::Label labFiles;
  ui::Label labFileCount;
  ui::PictureBox picPlayErrLLBackGround;
  ui::ListView lvPlayErrLogList;
  ui::Button cmdClearPlayErrLL;
  ui::Label labErrors;
  ui::Label labPlayErrLogCount;
  ui::PictureBox picBottomBorder;

  ui::MenuItem mnuMovieOperations;
  ui::MenuItem& mnuPlayMovie;
  ui::MenuItem& mnuDeleteMovie;
  ui::MenuItem& mnuMovieOperateLine1;
  ui::MenuItem& mnuAddFilesToPL;
  ui::MenuItem& mnuMovieOperateLine2;
  ui::MenuItem& mnuClearPL;
  ui::MenuItem& mnuPlayFiles;
  ui::MenuItem mnuScreens;
  // The menu that cmdMenu opens.
  ui::MenuItem mnuSystem;
  ui::MenuItem& mnuConfig;
  ui::MenuItem& mnuSystemLine1;
  ui::MenuItem& mnuFAQ;
  ui::MenuItem& mnuAbout;
  ui::MenuItem& mnuSystemLine2;
  ui::MenuItem& mnuExit;
  // The menu of the panel's empty background.
  ui::MenuItem mnuFace;
  ui::MenuItem& mnuHideFace;
  ui::MenuItem& mnuFaceLine;
  ui::MenuItem& mnuExit2;

  ui::Timer timDelayHideDeleteNote;
  ui::Timer timDelayQuickMoveItem;
  ui::Timer timQuickMoveItem;
  ui::Timer timDelaySetPLTabFace;
  ui::Timer timDelaySetFrm;
  ui::Timer timSetFangJingYinButton;
  ui::Timer timRecordMainFaceWindowState;
  ui::Timer timDelayCheckMeIsActive;

 private:
  // frmMain
  void nameControls();
  void listenToWindow();
  void checkIsActiveLater(bool active);
  void takeKey(ui::KeyPress& press);
  bool takeListKey(const ui::KeyPress& press);

  // frmMainLayout
  void layOut();
  void layOutTransport(std::int32_t right);
  void layOutLists(std::int32_t right);
  void layOutPages(std::int32_t width, std::int32_t height);
  void hideOrShowPL();
  void showListState();
  void dragBottomBorder(std::int32_t y);

  // frmMainTransport
  void fillRules();
  void listenToTransport();
  void listenToSliders();
  void playOrPause();
  void startPlaying();
  void stop();
  void releaseProgress();
  void showDraggedProgress();
  void changeVolume();
  void toggleMute();
  void checkHover();
  void changeRule();
  void stepRecycleMode();
  void showRecycleMode();
  bool playNext(int direction, bool wrap);
  std::string playItemName() const;

  // frmMainScreens
  void setScreen();
  ui::MenuItem& addScreenEntry(const std::string& caption);
  void showScreenState(bool fullScreen);

  // frmMainMenu
  void listenToMenu();
  void openHelp();
  void showAbout();

  // frmMainList
  void listenToList();
  void listenToMoving();
  void playRow(int row);
  void markPlayItem();
  void playRowUnderPointer();
  void openEntryMenu(const ui::MouseEvent& event);
  void openEntryMenuByKey();
  void markRow(const std::string& key);
  void tickAll();
  void setDeleteAll(bool ticked);
  void toDeleteAllClicked();
  void moveSelected(int direction);
  void showFileCount();
  void clickTab();
  void showPage(int tab);

  // frmMainFiles
  void addFiles(bool play);
  void dropFiles(const ui::DroppedFiles& files);
  void notice(const std::string& text);
  void deleteTicked();
  bool deleteNext();
  void endDeleting();
  void deleteEntry(const std::string& key);
  void clearPL();
  void showWork();

  // frmMainErrors
  void listenToErrorLog();
  void logError(const std::string& reason, const std::string& path);
  void goOnAfterError(bool wasLast);
  void clearErrorLog();

  static constexpr std::int32_t kTickColumn = 375;  ///< twips, the first column of both lists

  PanelServices services_;
  Controler& controler_;

  bool draggingProgress_ = false;
  bool initialising_ = true;
  std::int32_t ruleApplied_ = -1;
  bool active_ = false;
  ui::WindowState recordedState_ = ui::WindowState::normal;
  bool draggingBorder_ = false;
  bool playListHidden_ = false;
  std::int32_t shownHeight_ = 0;  ///< of the form with the playlist, twips
  std::string markedKey_;
  std::int32_t listMouseY_ = -1;
  std::uint64_t errorsLogged_ = 0;
  std::deque<std::string> keysToDelete_;
  std::size_t keysCollected_ = 0;  ///< since the deletion under way began
  SlicedWork deleting_;
  std::string addingText_;
};

}  // namespace tessivo
