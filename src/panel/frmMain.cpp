// The control panel's construction, window and keyboard.
#include "panel/frmMain.h"

#include <algorithm>

#include "ui/Icons.h"

namespace tessivo {
namespace {

constexpr std::int32_t kWidth = 10500;  // twips
constexpr std::int32_t kHeight = 7800;
constexpr int kHideDeleteNoteMs = 5000;
constexpr int kBeforeQuickMoveMs = 500;
constexpr int kQuickMoveMs = 150;
constexpr int kSetPLTabFaceMs = 1000;
constexpr int kNextTurnMs = 1;
constexpr int kHoverMs = 100;
constexpr int kRecordStateMs = 1000;
constexpr int kActiveMs = 450;
constexpr ui::Colour kErrorColour = 0xB00020;
constexpr ui::Colour kSeparatorColour = 0xC8C8C8;

constexpr ui::KeyCode kEnter = 13;
constexpr ui::KeyCode kDelete = 46;
constexpr ui::KeyCode kLetterA = 65;
constexpr ui::KeyCode kMenuKey = 93;
constexpr ui::KeyCode kF1 = 112;

}  // namespace

frmMain::frmMain(const PanelServices& services, TwipsPerPixel twipsPerPixel, Controler& controler)
    : Form("frmMain", "Tessivo 泰思维", twipsPerPixel),
      labPlayState1(this, "labPlayState1", "停止: "),
      txtFileName(this, "txtFileName", true),
      labSlidMax(this, "labSlidMax", ""),
      labMoviePosi(this, "labMoviePosi", "00:00:00"),
      sldJinDu(this, "sldJinDu"),
      labMovieLen(this, "labMovieLen", "00:00:00"),
      cmdPlay(this, "cmdPlay", ""),
      cmdStop(this, "cmdStop", "停止(&S)"),
      picJingFangYin(this, "picJingFangYin"),
      sldVolume(this, "sldVolume"),
      cmdSetScreen(this, "cmdSetScreen", ""),
      labPlayRuler(this, "labPlayRuler", "播放引擎:"),
      comboPlayRuler(this, "comboPlayRuler"),
      cmdRecyclePlayPL(this, "cmdRecyclePlayPL", ""),
      cmdMenu(this, "cmdMenu", "菜单(&M)"),
      cmdHideShowPL(this, "cmdHideShowPL", ""),
      picSeparator(this, "picSeparator"),
      tsLists(this, "tsLists"),
      labWork(this, "labWork", ""),
      picPlayErrNote(this, "picPlayErrNote"),
      picPlayErrSign(&picPlayErrNote, "picPlayErrSign"),
      labPlayErrNote(&picPlayErrNote, "labPlayErrNote", "有新的播放错误"),
      picPlayListBackGround(this, "picPlayListBackGround"),
      lvPlayList(&picPlayListBackGround, "lvPlayList"),
      chkToDeleteAll(&picPlayListBackGround, "chkToDeleteAll", "全选(&Q)"),
      cmdPLAdd(&picPlayListBackGround, "cmdPLAdd", "添加(&A)..."),
      cmdPLDelete(&picPlayListBackGround, "cmdPLDelete", "删除(&D)"),
      cmdPLUp(&picPlayListBackGround, "cmdPLUp", "上移(&U)"),
      cmdPLDown(&picPlayListBackGround, "cmdPLDown", "下移(&N)"),
      labDeleteNote(&picPlayListBackGround, "labDeleteNote", "请先勾选要删除的文件"),
      labFiles(&picPlayListBackGround, "labFiles", "文件数:"),
      labFileCount(&picPlayListBackGround, "labFileCount", "0"),
      picPlayErrLLBackGround(this, "picPlayErrLLBackGround"),
      lvPlayErrLogList(&picPlayErrLLBackGround, "lvPlayErrLogList"),
      cmdClearPlayErrLL(&picPlayErrLLBackGround, "cmdClearPlayErrLL", "清空(&C)"),
      labErrors(&picPlayErrLLBackGround, "labErrors", "错误数:"),
      labPlayErrLogCount(&picPlayErrLLBackGround, "labPlayErrLogCount", "0"),
      picBottomBorder(this, "picBottomBorder"),
      mnuMovieOperations("mnuMovieOperations", ""),
      mnuPlayMovie(mnuMovieOperations.add("mnuPlayMovie", "播放(&P)")),
      mnuDeleteMovie(mnuMovieOperations.add("mnuDeleteMovie", "删除勾选的文件(&D)")),
      mnuMovieOperateLine1(mnuMovieOperations.addSeparator("mnuMovieOperateLine1")),
      mnuAddFilesToPL(mnuMovieOperations.add("mnuAddFilesToPL", "添加文件(&A)...")),
      mnuMovieOperateLine2(mnuMovieOperations.addSeparator("mnuMovieOperateLine2")),
      mnuClearPL(mnuMovieOperations.add("mnuClearPL", "清空播放列表(&C)")),
      mnuPlayFiles(mnuMovieOperations.add("mnuPlayFiles", "添加并播放文件(&O)...")),
      mnuScreens("mnuScreens", ""),
      mnuSystem("mnuSystem", ""),
      mnuConfig(mnuSystem.add("mnuConfig", "设置(&O)...")),
      mnuSystemLine1(mnuSystem.addSeparator("mnuSystemLine1")),
      mnuFAQ(mnuSystem.add("mnuFAQ", "使用说明(&H)")),
      mnuAbout(mnuSystem.add("mnuAbout", "关于泰思维(&A)...")),
      mnuSystemLine2(mnuSystem.addSeparator("mnuSystemLine2")),
      mnuExit(mnuSystem.add("mnuExit", "退出(&X)")),
      mnuFace("mnuFace", ""),
      mnuHideFace(mnuFace.add("mnuHideFace", "隐藏控制面板(&H)")),
      mnuFaceLine(mnuFace.addSeparator("mnuFaceLine")),
      mnuExit2(mnuFace.add("mnuExit2", "退出(&X)")),
      timDelayHideDeleteNote(services.timers, "timDelayHideDeleteNote", kHideDeleteNoteMs),
      timDelayQuickMoveItem(services.timers, "timDelayQuickMoveItem", kBeforeQuickMoveMs),
      timQuickMoveItem(services.timers, "timQuickMoveItem", kQuickMoveMs),
      timDelaySetPLTabFace(services.timers, "timDelaySetPLTabFace", kSetPLTabFaceMs),
      timDelaySetFrm(services.timers, "timDelaySetFrm", kNextTurnMs),
      timSetFangJingYinButton(services.timers, "timSetFangJingYinButton", kHoverMs),
      timRecordMainFaceWindowState(services.timers, "timRecordMainFaceWindowState", kRecordStateMs),
      timDelayCheckMeIsActive(services.timers, "timDelayCheckMeIsActive", kActiveMs),
      services_(services),
      controler_(controler),
      deleting_(services.clock, services.timers) {
  setFollowsResolution(true);
  setAcceptsFiles(true);
  deleting_.progressed.listen([this] { showWork(); });
  nameControls();
  listenToTransport();
  listenToSliders();
  listenToList();
  listenToMoving();
  listenToErrorLog();
  listenToMenu();
  listenToWindow();
}

frmMain::~frmMain() {
  unload();
}

void frmMain::nameControls() {
  sldJinDu.setAccessibleName("播放进度");
  sldVolume.setAccessibleName("音量");
  sldVolume.setToolTip("音量");
  comboPlayRuler.setAccessibleName("播放引擎");
  picJingFangYin.setAccessibleName("放/静音");
  picJingFangYin.setTakesKeyboard(true);
  tsLists.setAccessibleName("列表");
  lvPlayList.setAccessibleName("播放列表");
  lvPlayErrLogList.setAccessibleName("错误日志");
  labSlidMax.setAlignment(ui::Alignment::right);
  labMovieLen.setAlignment(ui::Alignment::right);
  labWork.setAlignment(ui::Alignment::right);
  labFiles.setAlignment(ui::Alignment::right);
  labErrors.setAlignment(ui::Alignment::right);
  labDeleteNote.setColours(kErrorColour, std::nullopt);
  labPlayErrNote.setColours(kErrorColour, std::nullopt);
  picPlayErrNote.setPointerShape(ui::PointerShape::hand);
  labPlayErrNote.setPointerShape(ui::PointerShape::hand);
  picPlayErrSign.setPointerShape(ui::PointerShape::hand);
  picPlayErrSign.setIcon(icon::kError);
  picSeparator.setColours(std::nullopt, kSeparatorColour);
  picBottomBorder.setPointerShape(ui::PointerShape::sizeVertical);
  cmdStop.setIcon(icon::kStop);
  cmdMenu.setIcon(icon::kMenu);
  cmdPLAdd.setIcon(icon::kAdd);
  cmdPLDelete.setIcon(icon::kDelete);
  cmdPLUp.setIcon(icon::kMoveUp);
  cmdPLDown.setIcon(icon::kMoveDown);
  cmdClearPlayErrLL.setIcon(icon::kClear);
}

void frmMain::initializeFace() {
  constexpr std::int32_t kNameColumn = 3500;
  constexpr std::int32_t kPathColumn = 10000;
  constexpr std::int32_t kTimeColumn = 1900;
  constexpr int kReasonColumn = 2;
  lvPlayList.addColumn("", kTickColumn);
  lvPlayList.addColumn("名称", kNameColumn);
  lvPlayList.addColumn("路径", kPathColumn);
  lvPlayList.setHasCheckBoxes(true);
  lvPlayErrLogList.addColumn("", kTickColumn);
  lvPlayErrLogList.addColumn("发生时间", kTimeColumn);
  lvPlayErrLogList.addColumn("原因", kNameColumn);
  lvPlayErrLogList.addColumn("文件路径", kPathColumn);
  lvPlayErrLogList.setFirstColumnWithTips(kReasonColumn);
  tsLists.addTab("播放列表");
  tsLists.addTab("错误日志");
  fillRules();
  sldJinDu.setRange(0, 0);  // no item has a length yet
  setPlayButtonState(2);
  setMute(false);
  picJingFangYin.setToolTip("放/静音");
  showScreenState(false);
  showListState();
  showRecycleMode();
  picPlayErrNote.setVisible(false);
  labDeleteNote.setVisible(false);
  labWork.setVisible(false);
  tsLists.setSelected(1);
  showPage(1);
  showFileCount();
  labPlayErrLogCount.setCaption("0");
  timSetFangJingYinButton.setEnabled(true);
  timRecordMainFaceWindowState.setEnabled(true);
  timDelaySetPLTabFace.setEnabled(true);
}

void frmMain::load(const Rect& workArea) {
  initialising_ = true;
  initializeFace();
  const auto twips = twipsPerPixel();
  setBounds({toTwips(workArea.left, twips.x), toTwips(workArea.top, twips.y),
             std::min(kWidth, toTwips(workArea.width, twips.x)),
             std::min(kHeight, toTwips(workArea.height, twips.y))});
  layOut();
  services_.toolkit.open(*this);
  lvPlayList.setFocus();
  const Rect face = windowRect();
  moveFace({workArea.left + (workArea.width - face.width) / 2,
            workArea.top + (workArea.height - face.height) / 2});
}

void frmMain::listenToWindow() {
  onResize.listen([this] { layOut(); });
  onUnload.listen([this] {
    for (ui::Timer* timer : {&timDelayHideDeleteNote, &timDelayQuickMoveItem, &timQuickMoveItem,
                             &timDelaySetPLTabFace, &timDelaySetFrm, &timSetFangJingYinButton,
                             &timRecordMainFaceWindowState, &timDelayCheckMeIsActive}) {
      timer->setEnabled(false);
    }
  });
  // The program lives on in the notification area.
  onClose.listen([this] { hide(); });
  onEndSession.listen([this] { controler_.exitSys(); });
  onFilesDropped.listen([this](const ui::DroppedFiles& files) { dropFiles(files); });
  onKey.listen([this](ui::KeyPress& press) { takeKey(press); });
  onActivate.listen([this] { checkIsActiveLater(true); });
  onDeactivate.listen([this] { checkIsActiveLater(false); });
  timDelayCheckMeIsActive.onTimer.listen([this] {
    timDelayCheckMeIsActive.setEnabled(false);
    active_ = timDelayCheckMeIsActive.tag() != "0";
  });
  timRecordMainFaceWindowState.onTimer.listen([this] { recordedState_ = windowState(); });
  timDelaySetFrm.onTimer.listen([this] {
    timDelaySetFrm.setEnabled(false);
    layOut();
  });
  timDelaySetPLTabFace.onTimer.listen([this] {
    timDelaySetPLTabFace.setEnabled(false);
    layOut();
  });
  cmdHideShowPL.onClick.listen([this] { hideOrShowPL(); });
  picBottomBorder.onMouseDown.listen([this](const ui::MouseEvent&) {
    draggingBorder_ = true;
    picBottomBorder.bringToFront();
  });
  picBottomBorder.onMouseMove.listen(
      [this](const ui::MouseEvent& event) { dragBottomBorder(event.y); });
  picBottomBorder.onMouseUp.listen([this](const ui::MouseEvent&) { draggingBorder_ = false; });
}

void frmMain::checkIsActiveLater(bool active) {
  timDelayCheckMeIsActive.setTag(active ? "1" : "0");
  timDelayCheckMeIsActive.setEnabled(true);
}

void frmMain::takeKey(ui::KeyPress& press) {
  if (press.code == kF1) {
    openHelp();
    press.handled = true;
  } else if (press.focus == &lvPlayList) {
    press.handled = takeListKey(press);
  }
}

bool frmMain::takeListKey(const ui::KeyPress& press) {
  if (press.code == kLetterA && press.control) {
    tickAll();
  } else if (press.code == kEnter) {
    if (!press.repeated && lvPlayList.selected() >= 0) playRow(lvPlayList.selected());
  } else if (press.code == kDelete) {
    if (!press.repeated) deleteTicked();
  } else if (press.code == kMenuKey) {
    openEntryMenuByKey();
  } else {
    return false;
  }
  return true;
}

void frmMain::moveFace(Point upperLeft) {
  const bool maximised = windowState() == ui::WindowState::maximised;
  // A maximised window fills the monitor on which it would be otherwise.
  if (maximised) setWindowState(ui::WindowState::normal);
  const Rect face = windowRect();
  setWindowPos({upperLeft.x, upperLeft.y, face.width, face.height});
  if (maximised) setWindowState(ui::WindowState::maximised);
}

void frmMain::restoreFace() {
  if (windowState() == ui::WindowState::minimised) setWindowState(ui::WindowState::normal);
}

void frmMain::bringFaceToFront() {
  show();
  activate();
}

void frmMain::hideAndUnloadFace() {
  hide();
  unload();
}

}  // namespace tessivo
