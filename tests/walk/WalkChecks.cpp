// What must hold after each event.
#include <algorithm>

#include "panel/frmMsgBox.h"
#include "ui/Icons.h"
#include "walk/Walk.h"

namespace tessivo::walk {
namespace {

constexpr std::int32_t kLongList = 150;

}  // namespace

void Walk::check() {
  if (!goesOn()) return;
  checkList();
  checkPanel();
  checkPlayState();
  checkEngines();
  checkScreen();
  checkDialogs();
  checkSaver();
  if (orderly()) {
    expect(!world_.log.mentions("unexpected error"), "an unexpected error was logged");
  }
}

void Walk::checkList() {
  PlayList& list = program_->playList;
  const ui::ListView& rows = program_->panel.lvPlayList;
  const auto play = list.objGetPlayItem();
  if (play) {
    expect(list.objGetItemByFlag(play->strKey) == play, "the play item is not in the list");
    expect(play->boolIsPlayItem, "the play item has no mark");
  }
  if (const auto act = list.objGetActItem()) {
    expect(list.objGetItemByFlag(act->strKey) == act, "the act item is not in the list");
  }
  if (world_.mayThrow) return;  // a step that an engine broke off may be done in half
  const std::int32_t count = list.lngListCount();
  expect(rows.rowCount() == count, "the panel has " + std::to_string(rows.rowCount()) +
                                       " rows of " + std::to_string(count) + " items");
  expect(play || count == 0, "a list without a play item");
  if (!goesOn() || (count > kLongList && !world_.dice.oneIn(16))) return;
  std::int32_t index = 0;
  int marked = 0;
  rows.forEachRow([&](const ui::ListRow& row) {
    const auto item = list.objGetAItem(++index);
    expect(row.key == item->strKey, "row " + std::to_string(index) + " is not the item's");
    expect(row.subItems.size() == 2 && row.subItems[0] == item->strFileName &&
               row.subItems[1] == item->strFilePath,
           "row " + std::to_string(index) + " says something else than the item");
    expect(item->boolIsPlayItem == (item == play), "a second play item");
    expect(row.bold == (row.tag == "1"), "mark and bold letters differ");
    if (row.tag == "1") ++marked;
    if (row.tag == "1") expect(item == play, "another row than the play item's is marked");
  });
  expect(marked == (play ? 1 : 0), std::to_string(marked) + " rows are marked");
}

void Walk::checkPanel() {
  const frmMain& panel = program_->panel;
  const SysConfig& config = program_->controler.config();
  const ui::ListView& rows = panel.lvPlayList;
  expect(rows.selected() >= -1 && rows.selected() < rows.rowCount(), "the selected row is none");
  expect(panel.sldJinDu.value() >= 0 && panel.sldJinDu.value() <= panel.sldJinDu.max(),
         "the progress is outside its slider");
  expect(panel.sldVolume.value() >= 0 && panel.sldVolume.value() <= 100, "odd volume");
  expect(panel.labPlayErrLogCount.caption() == std::to_string(panel.lvPlayErrLogList.rowCount()),
         "the errors are not counted");
  expect(panel.picPlayListBackGround.visible() != panel.picPlayErrLLBackGround.visible() ||
             !panel.tsLists.visible(),
         "not one page is shown");
  if (world_.mayThrow) return;
  expect(
      panel.labFileCount.caption() == std::to_string(rows.rowCount()),
      "the count says " + panel.labFileCount.caption() + " of " + std::to_string(rows.rowCount()));
  expect(config.intVolumeValue() == panel.sldVolume.value() &&
             program_->screen.intVolume() == panel.sldVolume.value(),
         "panel, settings and screen have different volumes");
  const int rule = panel.comboPlayRuler.listIndex();
  expect(rule >= 0 && panel.comboPlayRuler.items()[static_cast<std::size_t>(rule)].data ==
                          program_->screen.lngPlayRuler(),
         "the panel shows another rule");
  expect(config.lngPlayRuler() == program_->screen.lngPlayRuler(),
         "the settings have another rule");
  const bool full = program_->screen.boolMaxSize();
  expect((panel.cmdSetScreen.tag() == "2") == full, "the full-screen button says something else");
  expect(panel.topmost() == full, "the panel is above the show or should be");
  if (panel.chkToDeleteAll.checked() && rows.rowCount() > 0 && rows.rowCount() <= kLongList) {
    bool all = true;
    rows.forEachRow([&all](const ui::ListRow& row) { all = all && row.checked; });
    expect(all, "all rows are said to be ticked");
  }
}

void Walk::checkPlayState() {
  const std::int32_t state = program_->screen.lngState();
  expect(state >= playState::kPlaying && state <= playState::kStarting, "an odd play state");
  if (!orderly()) return;
  const frmMain& panel = program_->panel;
  const bool saysPlaying = panel.cmdPlay.tag() == "1";
  expect(saysPlaying == (panel.labPlayState1.caption() == "正在播放: "),
         "button and label of the panel differ");
  // Stop and pause are shown while a start is pending, which goes on.
  if ((state == playState::kStarting || isOnItsWay()) && !saysPlaying) toldStopped_ = true;
  if (saysPlaying || state == playState::kStopped) toldStopped_ = false;
  if (state == playState::kPlaying) {
    expect(saysPlaying || toldStopped_,
           "it plays, and the panel says " + panel.labPlayState1.caption());
  }
  if (state == playState::kPaused) expect(!saysPlaying, "it pauses, and the panel says it plays");
  const Playback& playback = program_->screen.playback();
  if (state == playState::kStopped && !playback.timErrDelay.enabled()) {
    expect(!saysPlaying, "it is stopped, and the panel says it plays");
  }
  const auto item = program_->playList.objGetPlayItem();
  const std::string path = item ? item->strFilePath : "";
  expect(program_->screen.strFilePath() == path,
         "the screen has " + program_->screen.strFilePath() + ", the play item is " + path);
  if (saysPlaying && item) {
    expect(panel.txtFileName.caption() == item->strFileName,
           "the panel names " + panel.txtFileName.caption());
  }
}

/// A start that is pending, or going from one engine to the other.
bool Walk::isOnItsWay() {
  const Playback& playback = program_->screen.playback();
  return playback.timRealErrDelay.enabled() || playback.timMediaErrDelay.enabled() ||
         playback.timRealPlayDelay.enabled() || playback.timMediaPlayDelay.enabled() ||
         program_->engines.wmp->isTrying() || program_->engines.real->isTrying();
}

void Walk::checkEngines() {
  const frmScreen& screen = program_->screen;
  const WalkMediaPlayer& wmp = *program_->engines.wmp;
  const WalkRealPlayer& real = *program_->engines.real;
  expect(wmp.visible() != real.visible(), "not one engine is seen");
  if (world_.mayThrow) return;
  expect(wmp.visible() == program_->playbackIsMedia(), "the other engine is seen");
  expect(wmp.volume == screen.intVolume() && real.volume == screen.intVolume(),
         "an engine has another volume");
  expect(wmp.mute == screen.boolMute() && real.mute == screen.boolMute(),
         "an engine is not as mute as the rest");
  expect(wmp.url() == real.source(), "the engines have different files");
  if (wild_) return;
  expect(!(wmp.plays() || wmp.isTrying()) || !real.canStop(), "both engines are at work");
  if (wmp.plays() || real.plays()) {
    expect(wmp.plays() == program_->playbackIsMedia(), "the engine that plays is not seen");
    expect(screen.lngState() == playState::kPlaying || screen.lngState() == playState::kStarting,
           "an engine plays in state " + std::to_string(screen.lngState()));
  }
  expect(world_.log.enginesGivenUp <= mood_.failures,
         "a file was given up that no engine failed at");
  // From an engine that stopped too early to the other one it stays so.
  if (screen.lngState() == playState::kPlaying && !isOnItsWay()) {
    expect(wmp.plays() || real.plays(), "it is said to play, and no engine does");
  }
}

void Walk::checkScreen() {
  const frmScreen& screen = program_->screen;
  expect(screen.visible(), "the picture is hidden");
  expect(screen.timFrmPosiReport.enabled(), "the place is not reported any more");
  expect(screen.topmost() == screen.boolMaxSize(), "full screen, and not above all");
}

/// When all has been quiet for seconds, and nothing plays.
void Walk::checkStillness() {
  const frmMain& panel = program_->panel;
  expect(world_.mayThrow || panel.labWork.caption().empty(),
         "work is said to go on: " + panel.labWork.caption());
  expect(!panel.labDeleteNote.visible(), "the note on deleting stays");
  if (orderly()) {
    expect(program_->engines.wmp->prepared.empty() && program_->engines.real->prepared.empty(),
           "stopped, and an item is still opened ahead");
  }
  const frmScreen& screen = program_->screen;
  if (!screen.boolMaxSize() || screen.windowState() != ui::WindowState::normal) return;
  for (const MonitorHandle monitor : world_.displays.enumerate()) {
    if (world_.displays.info(monitor)->monitor != screen.maximum()) continue;
    expect(screen.windowRect() == screen.maximum(), "the picture does not cover its monitor");
  }
}

/// Somebody has asked for the panel.
void Walk::checkPanelIsShown() {
  const frmMain& panel = program_->panel;
  expect(panel.visible(), "the panel was asked for and is hidden");
  expect(panel.windowState() != ui::WindowState::minimised, "the panel asked for is minimised");
  const Rect face = panel.windowRect();
  const Point middle{face.left + face.width / 2, face.top + face.height / 2};
  const auto holds = [](const Rect& at, Point point) {  // the edges, too
    return at.left <= point.x && point.x <= at.left + at.width && at.top <= point.y &&
           point.y <= at.top + at.height;
  };
  bool pointed = false;
  bool shown = false;
  for (const MonitorHandle monitor : world_.displays.enumerate()) {
    const Rect at = world_.displays.info(monitor)->monitor;
    if (!holds(at, world_.pointer.at)) continue;
    pointed = true;
    shown = shown || holds(at, middle);
  }
  expect(shown || !pointed, "the panel asked for is at " + std::to_string(face.left) + "," +
                                std::to_string(face.top) + " " + std::to_string(face.width) + "x" +
                                std::to_string(face.height) + ", the pointer at " +
                                std::to_string(world_.pointer.at.x) + "," +
                                std::to_string(world_.pointer.at.y));
}

void Walk::checkDialogs() {
  std::size_t questions = 0;
  std::size_t settings = 0;
  std::size_t overPanel = 0;
  for (const ui::Form* dialog : dialogs_) {
    const auto* box = dynamic_cast<const frmMsgBox*>(dialog);
    if (box && box->cmdNo.visible()) ++questions;
    if (dynamic_cast<const frmSysConfig*>(dialog)) ++settings;
    if (dialog->owner() == &program_->panel) ++overPanel;
    expect(dialog->visible(), "a dialog that nobody sees is up");
    expect(dialog->owner() && !dialog->owner()->enabled(), "the owner of a dialog is not off");
  }
  expect(questions <= 1, "the question was asked twice at a time");
  expect(settings <= 1, "the settings are open twice");
  expect(overPanel <= 1, std::to_string(overPanel) + " dialogs over the panel");
  if (dialogs_.empty()) {
    expect(program_->panel.enabled(), "the panel is off, and no dialog is up");
    expect(program_->tray.enabled(), "the tray form is off, and no dialog is up");
  }
}

void Walk::checkSaver() {
  expect(world_.icons.shown.size() == 1, std::to_string(world_.icons.shown.size()) + " icons");
  expect(world_.winProc.listener != nullptr, "requests are not heard");
  expect(!world_.power.screenSaverOn, "the system's screen saver is on");
  expect(!world_.power.maySleep, "the system may go to sleep");
  expect(world_.pointer.displayCount >= -1 && world_.pointer.displayCount <= 1,
         "the pointer's counter is " + std::to_string(world_.pointer.displayCount));
  const auto& started = world_.processes.started;
  const SysConfig& config = program_->controler.config();
  for (; saversSeen_ < started.size(); ++saversSeen_) {
    const auto& saver = started[saversSeen_];
    const bool run =
        saver.arguments.starts_with("RUN##") && saver.arguments != "RUN##0##0##0##0##0## ";
    if (!run) continue;
    expect(config.boolScreenSaver(), "a saver was started although it is switched off");
    const std::uint32_t input = world_.processes.lastInputs[saversSeen_];
    expect(input != saverInput_ || saverInput_ == 0,
           "a saver was started twice without a touch between");
    saverInput_ = input;
  }
}

std::size_t Walk::timersEnabled() {
  frmScreen& screen = program_->screen;
  Playback& playback = screen.playback();
  EngineGuards& guards = screen.guards();
  frmMain& panel = program_->panel;
  frmHide& tray = program_->tray;
  const std::vector<const ui::Timer*> all{&playback.timMediaPlayDelay,
                                          &playback.timRealPlayDelay,
                                          &playback.timMediaErrDelay,
                                          &playback.timRealErrDelay,
                                          &playback.timErrDelay,
                                          &playback.timRealPopuWinErrCheck,
                                          &playback.timNoAnswer,
                                          &playback.timMediaPlayJinDu,
                                          &screen.timDBClickEvent,
                                          &screen.timDelayRaiseClickEvent,
                                          &screen.timSetTimShowBackZOrder,
                                          &screen.timFrmPosiReport,
                                          &guards.timRealPlayerNewWinCheck,
                                          &guards.timDelayCloseMediaPlayerPopuWin,
                                          &guards.timDisableWMPFullScreen,
                                          &panel.timDelayHideDeleteNote,
                                          &panel.timDelayQuickMoveItem,
                                          &panel.timQuickMoveItem,
                                          &panel.timDelaySetPLTabFace,
                                          &panel.timDelaySetFrm,
                                          &panel.timSetFangJingYinButton,
                                          &panel.timRecordMainFaceWindowState,
                                          &panel.timDelayCheckMeIsActive,
                                          &tray.timDelayCallWinProc,
                                          &tray.timDelayActivate};
  return static_cast<std::size_t>(
      std::ranges::count_if(all, [](const ui::Timer* timer) { return timer->enabled(); }));
}

Stored Walk::contentOf(PlayList& list) {
  Stored content;
  for (std::int32_t i = 1; i <= list.lngListCount(); ++i) {
    content.paths.push_back(list.objGetAItem(i)->strFilePath);
  }
  if (const auto play = list.objGetPlayItem()) content.playPath = play->strFilePath;
  return content;
}

Stored Walk::storedNow() {
  MovieKeys keys(world_.clock);
  PlayList list(keys);
  list.strPLDBFilePath(world_.database);
  expect(list.boolGetPlayListFromPLDB(), "the stored list cannot be read: " + list.strReport());
  return contentOf(list);
}

void Walk::checkStored() {
  if (!goesOn()) return;
  const Stored now = storedNow();
  const bool refused = world_.log.mentions("playlist not saved");
  const bool unread = world_.log.mentions("playlist not read");
  if (refused) ++counts_.savesRefused;
  if (world_.mayThrow || unread) return;
  const SysConfig& config = program_->controler.config();
  if (refused || !config.boolSavePlayList()) {
    // Without keeping the list the next start clears it.
    const bool cleared = !config.boolSavePlayList() && now == Stored{};
    expect(now == stored_ || cleared, "a list that was not saved has changed");
  } else {
    expect(now == contentOf(program_->playList), "the stored list is not the last one");
  }
  if (world_.log.mentions("settings not saved") || world_.log.mentions("settings not read")) return;
  SysConfig stored;
  stored.strDBFilePath(world_.database);
  expect(stored.boolGetData(), "the stored settings cannot be read: " + stored.strReport());
  expect(stored.intVolumeValue() == config.intVolumeValue() &&
             stored.lngPlayRuler() == config.lngPlayRuler() &&
             stored.lngRecyclePlayType() == config.lngRecyclePlayType() &&
             stored.boolScreenSaver() == config.boolScreenSaver() &&
             stored.boolPlayNextOnErr() == config.boolPlayNextOnErr() &&
             stored.boolPopuMainFaceForErr() == config.boolPopuMainFaceForErr() &&
             stored.boolSavePlayList() == config.boolSavePlayList() &&
             stored.lngSSDelayMinute() == config.lngSSDelayMinute() &&
             stored.lngCurrentPlayPosition() == config.lngCurrentPlayPosition() &&
             stored.lngCurrentPlayItemLen() == config.lngCurrentPlayItemLen(),
         "the stored settings are not the last ones");
}

void Walk::checkGone() {
  expect(world_.power.screenSaverOn, "the system's screen saver has stayed off");
  expect(world_.power.maySleep, "the system has stayed awake");
  const auto& privileges = world_.token.adjusted;
  expect(!privileges.empty() && privileges.back().first, "the privileges have stayed");
  expect(world_.icons.shown.empty(), "the icon has stayed");
  expect(world_.winProc.listener == nullptr, "the window's procedure has stayed");
  expect(!world_.shownWindows.show, "shown windows are still watched");
  expect(world_.pointer.seen(), "the pointer has stayed hidden");
  expect(timers_.running() == 0, std::to_string(timers_.running()) + " timers run after the end");
  expect(world_.threadTimers.running.empty(), "a timer of the thread has stayed");
  expect(!program_->screen.visible() && !program_->panel.visible(), "a window has stayed");
  if (!goesOn()) return;
  // Nothing comes to life again.
  world_.guarded([this] { world_.advance(5000); });
  expect(world_.loop.quits == 0, "the program has left twice");
}

}  // namespace tessivo::walk
