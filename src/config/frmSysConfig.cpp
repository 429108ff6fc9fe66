#include "config/frmSysConfig.h"

#include <initializer_list>
#include <utility>

#include "base/Rounding.h"
#include "base/Text.h"
#include "config/CheckUserFigure.h"

namespace tessivo {
namespace {

constexpr int kNoteMs = 1000;
constexpr std::int32_t kLongestDelay = 1500;
constexpr const char* kReading = "正在读取文件关联。。。";
constexpr const char* kSaving = "正在保存数据。。。";
constexpr const char* kHelpPage = "\\Help\\FunctionIntroduce.htm";
constexpr const char* kHelpOfSettings = "#Item3";
constexpr const char* kHelpOfAssociations = "#Item10";
constexpr int kSettingsTab = 1;
constexpr int kAssociationsTab = 2;
constexpr ui::Colour kNoteColour = 0xB00020;
constexpr ui::Colour kHeadingColour = 0x1F4E8C;
constexpr ui::Colour kWaitColour = 0xFFF8DC;
constexpr ui::Colour kWaitTextColour = 0x000000;
constexpr ui::KeyCode kTab = 9;
constexpr ui::KeyCode kEnter = 13;
constexpr ui::KeyCode kEscape = 27;
constexpr ui::KeyCode kF1 = 112;

// Twips.
constexpr std::int32_t kInnerWidth = 7500;
constexpr std::int32_t kInnerHeight = 6300;
constexpr std::int32_t kMargin = 150;
constexpr std::int32_t kPageMargin = 240;
constexpr std::int32_t kIndent = 300;
constexpr std::int32_t kGap = 90;
constexpr std::int32_t kSectionGap = 240;
constexpr std::int32_t kTabsHeight = 360;
constexpr std::int32_t kLine = 405;
constexpr std::int32_t kText = 240;
constexpr std::int32_t kTick = 330;
constexpr std::int32_t kBox = 345;
constexpr std::int32_t kButtonWidth = 1260;
constexpr std::int32_t kWideButtonWidth = 1500;
constexpr std::int32_t kLabelWidth = 1500;
constexpr std::int32_t kNameWidth = 2400;
constexpr std::int32_t kMinutesWidth = 1050;
constexpr std::int32_t kTypeColumn = 1575;  // with the box
constexpr std::int32_t kScrollBar = 330;    // with the list's edges
/// To the right edge.
constexpr std::int32_t kDescriptionColumn = kInnerWidth - 2 * kMargin - kTypeColumn - kScrollBar;
constexpr std::int32_t kNoteWidth = 4200;
constexpr std::int32_t kNoteHeight = 900;

std::int32_t middleOf(std::int32_t from, std::int32_t size) {
  return roundedToInt32(from + size / 2.0).value_or(0);
}

/// What kind of thing the keyboard is on decides what Enter means.
bool isButton(const ui::Control* control) {
  return dynamic_cast<const ui::Button*>(control) != nullptr;
}

/// The entry of that text; -1 when there is none.
int entryOf(const ui::ComboBox& box, const std::string& text) {
  for (std::size_t i = 0; i < box.items().size(); ++i) {
    if (toUpper(box.items()[i].text) == toUpper(text)) return static_cast<int>(i);
  }
  return -1;
}

}  // namespace

frmSysConfig::frmSysConfig(const SysConfigServices& services, TwipsPerPixel twipsPerPixel,
                           SysConfigHost& host)
    : Form("frmSysConfig", "设置", twipsPerPixel),
      sstTab(this, "sstTab"),
      Picture1(this, "Picture1"),
      Frame1(&Picture1, "Frame1", "播放出错时"),
      chkOnPlayErrContinuePlay(&Picture1, "chkOnPlayErrContinuePlay", "继续播放下一个文件(&N)"),
      chkOnPlayErrShowMainFace(&Picture1, "chkOnPlayErrShowMainFace", "显示控制面板(&M)"),
      Frame2(&Picture1, "Frame2", "播放列表"),
      chkSavePlayList(&Picture1, "chkSavePlayList", "退出时保存播放列表和播放位置(&K)"),
      Frame3(&Picture1, "Frame3", "屏幕保护"),
      chkOpenScrSav(&Picture1, "chkOpenScrSav", "无人操作时在播放画面上运行屏保程序(&P)"),
      Label1(&Picture1, "Label1", "屏保程序:"),
      cmbScrSavProcName(&Picture1, "cmbScrSavProcName"),
      Label2(&Picture1, "Label2", "等待时间(分钟):"),
      cmbRunScrSavDelayMinute(&Picture1, "cmbRunScrSavDelayMinute"),
      cmdPramSet(&Picture1, "cmdPramSet", "设置(&T)..."),
      cmdPreviewSS(&Picture1, "cmdPreviewSS", "预览(&V)"),
      Picture2(this, "Picture2"),
      lvFileAssociationList(&Picture2, "lvFileAssociationList"),
      cmdAssociaAll(&Picture2, "cmdAssociaAll", "全部关联(&A)"),
      cmdNoAssociaAll(&Picture2, "cmdNoAssociaAll", "全部不关联(&U)"),
      cmdAssociaDefault(&Picture2, "cmdAssociaDefault", "还原(&R)"),
      labFigureNote(&Picture2, "labFigureNote", "只有管理员可以更改文件关联。"),
      picNote1(this, "picNote1"),
      labNote1(&picNote1, "labNote1", kReading),
      cmdHelp(this, "cmdHelp", "帮助(&H)"),
      cmdSave(this, "cmdSave", "保存(&S)"),
      cmdCancel(this, "cmdCancel", "取消(&C)"),
      timGetAssociaInfoFromReg(services.timers, "timGetAssociaInfoFromReg", kNoteMs),
      timSaveAssociaInfoToRegAndDb(services.timers, "timSaveAssociaInfoToRegAndDb", kNoteMs),
      services_(services),
      host_(host),
      associations_(services.registry) {
  setBoxes(true, false, false);
  setFrameStyle(frameStyle() & ~ui::frame::kSizingFrame);
  setFollowsResolution(true);
  setBounds({0, 0, kInnerWidth, kInnerHeight});
  sstTab.addTab("播放和屏保");
  sstTab.addTab("文件关联");
  sstTab.setAccessibleName("设置");
  for (ui::Label* heading : {&Frame1, &Frame2, &Frame3}) {
    heading->setColours(kHeadingColour, std::nullopt);
  }
  cmbScrSavProcName.setAccessibleName("屏保程序");
  cmbRunScrSavDelayMinute.setAccessibleName("等待时间(分钟)");
  lvFileAssociationList.setAccessibleName("文件关联");
  lvFileAssociationList.addColumn("类型", kTypeColumn);
  lvFileAssociationList.addColumn("说明", kDescriptionColumn);
  lvFileAssociationList.setHasCheckBoxes(true);
  labFigureNote.setColours(kNoteColour, std::nullopt);
  labFigureNote.setVisible(false);
  picNote1.setBorder(true);
  picNote1.setColours(std::nullopt, kWaitColour);
  picNote1.setVisible(false);
  labNote1.setColours(kWaitTextColour, kWaitColour);
  labNote1.setAlignment(ui::Alignment::centre);
  listen();
}

frmSysConfig::~frmSysConfig() {
  unload();
}

void frmSysConfig::listen() {
  onResize.listen([this] {
    layOut();
    if (std::exchange(firstLayout_, false)) setFaceItemByData();
  });
  // While something is read or written there is no way out.
  onClose.listen([this] { cmdCancel.click(); });
  onKey.listen([this](ui::KeyPress& press) { takeKey(press); });
  onUnload.listen([this] {
    timGetAssociaInfoFromReg.setEnabled(false);
    // The program leaves during the wait note: the user has saved.
    if (timSaveAssociaInfoToRegAndDb.enabled()) applyTicks();
    timSaveAssociaInfoToRegAndDb.setEnabled(false);
  });
  sstTab.onClick.listen([this] { showTab(); });
  chkOpenScrSav.onClick.listen([this] { enableScreenSaver(); });
  cmdPramSet.onClick.listen([this] { configureScreenSaver(); });
  cmdPreviewSS.onClick.listen([this] { previewScreenSaver(); });
  lvFileAssociationList.onItemCheck.listen([this](int row) { keepTick(row); });
  cmdAssociaAll.onClick.listen([this] { lvFileAssociationList.setAllChecked(true); });
  cmdNoAssociaAll.onClick.listen([this] { lvFileAssociationList.setAllChecked(false); });
  cmdAssociaDefault.onClick.listen([this] { getAssociaInfoFromReg(); });
  cmdHelp.onClick.listen([this] { openHelp(); });
  cmdSave.onClick.listen([this] { save(); });
  cmdCancel.onClick.listen([this] { unload(); });
  timGetAssociaInfoFromReg.onTimer.listen([this] { readAssociations(); });
  timSaveAssociaInfoToRegAndDb.onTimer.listen([this] { saveAssociations(); });
}

void frmSysConfig::takeKey(ui::KeyPress& press) {
  press.handled = true;
  if (press.code == kEscape) return close();
  if (press.code == kF1) return cmdHelp.click();
  if (press.code == kTab && press.control) return changeTab();
  if (press.code == kEnter && !isButton(press.focus)) {
    if (!press.repeated) cmdSave.click();
    return;
  }
  press.handled = false;
}

/// The keyboard goes along: what had it may be hidden now.
void frmSysConfig::changeTab() {
  if (!sstTab.enabled()) return;
  sstTab.choose(sstTab.selected() == kSettingsTab ? kAssociationsTab : kSettingsTab);
  sstTab.setFocus();
}

void frmSysConfig::showOver(ui::Toolkit& toolkit, ui::Form& owner) {
  setOwner(&owner);
  setTopmost(owner.topmost());
  load();
  toolkit.open(*this);
  setInnerSize(kInnerWidth, kInnerHeight);
  chkOnPlayErrContinuePlay.setFocus();
  toolkit.showModal(*this);
}

void frmSysConfig::load() {
  firstLayout_ = true;
  associationsLoaded_ = false;
  userIsAdministrator_ =
      CheckUserFigure(services_.accounts, services_.log).boolUserBlongToAdminsGroup();
  showPage();
}

void frmSysConfig::setFaceItemByData() {
  const SysConfig& config = host_.config();
  chkOnPlayErrShowMainFace.setChecked(config.boolPopuMainFaceForErr());
  chkOnPlayErrContinuePlay.setChecked(config.boolPlayNextOnErr());
  chkSavePlayList.setChecked(config.boolSavePlayList());
  chkOpenScrSav.setChecked(config.boolScreenSaver());
  cmbRunScrSavDelayMinute.clear();
  for (std::int32_t minutes = 1; minutes <= kLongestDelay; ++minutes) {
    cmbRunScrSavDelayMinute.addItem(std::to_string(minutes), minutes);
  }
  cmbRunScrSavDelayMinute.setListIndex(
      entryOf(cmbRunScrSavDelayMinute, std::to_string(config.lngSSDelayMinute())));
  cmbScrSavProcName.clear();
  std::int32_t number = 0;
  for (const std::string& name : host_.screenSaverNames()) {
    cmbScrSavProcName.addItem(name, ++number);
  }
  firstScreenSaver_ = entryOf(cmbScrSavProcName, config.strScrSavProcName());
  cmbScrSavProcName.setListIndex(firstScreenSaver_);
  enableScreenSaver();
}

void frmSysConfig::enableScreenSaver() {
  const bool on = chkOpenScrSav.checked();
  cmbScrSavProcName.setEnabled(on);
  cmbRunScrSavDelayMinute.setEnabled(on);
  cmdPramSet.setEnabled(on);
  cmdPreviewSS.setEnabled(on);
}

std::string frmSysConfig::chosenScreenSaver() const {
  const int chosen = cmbScrSavProcName.listIndex();
  return chosen < 0 ? "" : cmbScrSavProcName.items()[static_cast<std::size_t>(chosen)].text;
}

void frmSysConfig::configureScreenSaver() {
  const std::string name = chosenScreenSaver();
  if (trim(name).empty()) return;
  host_.showScreenSaverSettings(*this, name, middleOf(left(), width()), middleOf(top(), height()));
}

void frmSysConfig::previewScreenSaver() {
  const std::string name = chosenScreenSaver();
  if (!trim(name).empty()) host_.previewAScrSavProcByName(name);
}

void frmSysConfig::openHelp() {
  const char* const place = sstTab.selected() == kSettingsTab       ? kHelpOfSettings
                            : sstTab.selected() == kAssociationsTab ? kHelpOfAssociations
                                                                    : nullptr;
  if (place) services_.shell.open(nativeHandle(), services_.programFolder + kHelpPage + place, "");
}

void frmSysConfig::showPage() {
  Picture1.setVisible(sstTab.selected() == kSettingsTab);
  Picture2.setVisible(sstTab.selected() == kAssociationsTab);
}

void frmSysConfig::showTab() {
  showPage();
  if (sstTab.selected() != kAssociationsTab || associationsLoaded_) return;
  cmdCancel.setEnabled(false);
  // Saved now, the list that is not there yet would be taken for the user's wish.
  cmdSave.setEnabled(false);
  enableAssociationButtons(false);
  showWaitNote(true);
  timGetAssociaInfoFromReg.setEnabled(true);
  associationsLoaded_ = true;
}

void frmSysConfig::enableAssociationButtons(bool enabled) {
  for (ui::Button* button : {&cmdAssociaAll, &cmdNoAssociaAll, &cmdAssociaDefault}) {
    button->setEnabled(enabled);
  }
}

void frmSysConfig::showWaitNote(bool shown) {
  picNote1.setVisible(shown);
  if (shown) picNote1.bringToFront();
}

void frmSysConfig::readAssociations() {
  timGetAssociaInfoFromReg.setEnabled(false);
  setPointerShape(ui::PointerShape::busy);
  associations_.strConfigFilePath = services_.databasePath;
  associations_.strMainAppFolderPath = services_.programFolder;
  associations_.strDefaultIcoFolderPath = services_.programFolder;
  associations_.getConfigInfoFromDB();
  associations_.getBaseAssocListFromDB();
  associations_.getInfoFromRegistry();
  getAssociaInfoFromReg();
  enableAssociationButtons(userIsAdministrator_);
  labFigureNote.setVisible(!userIsAdministrator_);
  cmdSave.setEnabled(true);
  cmdCancel.setEnabled(true);
  showWaitNote(false);
  setPointerShape(ui::PointerShape::standard);
}

void frmSysConfig::getAssociaInfoFromReg() {
  lvFileAssociationList.clear();
  for (std::int32_t i = 1; i <= associations_.lngGetListCount(); ++i) {
    const FileAsoca& type = *associations_.objGetAFileAsocaObjByIndex(i);
    lvFileAssociationList.append({type.strAppAsocaKeyName,
                                  "",
                                  {type.strDescriptionInfo},
                                  false,
                                  type.boolAssociate(),
                                  type.strAppAsocaKeyName});
  }
}

void frmSysConfig::keepTick(int row) {
  if (userIsAdministrator_) return;
  lvFileAssociationList.setChecked(row, !lvFileAssociationList.row(row).checked);
}

/// What is not among the entries (a program that is gone, a delay out of their range) stays as it
/// was, and so does a program's name whose entry the user leaves chosen: they may differ by case.
RunParameter frmSysConfig::parameter() const {
  const SysConfig& config = host_.config();
  const int delay = cmbRunScrSavDelayMinute.listIndex();
  const bool newProgram = cmbScrSavProcName.listIndex() != firstScreenSaver_;
  return {chkOnPlayErrContinuePlay.checked(),
          chkOnPlayErrShowMainFace.checked(),
          chkSavePlayList.checked(),
          chkOpenScrSav.checked(),
          delay >= 0 ? cmbRunScrSavDelayMinute.items()[static_cast<std::size_t>(delay)].data
                     : config.lngSSDelayMinute(),
          newProgram ? chosenScreenSaver() : config.strScrSavProcName()};
}

void frmSysConfig::save() {
  host_.saveRunPram(parameter());
  if (!associationsLoaded_ || !userIsAdministrator_) return unload();
  // Away from the pages: keys would still reach what has the keyboard there.
  cmdHelp.setFocus();
  cmdSave.setEnabled(false);
  cmdCancel.setEnabled(false);
  enableAssociationButtons(false);
  enablePages(false);
  labNote1.setCaption(kSaving);
  showWaitNote(true);
  timSaveAssociaInfoToRegAndDb.setEnabled(true);
}

void frmSysConfig::saveAssociations() {
  timSaveAssociaInfoToRegAndDb.setEnabled(false);
  setPointerShape(ui::PointerShape::busy);
  applyTicks();
  enablePages(true);
  enableAssociationButtons(true);
  cmdSave.setEnabled(true);
  cmdCancel.setEnabled(true);
  setPointerShape(ui::PointerShape::standard);
  showWaitNote(false);
  unload();
}

void frmSysConfig::applyTicks() {
  int changed = 0;
  int refused = 0;
  for (std::int32_t i = 1; i <= associations_.lngGetListCount(); ++i) {
    FileAsoca& type = *associations_.objGetAFileAsocaObjByIndex(i);
    const int row = lvFileAssociationList.indexOf(type.strAppAsocaKeyName);
    if (row < 0) continue;
    const bool ticked = lvFileAssociationList.row(row).checked;
    if (applyTick(type, ticked)) ++changed;
    if (type.boolAssociate() == ticked) continue;
    ++refused;
    logRefused(type, ticked);
  }
  services_.log.info("file associations saved: " + std::to_string(changed) + " changed, " +
                     std::to_string(refused) + " not as ticked");
  if (changed > 0) services_.shell.associationsChanged();
}

/// Whether the extension has another owner afterwards. Taking an extension that nobody has writes
/// no keys of the type, and switching it off takes it: so the type is registered first when it is
/// ticked, and one that the user has not touched is left alone. The type is not registered when
/// somebody has the extension: whoever had it before would be forgotten.
bool frmSysConfig::applyTick(FileAsoca& type, bool ticked) {
  const auto before = type.owner();
  if (!before && ticked == type.boolAssociate()) return false;
  if (!before && ticked) type.InitializeRegistry();
  type.setAssociationState(ticked);
  type.saveOldAppIdKeyNameToDB();
  return type.owner() != before;
}

void frmSysConfig::logRefused(const FileAsoca& type, bool ticked) const {
  services_.log.error("file type " + type.strAppAsocaKeyName +
                      (ticked ? " could not be associated" : " could not be handed back") +
                      ", it belongs to \"" + type.owner().value_or("") + "\"");
}

void frmSysConfig::enablePages(bool enabled) {
  for (ui::Control* part : std::initializer_list<ui::Control*>{&sstTab, &Picture1, &Picture2}) {
    part->setEnabled(enabled);
  }
}

void frmSysConfig::layOut() {
  const std::int32_t right = scaleWidth() - kMargin;
  const std::int32_t buttons = scaleHeight() - kMargin - kLine;
  sstTab.setBounds({kMargin, kMargin, right - kMargin, kTabsHeight});
  const Rect page{kMargin, kMargin + kTabsHeight, right - kMargin,
                  buttons - kGap - kMargin - kTabsHeight};
  Picture1.setBounds(page);
  Picture2.setBounds(page);
  layOutFirstPage(page.width);
  layOutSecondPage(page.width, page.height);
  picNote1.setBounds({(scaleWidth() - kNoteWidth) / 2, page.top + (page.height - kNoteHeight) / 2,
                      kNoteWidth, kNoteHeight});
  labNote1.setBounds({kGap, (kNoteHeight - kText) / 2, kNoteWidth - 2 * kGap, kText});
  cmdHelp.setBounds({kMargin, buttons, kButtonWidth, kLine});
  cmdCancel.setBounds({right - kButtonWidth, buttons, kButtonWidth, kLine});
  cmdSave.setBounds({right - 2 * kButtonWidth - kGap, buttons, kButtonWidth, kLine});
}

void frmSysConfig::layOutFirstPage(std::int32_t width) {
  std::int32_t y = kPageMargin;
  const auto heading = [&](ui::Label& label) {
    label.setBounds({kPageMargin, y, width - 2 * kPageMargin, kText});
    y += kText + kGap;
  };
  const std::int32_t left = kPageMargin + kIndent;
  const auto tick = [&](ui::CheckBox& box) {
    box.setBounds({left, y, width - left - kPageMargin, kTick});
    y += kTick;
  };
  heading(Frame1);
  tick(chkOnPlayErrContinuePlay);
  tick(chkOnPlayErrShowMainFace);
  y += kSectionGap;
  heading(Frame2);
  tick(chkSavePlayList);
  y += kSectionGap;
  heading(Frame3);
  tick(chkOpenScrSav);
  y += kGap;
  const std::int32_t field = left + kLabelWidth;
  Label1.setBounds({left, y + (kLine - kText) / 2, kLabelWidth, kText});
  cmbScrSavProcName.setBounds({field, y + (kLine - kBox) / 2, kNameWidth, kBox});
  y += kLine + kGap;
  Label2.setBounds({left, y + (kLine - kText) / 2, kLabelWidth, kText});
  cmbRunScrSavDelayMinute.setBounds({field, y + (kLine - kBox) / 2, kMinutesWidth, kBox});
  y += kLine + kGap;
  cmdPramSet.setBounds({field, y, kButtonWidth, kLine});
  cmdPreviewSS.setBounds({field + kButtonWidth + kGap, y, kButtonWidth, kLine});
}

void frmSysConfig::layOutSecondPage(std::int32_t width, std::int32_t height) {
  // The buttons by the list that they change, apart from those of the dialog.
  const std::int32_t note = height - kGap - kText;
  const std::int32_t buttons = note - kGap - kLine;
  lvFileAssociationList.setBounds({0, kGap, width, buttons - 2 * kGap});
  std::int32_t x = 0;
  for (ui::Button* button : {&cmdAssociaAll, &cmdNoAssociaAll, &cmdAssociaDefault}) {
    button->setBounds({x, buttons, kWideButtonWidth, kLine});
    x += kWideButtonWidth + kGap;
  }
  labFigureNote.setBounds({0, note, width, kText});
}

}  // namespace tessivo
