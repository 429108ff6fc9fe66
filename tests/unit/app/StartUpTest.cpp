#include "app/StartUp.h"

#include "fakes/FakeSharedMemory.h"
#include "unit/app/ControlerFixture.h"

namespace tessivo {
namespace {

TEST(ProgramPaths, AreFormedFromTheProgramFolder) {
  const ProgramPaths paths = formProgramPaths("C:\\Program Files\\Tessivo");
  EXPECT_EQ(paths.programFolder, "C:\\Program Files\\Tessivo");
  EXPECT_EQ(paths.parentFolder, "C:\\Program Files");
  EXPECT_EQ(paths.database, "C:\\Program Files\\Tessivo\\SysConfig");
  EXPECT_EQ(paths.databaseForOthers, "C:\\Program Files\\Tessivo\\sysconfig");
  EXPECT_EQ(paths.screenSaverFolder, "C:\\Program Files\\Tessivo\\SSP");
  EXPECT_EQ(paths.associationStore, "C:\\Program Files\\FileAssocia");
}

class StartUpTest : public ControlerFixture {
 protected:
  void SetUp() override {
    time.setDate({2026, 11, 20, 1000});
    files.existing = {"C:\\v\\a.avi", "C:\\v\\b.avi", "C:\\v\\c.avi"};
    ASSERT_EQ(prepareDatabase(database, log), DatabaseState::created);
    paths.database = database;
  }
  void store(std::int16_t volume, std::int32_t rule, bool keepList, std::int32_t position = 65) {
    SysConfig config;
    config.strDBFilePath(database);
    config.intVolumeValue(volume);
    config.lngPlayRuler(rule);
    config.boolSavePlayList(keepList);
    config.lngCurrentPlayPosition(position);
    config.lngCurrentPlayItemLen(200);
    ASSERT_TRUE(config.boolSaveData());
    PlayList list(keys);
    list.strPLDBFilePath(database);
    for (const char* path : {"C:\\v\\a.avi", "C:\\v\\b.avi"}) {
      auto movie = std::make_shared<Movie>(keys);
      movie->strFilePath = path;
      movie->strFileName = std::string(path).substr(5);
      list.addAItem(movie);
    }
    list.setPlayItemByFlag(list.objGetAItem(2)->strKey);
    ASSERT_TRUE(list.boolSavePlayListToPLDB());
  }
  void start(const std::string& commandLine = "") {
    trace.take();
    startUp({paths, commandLine, displays, log, aimMonitor, playList, controler, screen,
             commandLines, requests, tray, panel, [this] { load("tray"); },
             [this] { load("panel"); }});
  }

  void load(const std::string& form) {
    trace.add("load " + form + (requests.boolSysReady() ? " ready" : ""));
    if (whileLoading) whileLoading();
  }

