// The watch over the program's leaving: when it is armed, and what its last will saves.
#include <gtest/gtest.h>

#include <stdexcept>

#include "unit/app/ControlerFixture.h"

namespace tessivo {
namespace {

class LeavingWatchTest : public ControlerFixture {
 protected:
  void SetUp() override {
    ControlerFixture::SetUp();
    addThree();
    leaveWatch.whenArmed = [this] {
      armings.push_back({leaveWatch.armedMs, leaveWatch.lastWill != nullptr, storedRows()});
    };
  }
  std::int32_t storedRows() {
    PlayList stored(keys);
    stored.strPLDBFilePath(database);
    stored.boolGetPlayListFromPLDB();
    return stored.lngListCount();
  }
  /// The forms hang until the watch has carried out its last will.
  void hangWithForms() {
    loop.whilePumping = [this] {
      trace.take();
      leaveWatch.lastWill();
      done = trace.take();
      rowsByLastWill = storedRows();
    };
    controler.exitSys();
  }

  struct Arming {
    int ms;
    bool hasLastWill;
    std::int32_t rowsStored;
    bool operator==(const Arming&) const = default;
  };
  std::vector<Arming> armings;
  std::string done;
  std::int32_t rowsByLastWill = -1;
};

TEST_F(LeavingWatchTest, IsArmedWhileTheFormsGoAndFromTheSavingOn) {
  controler.exitSys();
  EXPECT_EQ(armings, (std::vector<Arming>{{5000, true, 0}, {5000, false, 3}}));
  EXPECT_EQ(leaveWatch.armedMs, 5000);
}

TEST_F(LeavingWatchTest, SavingMayTakeAsLongAsItLikes) {
  playList.strPLDBFilePath(folder.file("no/such/folder/SysConfig"));
  std::vector<int> armedWhile;
  loop.whilePumping = [&] { armedWhile.push_back(leaveWatch.armedMs); };
  controler.exitSys();
  ASSERT_EQ(armedWhile.size(), 10U);
  EXPECT_EQ(armedWhile.front(), 5000);  // the engines settle
  EXPECT_EQ(armedWhile[1], 0);
  EXPECT_EQ(armedWhile.back(), 0);
}

TEST_F(LeavingWatchTest, FormsThatThrowLeaveTheSavingUnwatched) {
  std::vector<int> armedWhile;
  playList.strPLDBFilePath(folder.file("no/such/folder/SysConfig"));
  loop.whilePumping = [&] {
    armedWhile.push_back(leaveWatch.armedMs);
    if (armedWhile.size() == 1) throw std::runtime_error("an engine");
  };
  controler.exitSys();
  ASSERT_EQ(armedWhile.size(), 10U);
  EXPECT_EQ(armedWhile[1], 0);
}

TEST_F(LeavingWatchTest, TheLastWillSavesAndSwitchesTheSystemsSaverOn) {
  controler.setVolume(61);
  hangWithForms();
  EXPECT_EQ(done, "parameters 17 1 0 3");
  EXPECT_EQ(rowsByLastWill, 3);
}

TEST_F(LeavingWatchTest, TheLastWillLeavesAListAloneThatIsNotToBeSaved) {
  controler.config().boolSavePlayList(false);
  hangWithForms();
  EXPECT_EQ(rowsByLastWill, 0);
}

TEST_F(LeavingWatchTest, WhatTheLastWillCannotSaveIsLogged) {
  controler.config().strDBFilePath(folder.file("no/such/folder/SysConfig"));
  playList.strPLDBFilePath(folder.file("no/such/folder/SysConfig"));
  log.lines.clear();
  std::vector<std::string> lines;
  loop.whilePumping = [&] {
    if (!lines.empty()) return;
    log.lines.clear();
    leaveWatch.lastWill();
    lines = log.lines;
  };
  controler.exitSys();
  ASSERT_EQ(lines.size(), 2U);
  EXPECT_EQ(lines[0].find("error settings not saved: "), 0U);
  EXPECT_EQ(lines[1].find("error playlist not saved: "), 0U);
}

TEST_F(LeavingWatchTest, WithoutFormsThereIsNothingToSave) {
  Controler bare{{keys, files, displays, pointer, loop, leaveWatch, log, time, windows, timers,
                  shownWindows, caughtWindows, time, idleInput, power, processes, token, "C:\\p"}};
  bare.exitSys();
  EXPECT_EQ(armings, (std::vector<Arming>{{5000, false, 0}}));
}

}  // namespace
}  // namespace tessivo
