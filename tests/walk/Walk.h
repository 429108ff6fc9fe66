#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "walk/DatabaseTrouble.h"
#include "walk/Program.h"

namespace tessivo::walk {

/// What the stored files of the program must say.
struct Stored {
  std::vector<std::string> paths;
  std::string playPath;
  bool operator==(const Stored&) const = default;
};

/// What has been done, for the report.
struct Counts {
  std::uint64_t events = 0;  ///< nested ones, too
  std::uint64_t lives = 0;
  std::uint64_t withPanel = 0;  ///< events with the panel in reach
  std::uint64_t items = 0;      ///< of the list, summed up over the events
  std::uint64_t dialogs = 0;
  std::uint64_t savesRefused = 0;
  std::uint64_t livenessChecks = 0;
  std::uint64_t stillnessChecks = 0;
};

/// A random walk through the whole program: an operator, the engines, the system and other programs
/// do something, and after each event the rules of the program must hold. The same seed gives the
/// same walk.
class Walk : public ui::Toolkit {
 public:
  explicit Walk(std::uint64_t seed);
  ~Walk() override;

  /// False when a rule has been broken: `failure` says which, `notes` what led there.
  bool run(std::uint64_t events);
  void keepNotes(std::size_t count) { world_.notesKept = count; }
  const std::string& failure() const { return world_.failure; }
  const std::deque<std::string>& notes() const { return world_.notes; }
  const WalkLog& log() const { return world_.log; }
  const Counts& counts() const { return counts_; }

 private:
  /// Who can do something now.
  enum class Who { everybody, machine };  // a menu or a system dialog keeps the operator busy
  struct Event {
    int weight;
    const char* name;
    Who who;
    void (Walk::*happen)();
  };
  static const std::vector<Event>& events();

  // Walk.cpp: lives, dialogs and menus
  void beginLife();
  void endLife();
  void oneEvent(Who who);
  bool alive() const { return program_ && !program_->controler.leaves(); }
  bool goesOn() const { return world_.failure.empty(); }
  void open(ui::Form& form) override { form.onResize.raise(); }
  void showModal(ui::Form& dialog) override;
  void whileModal(ui::Form& dialog, const bool& gone);
  void answer(ui::Form& dialog);
  void insist(ui::Form& dialog);
  void whenMenuShown(ui::MenuItem& menu);
  void letMessagesThrough();
  void pump(int ms);
  OpenFilesAnswer chooseFiles();
  bool dialogIsUp() const { return !dialogs_.empty(); }
  void afterwards();

  // What the operator can reach.
  bool reaches(const ui::Control& control) const;
  bool hasPanel() const;
  void click(ui::Control& control);
  int anyRow();
  std::string anyPath();
  std::vector<std::string> anyPaths(int most);
  void key(ui::Form& form, ui::Control& focus, int code, bool control = false);

  // WalkEvents.cpp
  void addFewFiles();
  void addManyFiles();
  void dropFiles();
  void playByDoubleClick();
  void playByEnter();
  void playOrPause();
  void stop();
  void dragProgress();
  void moveProgressByKey();
  void dragVolume();
  void toggleMute();
  void chooseRule();
  void stepLoopMode();
  void fullScreenByPanel();
  void clickPicture();
  void doubleClickPicture();
  void pictureMenu();
  void tickRow();
  void tickAll();
  void deleteTicked();
  void clearList();
  void moveRow();
  void holdMove();
  void clickRow();
  void entryMenu();
  void systemMenu();
  void faceMenu();
  void hidePanel();
  void hideOrShowList();
  void changeTab();
  void clearErrors();
  void minimisePanel();
  void closePicture();
  void actOnDialog();
  void trayIcon();
  void request();
  void shellMenu();
  void taskbarCreated();
  void movePointer();
  void touch();
  void changeMonitors();
  void fewMilliseconds();
  void someSeconds();
  void manyMinutes();
  void setClock();
  void changeDisk();
  void changeMood();
  void wildEngine();
  void popUpWindow();
  void troubleDatabase();
  void askToLeave();
  void leave();
  void stayStill();
  void keepsPlaying();

  // WalkChecks.cpp
  void check();
  void checkList();
  void checkPanel();
  void checkPlayState();
  bool isOnItsWay();
  void checkEngines();
  void checkScreen();
  void checkStillness();
  void checkPanelIsShown();
  void checkDialogs();
  void checkSaver();
  void checkStored();
  void checkGone();
  std::size_t timersEnabled();
  Stored storedNow();
  static Stored contentOf(PlayList& list);
  void expect(bool holds, const std::string& what) {
    if (!holds) world_.fail(what);
  }
  bool orderly() const { return !wild_ && !world_.mayThrow; }

  World world_;
  WalkTimers timers_{world_};
  EngineMood mood_;
  std::unique_ptr<Program> program_;
  std::unique_ptr<DatabaseTrouble> trouble_;
  Stored stored_;                  ///< what the database held before this life's end
  std::vector<std::string> disk_;  ///< every path that the operator knows of
  std::vector<ui::Form*> dialogs_;
  std::vector<Connection> menus_;
  Counts counts_;
  int depth_ = 0;    ///< of events inside events
  int pumping_ = 0;  ///< an engine lets messages through: the program is in the midst of a step
  bool menuUp_ = false;
  bool undisturbed_ = false;  ///< nothing but time passes
  bool wild_ = false;         ///< engines that break their promises, in this life
  bool toldStopped_ = false;  ///< the panel said stopped or paused while a start was pending
  std::size_t saversSeen_ = 0;
  std::uint32_t saverInput_ = 0;
};

}  // namespace tessivo::walk
