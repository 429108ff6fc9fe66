// The lives of the program, and the dialogs and menus in which events happen inside events.
#include "walk/Walk.h"

#include <algorithm>

#include "data/MoveIn.h"
#include "panel/frmAbout.h"
#include "panel/frmMsgBox.h"
#include "saver/frmScrSaverPramSet.h"

namespace tessivo::walk {
namespace {

constexpr int kDeepest = 3;
constexpr int kEscape = 27;
constexpr int kFilms = 60;

}  // namespace

Walk::Walk(std::uint64_t seed) : world_(seed) {
  for (int i = 1; i <= kFilms; ++i) {
    disk_.push_back("C:\\v\\film-" + std::to_string(i) + ".avi");
  }
  for (const char* odd : {"C:\\v\\两个 字.rm", "D:\\a;b\\c' \"d.avi", "http://show/1.asf",
                          "C:\\v\\no-extension", "\\\\server\\share\\x.wmv"}) {
    disk_.emplace_back(odd);
  }
  world_.files.existing = {disk_.begin(), disk_.end()};
  chooseDatabase(world_.database, world_.log);
  world_.loop.whilePumping = [this](int ms) { pump(ms); };
  world_.fileDialogs.answer = [this] { return chooseFiles(); };
}

Walk::~Walk() {
  trouble_.reset();
  menus_.clear();
  program_.reset();
}

bool Walk::run(std::uint64_t events) {
  while (counts_.events < events && goesOn()) {
    if (!program_) beginLife();
    oneEvent(Who::everybody);
    if (!alive()) endLife();
  }
  if (program_ && goesOn()) {
    world_.note("the session ends");
    world_.guarded([this] { program_->screen.onEndSession.raise(); });
    endLife();
  }
  return goesOn();
}

void Walk::beginLife() {
  Dice& dice = world_.dice;
  ++counts_.lives;
  const int kind = dice.below(100);
  wild_ = kind < 15;
  world_.mayThrow = kind >= 90;
  mood_ = EngineMood{};
  if (dice.percent(15)) mood_.letsMessagesThrough = [this] { letMessagesThrough(); };
  toldStopped_ = false;
  world_.files.msAnAnswer = 0;
  world_.log.clear();
  if (dice.oneIn(20)) {
    trouble_ = std::make_unique<DatabaseTrouble>(
        dice.oneIn(2) ? Trouble::readOnly : Trouble::locked, world_.database);
  }
  world_.note(std::string("a life begins") + (wild_ ? ", wild" : "") +
              (world_.mayThrow ? ", throwing" : "") +
              (mood_.letsMessagesThrough ? ", letting messages through" : "") +
              (trouble_ ? ", with a database in trouble" : ""));
  world_.guarded([this] {
    const WorkingDatabase database = chooseDatabase(world_.database, world_.log);
    expect(database.path == world_.database, "another database is used: " + database.path);
    program_ = std::make_unique<Program>(world_, *this, timers_, mood_,
                                         databaseNotice(database, world_.database));
  });
  if (!program_) return world_.fail("the program could not be made");
  saversSeen_ = world_.processes.started.size();
  menus_.clear();
  for (ui::Form* form :
       std::initializer_list<ui::Form*>{&program_->screen, &program_->tray, &program_->panel}) {
    menus_.push_back(form->onPopup.connect([this](ui::MenuItem& menu) { whenMenuShown(menu); }));
  }
  const bool fileGiven = dice.oneIn(5);
  world_.guarded([&] { program_->start(fileGiven ? anyPath() : ""); });
  mood_.throws = world_.mayThrow;
  if (!world_.mayThrow && !fileGiven && alive() && !trouble_) {
    const bool kept = program_->controler.config().boolSavePlayList();
    expect(contentOf(program_->playList) == (kept ? stored_ : Stored{}),
           "the list is not the one of the last life");
  }
  // Nobody is as quick as the notice about the database.
  if (alive()) world_.advance(2);
  afterwards();
}

void Walk::endLife() {
  expect(dialogs_.empty(), "a dialog has outlived the program");
  expect(world_.loop.quits == 1,
         "the message loop was told to end " + std::to_string(world_.loop.quits) + " times");
  world_.loop.quits = 0;
  trouble_.reset();
  checkStored();
  checkGone();
  menus_.clear();
  program_.reset();
  stored_ = storedNow();
  world_.pointer.displayCount = 0;  // a process has its own
  world_.processes.clear();
  world_.procedures = FakeWindowProcedures{};
  world_.windows.closed.clear();
  world_.shell.opened.clear();
  world_.memory.mappings.clear();
  world_.memory.calls.clear();
  world_.accounts.asked.clear();
  world_.token = FakeProcessToken{};
}

void Walk::oneEvent(Who who) {
  static const int total = [] {
    int sum = 0;
    for (const Event& event : events()) sum += event.weight;
    return sum;
  }();
  int drawn = world_.dice.below(total);
  const Event* chosen = nullptr;
  for (const Event& event : events()) {
    drawn -= event.weight;
    if (drawn >= 0) continue;
    chosen = &event;
    break;
  }
  if (who == Who::machine && chosen->who == Who::everybody) return;
  ++counts_.events;
  if (hasPanel()) ++counts_.withPanel;
  counts_.items += static_cast<std::uint64_t>(program_->playList.lngListCount());
  world_.note(std::string(static_cast<std::size_t>(depth_) * 2, ' ') + chosen->name);
  if (chosen->who == Who::everybody) touch();
  world_.guarded([&] { (this->*chosen->happen)(); });
  afterwards();
}

void Walk::afterwards() {
  world_.trace.take();
  if (alive() && goesOn() && pumping_ == 0) check();
}

void Walk::showModal(ui::Form& dialog) {
  ui::Form* const owner = dialog.owner();
  const bool switchesOff = owner && owner->enabled();
  bool gone = false;
  open(dialog);
  const Connection switchOn = dialog.onUnload.connect([&] {
    if (switchesOff && !gone) owner->setEnabled(true);
    gone = true;
    std::erase(dialogs_, &dialog);
  });
  if (switchesOff) owner->setEnabled(false);
  dialog.show();
  dialogs_.push_back(&dialog);
  ++counts_.dialogs;
  whileModal(dialog, gone);
  if (!gone) dialog.unload();
}

void Walk::whileModal(ui::Form& dialog, const bool& gone) {
  ++depth_;
  if (pumping_ == 0 && alive()) check();
  if (depth_ <= kDeepest) {
    for (int i = world_.dice.below(12); i > 0 && !gone && alive() && goesOn(); --i) {
      oneEvent(Who::everybody);
    }
  }
  while (!gone && alive() && goesOn() && world_.dice.percent(70)) answer(dialog);
  insist(dialog);
  expect(gone || !goesOn(), "a dialog cannot be closed: " + dialog.name());
  --depth_;
}

/// The operator does something with the dialog, if it lets him.
void Walk::answer(ui::Form& dialog) {
  if (!dialog.visible() || !dialog.enabled()) {
    if (!dialogs_.empty() && dialogs_.back() != &dialog) answer(*dialogs_.back());
    return;
  }
  Dice& dice = world_.dice;
  touch();
  world_.note(std::string(static_cast<std::size_t>(depth_) * 2, ' ') + "answers " + dialog.name());
  if (dice.oneIn(6)) return dialog.close();
  if (dice.oneIn(6)) {
    dialog.pressKey({kEscape, false, false, nullptr, false});
    return;
  }
  if (auto* box = dynamic_cast<frmMsgBox*>(&dialog)) {
    // Leaving by the question is an event that the walk does not want too often.
    const bool yes = box->caption() != "提示" || !box->cmdNo.visible() || dice.oneIn(6);
    return click(yes ? box->cmdYes : box->cmdNo);
  }
  if (auto* about = dynamic_cast<frmAbout*>(&dialog)) {
    return dice.oneIn(3) ? click(about->txtHomePage) : click(about->cmdOk);
  }
  if (auto* settings = dynamic_cast<frmSysConfig*>(&dialog)) {
    for (ui::CheckBox* box :
         {&settings->chkOnPlayErrContinuePlay, &settings->chkOnPlayErrShowMainFace,
          &settings->chkSavePlayList, &settings->chkOpenScrSav}) {
      if (dice.oneIn(4)) click(*box);
    }
    // Mostly the list is kept and the show goes on.
    if (!settings->chkSavePlayList.checked() && !dice.oneIn(6)) click(settings->chkSavePlayList);
    if (!settings->chkOnPlayErrContinuePlay.checked() && !dice.oneIn(4)) {
      click(settings->chkOnPlayErrContinuePlay);
    }
    if (dice.oneIn(3)) settings->cmbScrSavProcName.choose(dice.below(3));
    if (dice.oneIn(2)) settings->cmbRunScrSavDelayMinute.choose(dice.below(4));
    if (dice.oneIn(5) && reaches(settings->sstTab)) settings->sstTab.choose(1 + dice.below(2));
    if (dice.oneIn(8)) click(settings->cmdPramSet);
    if (dice.oneIn(8)) click(settings->cmdPreviewSS);
    if (dice.oneIn(8)) click(settings->cmdHelp);
    if (!settings->visible()) return;
    if (dice.oneIn(3)) click(dice.oneIn(3) ? settings->cmdCancel : settings->cmdSave);
    if (settings->visible() && dice.oneIn(2)) world_.advance(1000);
    return;
  }
  world_.advance(static_cast<std::uint64_t>(dice.between(1, 600)));  // a saver's own settings
}

/// A dialog is closed in the end, whatever it does.
void Walk::insist(ui::Form& dialog) {
  constexpr int kAttempts = 40;
  const auto isUp = [&] { return std::ranges::find(dialogs_, &dialog) != dialogs_.end(); };
  for (int i = 0; i < kAttempts && isUp() && goesOn(); ++i) {
    world_.guarded([this] {
      ui::Form& last = *dialogs_.back();
      if (last.enabled()) last.close();
    });
    if (isUp()) world_.advance(500);
  }
}

void Walk::whenMenuShown(ui::MenuItem& menu) {
  if (menuUp_ || !alive()) return;
  menuUp_ = true;
  ++depth_;
  for (int i = depth_ <= kDeepest ? world_.dice.below(3) : 0; i > 0 && alive() && goesOn(); --i) {
    oneEvent(Who::machine);
  }
  --depth_;
  menuUp_ = false;
  if (!alive() || world_.dice.oneIn(4)) return;
  std::vector<ui::MenuItem*> entries;
  const auto collect = [&entries](const auto& self, ui::MenuItem& of) -> void {
    for (std::size_t i = 0; i < of.count(); ++i) {
      ui::MenuItem& item = of.item(i);
      if (!item.visible() || !item.enabled() || item.isSeparator()) continue;
      item.count() > 0 ? self(self, item) : entries.push_back(&item);
    }
  };
  collect(collect, menu);
  if (entries.empty()) return;
  ui::MenuItem& entry = *world_.dice.pick(entries);
  world_.note("chooses " + entry.caption());
  const bool playsNow = program_->screen.lngState() == playState::kPlaying;
  entry.choose();
  // 播放 offered before it began to play by itself: the panel shows it as paused.
  if (playsNow && entry.name() == "mnuPlay") toldStopped_ = true;
}

void Walk::letMessagesThrough() {
  if (pumping_ > 0 || depth_ > kDeepest || undisturbed_) return;
  ++pumping_;
  ++depth_;
  world_.note("the engine lets messages through");
  for (int i = world_.dice.below(3); i > 0 && alive() && goesOn(); --i) oneEvent(Who::machine);
  --depth_;
  --pumping_;
}

void Walk::pump(int ms) {
  if (trouble_ && world_.dice.oneIn(12)) trouble_.reset();
  world_.advance(static_cast<std::uint64_t>(ms));
}

OpenFilesAnswer Walk::chooseFiles() {
  Dice& dice = world_.dice;
  ++depth_;
  menuUp_ = true;  // the dialog is the system's: the operator can do nothing else
  for (int i = depth_ <= kDeepest ? dice.below(3) : 0; i > 0 && alive() && goesOn(); --i) {
    oneEvent(Who::machine);
  }
  menuUp_ = false;
  --depth_;
  const int kind = dice.below(100);
  if (kind < 15 || !alive()) return {};
  if (kind < 18) return {FileDialogOutcome::tooMany, ""};
  if (kind < 20) return {FileDialogOutcome::failed, ""};
  if (kind < 22) return {FileDialogOutcome::chosen, "no path"};
  if (kind < 60) return {FileDialogOutcome::chosen, anyPath()};
  std::string text = "C:\\v";
  for (int i = dice.between(2, 8); i > 0; --i) {
    text += '\0';
    text += "film-" + std::to_string(dice.between(1, kFilms)) + ".avi";
  }
  return {FileDialogOutcome::chosen, text};
}

bool Walk::reaches(const ui::Control& control) const {
  if (menuUp_ || !alive()) return false;
  for (const ui::Control* at = &control; at; at = at->parent()) {
    if (!at->visible() || !at->enabled()) return false;
  }
  return true;
}

bool Walk::hasPanel() const {
  return alive() && reaches(program_->panel) &&
         program_->panel.windowState() != ui::WindowState::minimised;
}

void Walk::click(ui::Control& control) {
  if (reaches(control)) control.click();
}

void Walk::key(ui::Form& form, ui::Control& focus, int code, bool control) {
  if (reaches(focus)) form.pressKey({code, control, false, &focus, false});
}

int Walk::anyRow() {
  const int rows = program_->panel.lvPlayList.rowCount();
  return rows == 0 ? -1 : world_.dice.below(rows);
}

std::string Walk::anyPath() {
  Dice& dice = world_.dice;
  if (!dice.oneIn(12)) return dice.pick(disk_);
  static const std::vector<std::string> odd{"C:\\v\\missing.avi",
                                            "\"C:\\v\\film-1.avi\"",
                                            "",
                                            "\"\"",
                                            " ",
                                            "C:\\v\\",
                                            "-SMF",
                                            std::string("C:\\v\\film-2.avi\0rest", 21),
                                            "C:\\" + std::string(33'000, 'x'),
                                            "http"};
  return dice.pick(odd);
}

std::vector<std::string> Walk::anyPaths(int most) {
  std::vector<std::string> paths;
  for (int i = world_.dice.between(1, most); i > 0; --i) paths.push_back(anyPath());
  return paths;
}

}  // namespace tessivo::walk
