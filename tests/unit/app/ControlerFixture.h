#pragma once

#include "app/Controler.h"
#include "data/PrepareDatabase.h"
#include "fakes/FakeAccounts.h"
#include "fakes/FakeLeaveWatch.h"
#include "fakes/FakePanel.h"
#include "fakes/FakeSaverSystem.h"
#include "fakes/FakeThreadTimers.h"
#include "fakes/FakeTray.h"
#include "fakes/TempFolder.h"
#include "unit/screen/ScreenFixture.h"

namespace tessivo {

/// A controller with a real playlist and database, a real playback window over told engines, and a
/// panel that notes what it is told.
class ControlerFixture : public ScreenFixture {
 protected:
  /// What the system is asked at the end of the program.
  const std::string kSystemRestored = "execution state 80000000 | parameters 17 1 0 3";

  void SetUp() override {
    screen.load();
    files.existing = {"C:\\v\\a.avi", "C:\\v\\b.avi", "C:\\v\\c.avi"};
    time.setDate({2026, 11, 20, 1000});
    ASSERT_EQ(prepareDatabase(database, log), DatabaseState::created);
    controler.setInitializePram(database, "C:\\p\\SSP");
    playList.strPLDBFilePath(database);
    controler.guard(screen);
    controler.setReferences(tray, panel, screen, playList);
    trace.take();
  }

  void addThree() {
    controler.BatchAddMovie({"", "C:\\v\\a.avi", "C:\\v\\b.avi", "C:\\v\\c.avi"}, false);
  }
  std::string key(std::int32_t index) { return playList.objGetAItem(index)->strKey; }
  std::string order() {
    std::string names;
    for (std::int32_t i = 1; i <= playList.lngListCount(); ++i) {
      const auto item = playList.objGetAItem(i);
      names += item->strFileName.substr(0, 1) + (item->boolIsPlayItem ? "*" : "") +
               (item->boolIsActItem ? "!" : "");
    }
    return names;
  }

  TempFolder folder;
  std::string database = folder.file("SysConfig");
  MovieKeys keys{time};
  FakePointer pointer;
  FakeMessageLoop loop{trace};
  FakeLeaveWatch leaveWatch;
  PlayList playList{keys};
  FakePanel panel{trace};
  FakeTray tray{trace};
  FakeShownWindows shownWindows;
  FakeThreadTimers threadTimers{time};
  MTimer timers{threadTimers};
  FakeIdleInput idleInput{time};
  FakeSystemPower power{trace};
  FakeProcesses processes;
  FakeProcessToken token;
  Controler controler{{keys, files, displays, pointer, loop, leaveWatch, log, time, windows, timers,
                       shownWindows, caughtWindows, time, idleInput, power, processes, token,
                       "C:\\p"}};
};

}  // namespace tessivo