  ProgramPaths paths;
  FakeSharedMemory memory;
  CommandLine commandLines{controler, memory, log};
  RequestReceiver requests{controler, commandLines, log};
  std::function<void()> whileLoading;
  AimMonitor aimMonitor{displays};
};

TEST_F(StartUpTest, AStoredListIsShownLoadedAndNotStarted) {
  store(45, playRule::kMediaOnly, true);
  start();
  EXPECT_EQ(order(), "ab*!");
  EXPECT_EQ(screen.strFilePath(), "C:\\v\\b.avi");
  EXPECT_EQ(screen.lngState(), playState::kStopped);
  EXPECT_EQ(screen.intVolume(), 45);
  EXPECT_EQ(screen.lngPlayRuler(), playRule::kMediaOnly);
  EXPECT_EQ(wmp().position, 65);
  const std::string all = trace.take();
  const auto panelLoaded = all.find("load panel");
  const auto rows = all.find("row a.avi | row b.avi | mark " + key(2) + " 1");
  const auto url = all.find("wmp url C:\\v\\b.avi");
  const auto shown = all.find("settings shown");
  EXPECT_LT(panelLoaded, rows);
  EXPECT_LT(rows, url);
  EXPECT_LT(url, shown);
  EXPECT_NE(shown, std::string::npos);
}

TEST_F(StartUpTest, TheTrayComesBeforeTheShowAndThePanelLast) {
  store(45, playRule::kMediaOnly, true);
  start();
  const std::string all = trace.take();
  const auto trayLoaded = all.find("load tray");
  const auto volume = all.find("wmp volume 30");
  const auto panelLoaded = all.find("load panel");
  const auto settings = all.find("settings shown");
  const auto shown = all.find("panel front");
  EXPECT_LT(trayLoaded, volume);
  EXPECT_LT(volume, panelLoaded);
  EXPECT_LT(panelLoaded, settings);
  EXPECT_LT(settings, shown);
  EXPECT_NE(shown, std::string::npos);
  EXPECT_TRUE(requests.boolSysReady());
}

TEST_F(StartUpTest, TheFileOfTheCommandLineIsOpenedWhileThePanelIsMade) {
  store(45, playRule::kMediaOnly, true);
  std::string opened;
  int loads = 0;
  whileLoading = [&] {  // the tray, which comes before the engines, and then the panel
    if (++loads == 2) opened = wmp().prepared + " | " + real().prepared;
  };
  start("\"C:\\v\\c.avi\"");
  EXPECT_EQ(opened, "C:\\v\\c.avi | ");
  EXPECT_EQ(wmp().prepared, "C:\\v\\c.avi") << "the rule is set again, which does not forget it";
}

TEST_F(StartUpTest, NothingIsOpenedAheadWithoutAFileToPlay) {
  store(45, playRule::kMediaOnly, true);
  for (const char* line : {"", "DMenuF_1__/?%/name/?%/20", "DMenuF_2__/?%/name/?%/20"}) {
    EXPECT_FALSE(CommandLine::isPath(line)) << line;
  }
  start("DMenuF_1__/?%/name/?%/20");
  EXPECT_EQ(wmp().prepared, "");
}

TEST_F(StartUpTest, ItIsReadyBeforeItsOwnCommandLineAndNotEarlier) {
  store(45, playRule::kMediaOnly, true);
  std::string ready;
  const auto note = [&] { ready += requests.boolSysReady() ? "y" : "n"; };
  panel.whileAddingRow = note;
  panel.whileShown = note;
  whileLoading = note;
  start("C:\\v\\c.avi");
  // Tray, panel, two stored rows, the panel shown; then the row of the command line.
  EXPECT_EQ(ready, "nnnnny");
}

TEST_F(StartUpTest, AnEndOfTheSessionWhileItStartsEndsTheLoopAndPlaysNothing) {
  store(45, playRule::kMediaOnly, true);
  whileLoading = [this] { controler.exitSys(); };
  start("C:\\v\\c.avi");
  const std::string all = trace.take();
  EXPECT_NE(all.find("quit"), std::string::npos);
  EXPECT_EQ(all.find("requests end"), std::string::npos);
  EXPECT_EQ(all.find("panel front"), std::string::npos);
  EXPECT_EQ(log.lines.back(), "info stop");
  EXPECT_EQ(order(), "ab*!");
  EXPECT_EQ(screen.lngState(), playState::kStopped);
}

TEST_F(StartUpTest, TheVolumeIsThirtyUntilTheSettingsAreGiven) {
  store(45, playRule::kRealOnly, true);
  start();
  const std::string all = trace.take();
  EXPECT_LT(all.find("real volume 30 | load panel"), all.find("real volume 45"));
  EXPECT_LT(all.find("real volume 45"), all.find("row a.avi"));
  EXPECT_LT(all.find("real volume 45"), all.find("wmp url C:\\v\\b.avi"));
}

TEST_F(StartUpTest, TheFirstPlayOfTheStoredItemStartsWhereItWasLeft) {
  store(45, playRule::kRealOnly, true);
  start();
  screen.play();
  time.advance(1);
  trace.take();
  real().notify(RealPlayState::playing);
  EXPECT_EQ(trace.take(), "real position 65000 | real sound");
}

class ResumeOutsideTest : public StartUpTest, public testing::WithParamInterface<std::int32_t> {};

TEST_P(ResumeOutsideTest, APositionOutsideTheItemMeansItsStart) {
  store(45, playRule::kMediaOnly, true, GetParam());
  start();
  EXPECT_EQ(wmp().position, 0);
}
INSTANTIATE_TEST_SUITE_P(Positions, ResumeOutsideTest, testing::Values(-5, 200, 2147483647));

TEST_F(StartUpTest, WithoutKeepingTheListTheStoredOneIsCleared) {
  store(45, playRule::kRealOnly, false);
  start();
  EXPECT_EQ(playList.lngListCount(), 0);
  EXPECT_EQ(screen.strFilePath(), "");
  PlayList again(keys);
  again.strPLDBFilePath(database);
  EXPECT_TRUE(again.boolGetPlayListFromPLDB());
  EXPECT_EQ(again.lngListCount(), 0);
}

TEST_F(StartUpTest, ACommandLineIsOnePathWithItsBlanksAndPlays) {
  files.existing.insert("C:\\v\\two words.avi");
  start("C:\\v\\two words.avi");
  EXPECT_EQ(order(), "t*!");
  EXPECT_EQ(screen.lngState(), playState::kStarting);
}

TEST_F(StartUpTest, AnEmptyCommandLineDoesNothing) {
  start();
  const std::string all = trace.take();
  EXPECT_EQ(all.find("state 3"), std::string::npos);
  for (const std::string& line : log.lines) EXPECT_EQ(line.find("not added"), std::string::npos);
}

TEST_F(StartUpTest, WhatCannotBeReadIsLoggedWithItsReason) {
  paths.database = folder.file("no/such/folder/SysConfig");
  start();
  ASSERT_GE(log.lines.size(), 2U);
  EXPECT_EQ(log.lines[log.lines.size() - 3].find("error settings not read: "), 0U);
  EXPECT_EQ(log.lines.back().find("error playlist not read: "), 0U);
  EXPECT_GT(log.lines.back().size(), std::string("error playlist not read: ").size());
}

TEST_F(StartUpTest, TheShowPanelTextIsAFileNameAtStart) {
  start("-SMF");
  EXPECT_EQ(playList.lngListCount(), 0);
  EXPECT_EQ(log.lines.back(), "error not added, not a file: -SMF");
}

TEST_F(StartUpTest, WithTwoMonitorsTheWindowFillsTheTargetAtOnce) {
  start();
  EXPECT_TRUE(screen.boolMaxSize());
  EXPECT_TRUE(screen.visible());
  EXPECT_EQ(screen.windowRect(), (Rect{1280, 0, 1920, 1080}));
  EXPECT_EQ(screen.normal(), (Rect{160, 128, 960, 768}));
  EXPECT_NE(trace.take().find("panel on top | state 6"), std::string::npos);
}

TEST_F(StartUpTest, WithOneMonitorTheWindowIsNormalAndCentred) {
  displays.remove(102);
  start();
  EXPECT_FALSE(screen.boolMaxSize());
  EXPECT_TRUE(screen.visible());
  EXPECT_EQ(screen.windowRect(), (Rect{160, 128, 960, 768}));
}

}  // namespace
}  // namespace tessivo
