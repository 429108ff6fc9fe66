// What the operator, the engines, the system and other programs do.
#include <algorithm>
#include <cmath>

#include "app/Request.h"
#include "walk/Walk.h"

namespace tessivo::walk {
namespace {

constexpr int kEnter = 13;
constexpr int kDeleteKey = 46;
constexpr int kLetterA = 65;
constexpr int kMenuKey = 93;
constexpr int kF1 = 112;
constexpr int kRightArrow = 39;
constexpr std::size_t kManyRows = 60;

struct Drop : ui::DroppedFiles {
  explicit Drop(std::vector<std::string> p) : paths(std::move(p)) {}
  std::uint32_t count() const override { return static_cast<std::uint32_t>(paths.size()); }
  std::string path(std::uint32_t index) const override { return paths[index]; }
  std::vector<std::string> paths;
};

std::vector<std::string> keysOf(const ui::ListView& list) {
  std::vector<std::string> keys;
  list.forEachRow([&keys](const ui::ListRow& row) { keys.push_back(row.key); });
  return keys;
}

}  // namespace

const std::vector<Walk::Event>& Walk::events() {
  constexpr Who everybody = Who::everybody;
  constexpr Who machine = Who::machine;
  static const std::vector<Event> all{
      {30, "add a few files", everybody, &Walk::addFewFiles},
      {3, "a selection is sent", machine, &Walk::shellMenu},
      {2, "add many files", everybody, &Walk::addManyFiles},
      {6, "drop files", everybody, &Walk::dropFiles},
      {35, "play by double click", everybody, &Walk::playByDoubleClick},
      {12, "play by Enter", everybody, &Walk::playByEnter},
      {45, "play or pause", everybody, &Walk::playOrPause},
      {18, "stop", everybody, &Walk::stop},
      {15, "drag the progress", everybody, &Walk::dragProgress},
      {6, "move the progress by key", everybody, &Walk::moveProgressByKey},
      {10, "drag the volume", everybody, &Walk::dragVolume},
      {8, "mute or not", everybody, &Walk::toggleMute},
      {12, "choose a rule", everybody, &Walk::chooseRule},
      {10, "step the loop mode", everybody, &Walk::stepLoopMode},
      {15, "full screen by the panel", everybody, &Walk::fullScreenByPanel},
      {10, "click the picture", everybody, &Walk::clickPicture},
      {10, "double click the picture", everybody, &Walk::doubleClickPicture},
      {15, "the picture's menu", everybody, &Walk::pictureMenu},
      {12, "tick a row", everybody, &Walk::tickRow},
      {3, "tick all", everybody, &Walk::tickAll},
      {14, "delete what is ticked", everybody, &Walk::deleteTicked},
      {1, "clear the list", everybody, &Walk::clearList},
      {15, "move a row", everybody, &Walk::moveRow},
      {4, "hold a moving button", everybody, &Walk::holdMove},
      {15, "click a row", everybody, &Walk::clickRow},
      {12, "the entry menu", everybody, &Walk::entryMenu},
      {8, "the system menu", everybody, &Walk::systemMenu},
      {2, "the panel's menu", everybody, &Walk::faceMenu},
      {4, "close the panel", everybody, &Walk::hidePanel},
      {5, "hide or show the list", everybody, &Walk::hideOrShowList},
      {8, "change the tab", everybody, &Walk::changeTab},
      {4, "clear the errors", everybody, &Walk::clearErrors},
      {3, "minimise or maximise the panel", everybody, &Walk::minimisePanel},
      {1, "close the picture", everybody, &Walk::closePicture},
      {30, "act on a dialog", everybody, &Walk::actOnDialog},
      {15, "the tray icon", everybody, &Walk::trayIcon},
      {15, "a request", machine, &Walk::request},
      {2, "the task bar is made anew", machine, &Walk::taskbarCreated},
      {15, "move the pointer", machine, &Walk::movePointer},
      {12, "touch", machine, &Walk::touch},
      {8, "monitors change", machine, &Walk::changeMonitors},
      {150, "some milliseconds", machine, &Walk::fewMilliseconds},
      {60, "some seconds", machine, &Walk::someSeconds},
      {1, "many minutes", machine, &Walk::manyMinutes},
      {2, "the clock is set", machine, &Walk::setClock},
      {8, "the disk changes", machine, &Walk::changeDisk},
      {4, "the engines' mood changes", machine, &Walk::changeMood},
      {40, "a wild engine", machine, &Walk::wildEngine},
      {3, "an engine's window pops up", machine, &Walk::popUpWindow},
      {3, "the database has trouble", machine, &Walk::troubleDatabase},
      {3, "leaving is asked for", everybody, &Walk::askToLeave},
      {1, "the program is left", machine, &Walk::leave},
      {4, "all stay still", machine, &Walk::stayStill},
      {3, "the show must go on", machine, &Walk::keepsPlaying},
  };
  return all;
}

void Walk::addFewFiles() {
  if (!hasPanel()) return;
  click(program_->panel.cmdPLAdd);
}

void Walk::addManyFiles() {
  constexpr int kEnough = 100;
  if (!hasPanel() || program_->panel.lvPlayList.rowCount() > kEnough) return;
  program_->panel.onFilesDropped.raise(Drop(anyPaths(world_.dice.oneIn(4) ? 600 : 60)));
}

void Walk::dropFiles() {
  if (!alive() || menuUp_ || !program_->panel.visible()) return;
  program_->panel.onFilesDropped.raise(Drop(anyPaths(6)));
}

void Walk::playByDoubleClick() {
  ui::ListView& list = program_->panel.lvPlayList;
  const int row = anyRow();
  if (!hasPanel() || !reaches(list) || row < 0) return;
  list.mouseMove({MouseButton::left, 0, row * ui::ListView::kModelRowHeight + 1});
  list.clickRow(row);
  list.doubleClick();
}

void Walk::playByEnter() {
  if (!hasPanel()) return;
  key(program_->panel, program_->panel.lvPlayList, kEnter);
}

void Walk::playOrPause() {
  if (hasPanel()) click(program_->panel.cmdPlay);
}

void Walk::stop() {
  if (hasPanel()) click(program_->panel.cmdStop);
}

void Walk::dragProgress() {
  ui::Slider& slider = program_->panel.sldJinDu;
  if (!hasPanel() || !reaches(slider)) return;
  slider.press();
  const int steps = world_.dice.between(1, 3);
  for (int i = 0; i < steps && alive(); ++i) {
    slider.drag(world_.dice.below(slider.max() + 1));
    if (world_.dice.oneIn(2)) world_.advance(static_cast<std::uint64_t>(world_.dice.below(700)));
  }
  if (!alive()) return;
  if (world_.dice.oneIn(8)) {
    slider.loseFocus();
  } else {
    slider.release();
  }
}

void Walk::moveProgressByKey() {
  ui::Slider& slider = program_->panel.sldJinDu;
  if (!hasPanel() || !reaches(slider)) return;
  slider.keyDown(kRightArrow);
  slider.drag(slider.value() + 1);
  slider.commit();
  if (world_.dice.oneIn(3)) world_.advance(300);
  slider.keyUp(kRightArrow);
}

void Walk::dragVolume() {
  ui::Slider& slider = program_->panel.sldVolume;
  if (!hasPanel() || !reaches(slider)) return;
  slider.press();
  slider.drag(world_.dice.below(101));
  slider.release();
}

void Walk::toggleMute() {
  if (hasPanel()) click(program_->panel.picJingFangYin);
}

void Walk::chooseRule() {
  ui::ComboBox& box = program_->panel.comboPlayRuler;
  if (hasPanel() && reaches(box)) box.choose(world_.dice.below(4));
}

void Walk::stepLoopMode() {
  if (!hasPanel()) return;
  click(program_->panel.cmdRecyclePlayPL);
  // Mostly the list goes round.
  if (program_->controler.config().lngRecyclePlayType() == 3 && !world_.dice.oneIn(4)) {
    for (int i = 0; i < 2; ++i) click(program_->panel.cmdRecyclePlayPL);
  }
}

void Walk::fullScreenByPanel() {
  if (hasPanel()) click(program_->panel.cmdSetScreen);
}

void Walk::clickPicture() {
  if (menuUp_ || !program_->screen.visible() || !program_->screen.enabled()) return;
  if (program_->playbackIsMedia()) {
    program_->engines.wmp->click.raise(MouseButton::left);
  } else {
    program_->engines.real->pictureMouse.raise(PictureMouse::leftUp);
  }
}

void Walk::doubleClickPicture() {
  clickPicture();
  if (!alive() || menuUp_ || !program_->screen.visible()) return;
  if (program_->playbackIsMedia()) {
    program_->engines.wmp->doubleClick.raise();
  } else {
    program_->engines.real->pictureMouse.raise(PictureMouse::leftDoubleClick);
    if (alive()) program_->engines.real->pictureMouse.raise(PictureMouse::leftUp);
  }
}

void Walk::pictureMenu() {
  if (menuUp_ || !program_->screen.visible() || !program_->screen.enabled()) return;
  if (program_->playbackIsMedia()) {
    program_->engines.wmp->mouseDown.raise(MouseButton::right);
    program_->engines.wmp->mouseUp.raise(MouseButton::right);
  } else {
    program_->engines.real->pictureMouse.raise(PictureMouse::rightUp);
  }
}

void Walk::tickRow() {
  ui::ListView& list = program_->panel.lvPlayList;
  const int row = anyRow();
  if (!hasPanel() || !reaches(list) || row < 0) return;
  list.clickRow(row);
  list.tick(row, !list.row(row).checked);
}

void Walk::tickAll() {
  if (!hasPanel()) return;
  frmMain& panel = program_->panel;
  world_.dice.oneIn(2) ? click(panel.chkToDeleteAll) : key(panel, panel.lvPlayList, kLetterA, true);
}

void Walk::deleteTicked() {
  frmMain& panel = program_->panel;
  if (!hasPanel() || !reaches(panel.lvPlayList)) return;
  const bool atOnce = orderly() && world_.files.msAnAnswer == 0 && !mood_.letsMessagesThrough &&
                      panel.labWork.caption().empty();
  std::vector<std::string> wanted;
  panel.lvPlayList.forEachRow([&wanted](const ui::ListRow& row) {
    if (!row.checked) wanted.push_back(row.key);
  });
  world_.dice.oneIn(2) ? click(panel.cmdPLDelete) : key(panel, panel.lvPlayList, kDeleteKey);
  if (atOnce && panel.labWork.caption().empty()) {
    expect(keysOf(panel.lvPlayList) == wanted, "not what was ticked has been deleted");
  }
}

void Walk::clearList() {
  if (!hasPanel() || !reaches(program_->panel.lvPlayList)) return;
  program_->panel.mnuClearPL.choose();
  if (pumping_ == 0 && orderly() && !mood_.letsMessagesThrough) {
    expect(program_->panel.lvPlayList.rowCount() == 0, "a cleared list has rows");
  }
}

void Walk::moveRow() {
  frmMain& panel = program_->panel;
  if (!hasPanel() || !reaches(panel.cmdPLUp)) return;
  auto wanted = keysOf(panel.lvPlayList);
  const int row = panel.lvPlayList.selected();
  const bool up = world_.dice.oneIn(2);
  const int other = up ? row - 1 : row + 1;
  if (row >= 0 && other >= 0 && other < static_cast<int>(wanted.size())) {
    std::swap(wanted[static_cast<std::size_t>(row)], wanted[static_cast<std::size_t>(other)]);
  }
  click(up ? panel.cmdPLUp : panel.cmdPLDown);
  expect(world_.mayThrow || keysOf(panel.lvPlayList) == wanted, "a row was not moved by one place");
}

void Walk::holdMove() {
  frmMain& panel = program_->panel;
  ui::Button& button = world_.dice.oneIn(2) ? panel.cmdPLUp : panel.cmdPLDown;
  if (!hasPanel() || !reaches(button)) return;
  button.mouseDown({});
  world_.advance(static_cast<std::uint64_t>(world_.dice.below(2000)));
  if (!alive()) return;
  click(button);
  button.mouseUp({});
}

void Walk::clickRow() {
  const int row = anyRow();
  ui::ListView& list = program_->panel.lvPlayList;
  if (!hasPanel() || !reaches(list) || row < 0) return;
  list.mouseDown({});
  list.clickRow(row);
  list.mouseUp({});
}

void Walk::entryMenu() {
  frmMain& panel = program_->panel;
  ui::ListView& list = panel.lvPlayList;
  const int row = anyRow();
  if (!hasPanel() || !reaches(list) || row < 0) return;
  // It clears the list; a short one stays.
  if (static_cast<std::size_t>(list.rowCount()) < kManyRows && !world_.dice.oneIn(3)) return;
  if (world_.dice.oneIn(4)) return key(panel, list, kMenuKey);
  const int y = row * ui::ListView::kModelRowHeight + 1;
  list.mouseMove({MouseButton::right, 0, y});
  list.clickRow(row);
  list.mouseUp({MouseButton::right, 0, y});
}

void Walk::systemMenu() {
  if (hasPanel()) click(program_->panel.cmdMenu);
}

void Walk::faceMenu() {
  if (hasPanel()) program_->panel.mouseUp({MouseButton::right, 10, 10});
}

void Walk::hidePanel() {
  if (!hasPanel()) return;
  world_.dice.oneIn(4) ? key(program_->panel, program_->panel.lvPlayList, kF1)
                       : program_->panel.close();
}

void Walk::hideOrShowList() {
  if (hasPanel()) click(program_->panel.cmdHideShowPL);
}

void Walk::changeTab() {
  frmMain& panel = program_->panel;
  if (!hasPanel()) return;
  if (world_.dice.oneIn(4)) return click(panel.labPlayErrNote);
  if (reaches(panel.tsLists)) panel.tsLists.choose(world_.dice.oneIn(4) ? 2 : 1);
}

void Walk::clearErrors() {
  if (hasPanel()) click(program_->panel.cmdClearPlayErrLL);
}

void Walk::minimisePanel() {
  frmMain& panel = program_->panel;
  if (!alive() || !reaches(panel)) return;
  panel.noteWindowState(static_cast<ui::WindowState>(world_.dice.below(3)));
  world_.dice.oneIn(2) ? panel.onActivate.raise() : panel.onDeactivate.raise();
}

void Walk::closePicture() {
  if (!menuUp_ && program_->screen.visible() && program_->screen.enabled()) {
    program_->screen.close();
  }
}

void Walk::actOnDialog() {
  if (dialogs_.empty()) return;
  answer(*world_.dice.pick(dialogs_));
}

void Walk::trayIcon() {
  if (menuUp_) return;
  constexpr int kLeftDoubleClick = 515;
  constexpr int kRightDown = 516;
  const int code = world_.dice.oneIn(3) ? kRightDown : kLeftDoubleClick;
  const std::int32_t x = toTwips(code, program_->tray.twipsPerPixel().x);
  program_->tray.mouseMove({MouseButton::left, x, 0});
}

void Walk::request() {
  if (!world_.winProc.listener) return;
  const std::string text = world_.dice.oneIn(3) ? request::kShowMainFace : anyPath();
  const auto bytes = request::encode(text);
  if (!bytes) return;
  const bool ours = !world_.dice.oneIn(20);
  world_.winProc.listener->copyData(ours ? request::kNumber : 2, *bytes);
  if (alive() && ours && text == request::kShowMainFace) checkPanelIsShown();
  if (alive()) program_->tray.onActivate.raise();
}

void Walk::shellMenu() {
  if (!world_.winProc.listener) return;
  std::string selection;
  for (const std::string& path : anyPaths(world_.dice.oneIn(10) ? 300 : 5)) {
    selection += (selection.empty() ? "" : "@@_F%D-F_@") + path;
  }
  world_.memory.put("selection", selection, static_cast<std::size_t>(world_.dice.below(3)) * 2);
  const std::size_t size = world_.memory.mappings["selection"].size();
  const auto bytes = request::encode(
      std::string(world_.dice.oneIn(3) ? "DMenuF_1__" : "DMenuF_2__") + "/?%/" +
      (world_.dice.oneIn(10) ? "gone" : "selection") + "/?%/" + std::to_string(size));
  world_.winProc.listener->copyData(request::kNumber, *bytes);
}

void Walk::taskbarCreated() {
  if (world_.winProc.listener) world_.winProc.listener->taskbarCreated();
}

void Walk::movePointer() {
  world_.pointer.at = {world_.dice.between(-200, 3400), world_.dice.between(-100, 1200)};
  touch();
}

void Walk::touch() {
  world_.idleInput.touch();
}

/// Monitors come, go and change; the system moves the windows of one that went to the primary.
void Walk::changeMonitors() {
  static const std::vector<std::vector<Rect>> layouts{
      {{0, 0, 1280, 1024}, {1280, 0, 1920, 1080}},
      {{0, 0, 1280, 1024}, {1280, 0, 1024, 768}},
      {{0, 0, 1280, 1024}},
      {{0, 0, 1920, 1080}, {-1280, 0, 1280, 1024}},
      {{0, 0, 1280, 1024}, {1280, 0, 1920, 1080}, {3200, 0, 800, 600}},
      {{0, 0, 1280, 1024}, {1280, 0, 1920, 1080}},
  };
  const auto& layout = world_.dice.pick(layouts);
  world_.displays = FakeDisplays{};
  const int primary = layout.size() > 1 && world_.dice.oneIn(5) ? 1 : 0;
  for (std::size_t i = 0; i < layout.size(); ++i) {
    world_.displays.add(layout[i], static_cast<int>(i) == primary);
  }
  for (ui::Form* form : std::initializer_list<ui::Form*>{&program_->screen, &program_->panel}) {
    const Rect at = form->windowRect();
    const bool seen = std::ranges::any_of(layout, [&at](const Rect& monitor) {
      return at.left < monitor.left + monitor.width && monitor.left < at.left + at.width &&
             at.top < monitor.top + monitor.height && monitor.top < at.top + at.height;
    });
    if (seen && !world_.dice.oneIn(4)) continue;
    form->noteMoved({0, 0, form->width(), form->height()});
  }
}

void Walk::fewMilliseconds() {
  world_.advance(static_cast<std::uint64_t>(world_.dice.oneIn(2) ? world_.dice.between(1, 3)
                                                                 : world_.dice.below(400)));
}

void Walk::someSeconds() {
  world_.advance(static_cast<std::uint64_t>(world_.dice.below(8000)));
}

void Walk::manyMinutes() {
  world_.advance(static_cast<std::uint64_t>(world_.dice.below(4 * 60'000)));
}

void Walk::setClock() {
  constexpr std::int64_t kMsADay = 86'400'000;
  const LocalTime now = world_.clock.now();
  if (world_.dice.oneIn(2)) {
    world_.clock.offsetMs += kMsADay - now.msOfDay - 2000;  // midnight is near
  } else {
    world_.clock.offsetMs -= world_.dice.below(7'200'000);
  }
}

void Walk::changeDisk() {
  switch (world_.dice.below(3)) {
    case 0:
      world_.files.existing.erase(world_.dice.pick(disk_));
      break;
    case 1:
      world_.files.existing = {disk_.begin(), disk_.end()};
      break;
    default:
      world_.files.msAnAnswer = static_cast<std::uint64_t>(world_.dice.below(10));
  }
}

void Walk::changeMood() {
  mood_.failPercent = world_.dice.oneIn(4) ? 100 : world_.dice.below(30);
  mood_.silentPercent = world_.dice.oneIn(3) ? 10 : 0;
  mood_.earlyEndPercent = world_.dice.below(6);
}

void Walk::wildEngine() {
  if (!wild_) return;
  WalkEngineFactory& engines = program_->engines;
  switch (world_.dice.below(5)) {
    case 0:
      return engines.wmp->raiseWildly(static_cast<MediaPlayState>(world_.dice.below(12)));
    case 1:
      return engines.real->raiseWildly(static_cast<RealPlayState>(world_.dice.below(6)),
                                       static_cast<RealPlayState>(world_.dice.below(6)));
    case 2:
      return engines.wmp->mediaError.raise();
    case 3:
      return engines.real->errorMessage.raise();
    default:
      engines.real->positionChange.raise(world_.dice.between(-5000, 50'000),
                                         world_.dice.between(-5000, 50'000));
  }
}

void Walk::popUpWindow() {
  if (!world_.shownWindows.show) return;
  const auto window = static_cast<WindowHandle>(world_.dice.between(500, 510));
  world_.shownWindows.show({window, window, false, true, false});
}

void Walk::troubleDatabase() {
  if (trouble_) return trouble_.reset();
  static const std::vector<Trouble> kinds{Trouble::locked, Trouble::full, Trouble::readOnly};
  trouble_ = std::make_unique<DatabaseTrouble>(world_.dice.pick(kinds), world_.database);
}

void Walk::askToLeave() {
  if (hasPanel() && !menuUp_) program_->panel.mnuExit.choose();
}

void Walk::leave() {
  if (trouble_ == nullptr && world_.dice.oneIn(5)) troubleDatabase();
  switch (world_.dice.below(4)) {
    case 0:
      return program_->screen.onEndSession.raise();
    case 1:
      return program_->panel.onEndSession.raise();
    case 2:
      return program_->tray.onEndSession.raise();
    default:
      program_->tray.close();
  }
}

/// Nobody does anything: what is still going on comes to its end, and then only what is meant to
/// tick does.
void Walk::stayStill() {
  if (depth_ > 0 || dialogIsUp() || menuUp_ || pumping_ > 0) return;
  ++counts_.stillnessChecks;
  world_.files.msAnAnswer = 0;
  world_.advance(10'000);
  if (!alive() || dialogIsUp()) return;
  constexpr int kSeconds = 5;
  constexpr std::uint64_t kMostTicksASecond = 16;  // the mute picture's ten, and a few each second
  const std::uint64_t before = world_.ticks;
  const std::uint64_t logged = world_.log.count;
  world_.advance(kSeconds * 1000);
  if (!alive() || dialogIsUp() || world_.log.count != logged) return;
  if (program_->screen.lngState() != playState::kStopped) return;
  expect(world_.ticks - before <= kSeconds * kMostTicksASecond,
         std::to_string(world_.ticks - before) + " ticks of timers in 5 s of stillness");
  checkStillness();
  expect(timers_.running() == timersEnabled(), std::to_string(timers_.running()) + " timers run, " +
                                                   std::to_string(timersEnabled()) + " are known");
}

/// A list of good files that goes round, with engines that work, never comes to a standstill.
void Walk::keepsPlaying() {
  if (depth_ > 0 || dialogIsUp() || menuUp_ || pumping_ > 0 || wild_ || world_.mayThrow) return;
  Program& p = *program_;
  const std::int32_t state = p.screen.lngState();
  const std::int32_t type = p.controler.config().lngRecyclePlayType();
  const bool going = state == playState::kPlaying || state == playState::kStarting;
  if (!going || type == 3 || p.playList.lngListCount() == 0) return;
  ++counts_.livenessChecks;
  const EngineMood before = mood_;
  mood_.shortestHalfSeconds = 4;  // one of less than 1.5 s counts as one that stopped too early
  undisturbed_ = true;
  mood_.failPercent = mood_.silentPercent = mood_.earlyEndPercent = 0;
  world_.files.msAnAnswer = 0;
  for (int i = 1; i <= p.playList.lngListCount(); ++i) {
    world_.files.existing.insert(p.playList.objGetAItem(i)->strFilePath);
  }
  // What has begun to fail may still stop the show, as the settings say: also both engines by
  // saying nothing.
  world_.advance(2 * Playback::kNoAnswerMs + 3000);
  const bool stillGoing = alive() && (p.screen.lngState() == playState::kPlaying ||
                                      p.screen.lngState() == playState::kStarting);
  constexpr int kSeconds = 40;
  constexpr std::uint64_t kMostTicksASecond = 30;
  int played = 0;
  const std::uint64_t ticks = world_.ticks;
  for (int i = 0; i < kSeconds && stillGoing && goesOn(); ++i) {
    world_.advance(1000);
    if (!p.engines.wmp->plays() && !p.engines.real->plays()) continue;
    ++played;
    const double place = p.playbackIsMedia() ? p.engines.wmp->currentPosition()
                                             : p.engines.real->positionMs() / 1000.0;
    expect(std::abs(p.panel.sldJinDu.value() - place) <= 2.0,
           "the panel shows " + std::to_string(p.panel.sldJinDu.value()) + " s of " +
               std::to_string(place));
  }
  expect(world_.ticks - ticks <= kSeconds * kMostTicksASecond,
         std::to_string(world_.ticks - ticks) + " ticks of timers in 40 s of the show");
  expect(!stillGoing || played >= kSeconds / 3,
         "the show came to a standstill: played " + std::to_string(played) + " of 40 seconds");
  undisturbed_ = false;
  mood_.shortestHalfSeconds = before.shortestHalfSeconds;
  mood_.failPercent = before.failPercent;
  mood_.silentPercent = before.silentPercent;
  mood_.earlyEndPercent = before.earlyEndPercent;
}

}  // namespace tessivo::walk
