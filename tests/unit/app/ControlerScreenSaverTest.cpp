#include "unit/app/ControlerFixture.h"

namespace tessivo {
namespace {

using Started = FakeProcesses::Started;

/// A stored program and delay; `start` is the program's start with them.
class ControlerScreenSaverTest : public ControlerFixture {
 protected:
  void SetUp() override {
    screen.load();
    ASSERT_EQ(prepareDatabase(database, log), DatabaseState::created);
    store(true);
  }
  void store(bool boolScreenSaver, std::int32_t minutes = 2) {
    SysConfig config;
    config.strDBFilePath(database);
    ASSERT_TRUE(config.boolGetData() || config.strReport().empty());
    config.boolScreenSaver(boolScreenSaver);
    config.lngSSDelayMinute(minutes);
    config.strScrSavProcName("clock");
    ASSERT_TRUE(config.boolSaveData());
  }
  void start() {
    playList.strPLDBFilePath(database);
    controler.setInitializePram(database, "D:\\other\\SSP");
    controler.setReferences(tray, panel, screen, playList);
  }
  SysConfig stored() {
    SysConfig config;
    config.strDBFilePath(database);
    EXPECT_TRUE(config.boolGetData());
    return config;
  }
  /// More than so many minutes without input.
  void beIdle(int minutes) { time.advance(static_cast<std::uint64_t>(minutes) * 60'000 + 2'000); }

  RunParameter parameter{false, true, false, true, 3, "pictures"};
};

TEST_F(ControlerScreenSaverTest, StartSwitchesTheSystemsScreenSaverAndSleepOff) {
  trace.take();
  controler.setInitializePram(database, "C:\\p\\SSP");
  EXPECT_EQ(trace.take(), "parameters 17 0 0 3 | execution state 80000003");
}

TEST_F(ControlerScreenSaverTest, AnIdleUserStartsTheStoredProgramFromTheFolderOverThePicture) {
  start();
  screen.setBounds({1500, 3000, 15 * 640, 15 * 480});
  time.advance(120'000);
  EXPECT_TRUE(processes.started.empty());
  time.advance(2'000);
  EXPECT_EQ(processes.started, (std::vector{Started{"D:\\other\\SSP\\clock.exe",
                                                    "RUN##100##200##640##480##0##Tessivo 播放窗口",
                                                    WindowStyle::normalNoFocus}}));
}

TEST_F(ControlerScreenSaverTest, BeforeTheFirstReportTheWindowIsWhereItCameUp) {
  store(true, 0);
  screen.setBounds({1500, 3000, 15 * 640, 15 * 480});
  screen.timFrmPosiReport.setEnabled(false);
  start();
  time.advance(1'000);
  ASSERT_EQ(processes.started.size(), 1U);
  EXPECT_TRUE(processes.started[0].arguments.starts_with("RUN##100##200##640##480##0##"));
}

TEST_F(ControlerScreenSaverTest, TheProgramIsToldWhetherThePictureIsFullScreenAndItsTitle) {
  start();
  displays.add({1280, -40, 1920, 1080});
  screen.setMaximum({1280, -40, 1920, 1080});
  screen.boolMaxSize(true);
  screen.setCaption("a.avi");
  beIdle(2);
  ASSERT_EQ(processes.started.size(), 1U);
  EXPECT_EQ(processes.started[0].arguments, "RUN##1280##-40##1920##1080##1##a.avi");
}

TEST_F(ControlerScreenSaverTest, SwitchedOffItWatchesNobody) {
  store(false);
  start();
  EXPECT_EQ(threadTimers.running.size(), 1U);  // the mouse hider's
  beIdle(2);
  EXPECT_TRUE(processes.started.empty());
}

TEST_F(ControlerScreenSaverTest, WithoutFormsTheWindowHasNoTitle) {
  controler.setInitializePram(database, "C:\\p\\SSP");
  beIdle(2);
  ASSERT_EQ(processes.started.size(), 1U);
  EXPECT_EQ(processes.started[0].arguments, "RUN##0##0##0##0##0##");
}

TEST_F(ControlerScreenSaverTest, BeforeTheStartSequenceItsOperationsDoNothing) {
  controler.setPlayPosiForScreenSaver({1, 2, 3, 4});
  controler.previewAScrSavProcByName("clock");
  EXPECT_EQ(controler.showAScrSavPrcPramConfigFace("clock", 1, 2, "x"), "");
  EXPECT_TRUE(processes.started.empty());
}

TEST_F(ControlerScreenSaverTest, PreviewsAProgramAndOpensItsSettings) {
  start();
  controler.previewAScrSavProcByName("stars");
  EXPECT_EQ(controler.showAScrSavPrcPramConfigFace("stars", 30, 40, "x"),
            "D:\\other\\SSP\\stars.exe");
  EXPECT_EQ(processes.started,
            (std::vector{Started{"D:\\other\\SSP\\stars.exe", "RUN##0##0##0##0##0## ",
                                 WindowStyle::normalNoFocus},
                         Started{"D:\\other\\SSP\\stars.exe", "SHOW_CONFIG_FACE##30##40##x",
                                 WindowStyle::normal}}));
}

TEST_F(ControlerScreenSaverTest, NamesTheProgramsThatTheFolderHoldsNow) {
  EXPECT_TRUE(controler.screenSaverNames().empty());
  start();
  files.folders["D:\\other\\SSP"] = {"clock.exe", "readme.txt", "stars.EXE"};
  EXPECT_EQ(controler.screenSaverNames(), (std::vector<std::string>{"clock", "stars"}));
  files.folders["D:\\other\\SSP"] = {"new.exe"};
  EXPECT_EQ(controler.screenSaverNames(), std::vector<std::string>{"new"});
}

TEST_F(ControlerScreenSaverTest, TheDialogsValuesAreStoredAndFollowedAtOnce) {
  store(false);
  start();
  controler.saveRunPram(parameter);
  const SysConfig config = stored();
  EXPECT_FALSE(config.boolPlayNextOnErr());
  EXPECT_TRUE(config.boolPopuMainFaceForErr());
  EXPECT_FALSE(config.boolSavePlayList());
  EXPECT_TRUE(config.boolScreenSaver());
  EXPECT_EQ(config.lngSSDelayMinute(), 3);
  EXPECT_EQ(config.strScrSavProcName(), "pictures");
  time.advance(180'000);
  EXPECT_TRUE(processes.started.empty());
  time.advance(2'000);
  ASSERT_EQ(processes.started.size(), 1U);
  EXPECT_EQ(processes.started[0].program, "D:\\other\\SSP\\pictures.exe");
}

TEST_F(ControlerScreenSaverTest, TheValuesAreSavedBeforeTheWatchFollowsThem) {
  store(false);
  start();
  std::int32_t delayThen = 0;
  idleInput.whenRead = [&] { delayThen = stored().lngSSDelayMinute(); };
  controler.saveRunPram(parameter);
  EXPECT_EQ(delayThen, 3);
}

TEST_F(ControlerScreenSaverTest, EachOfTheDialogsSwitchesIsItsOwn) {
  start();
  for (int on = 0; on < 4; ++on) {
    controler.saveRunPram({on == 0, on == 1, on == 2, on == 3, 9, "p"});
    const SysConfig config = stored();
    EXPECT_EQ(config.boolPlayNextOnErr(), on == 0);
    EXPECT_EQ(config.boolPopuMainFaceForErr(), on == 1);
    EXPECT_EQ(config.boolSavePlayList(), on == 2);
    EXPECT_EQ(config.boolScreenSaver(), on == 3);
  }
}

TEST_F(ControlerScreenSaverTest, SwitchedOffInTheDialogItWatchesNobodyAnyMore) {
  start();
  parameter.boolScreenSaver = false;
  controler.saveRunPram(parameter);
  EXPECT_EQ(threadTimers.running.size(), 1U);
  beIdle(10);
  EXPECT_TRUE(processes.started.empty());
}

TEST_F(ControlerScreenSaverTest, SavedWhileAProgramRunsItWaitsForIdlenessAnew) {
  start();
  beIdle(2);
  ASSERT_EQ(processes.started.size(), 1U);
  controler.saveRunPram(parameter);
  time.advance(1'000);  // nobody touched anything: idle for longer than three minutes is not yet
  EXPECT_EQ(processes.started.size(), 1U);
  beIdle(3);
  EXPECT_EQ(processes.started.size(), 2U);
}

TEST_F(ControlerScreenSaverTest, ValuesThatCannotBeSavedAreFollowedAllTheSameAndLogged) {
  start();
  controler.config().strDBFilePath(folder.file("no/such/folder/SysConfig"));
  controler.saveRunPram(parameter);
  EXPECT_TRUE(log.lines.back().starts_with("error settings not saved: "));
  EXPECT_TRUE(controler.config().boolScreenSaver());
  beIdle(3);
  EXPECT_EQ(processes.started.size(), 1U);
}

TEST_F(ControlerScreenSaverTest, LeavingSwitchesTheSystemOnAfterEverythingIsSavedAndEndsTheWatch) {
  start();
  store(true, 7);  // what leaving is to overwrite
  controler.config().lngSSDelayMinute(8);
  std::int32_t delayThen = 0;
  power.whenAsked = [&] { delayThen = stored().lngSSDelayMinute(); };
  trace.take();
  controler.exitSys();
  EXPECT_TRUE(trace.take().ends_with("tray gone | " + kSystemRestored + " | quit"));
  EXPECT_EQ(delayThen, 8);
  EXPECT_TRUE(threadTimers.running.empty());
  beIdle(10);
  EXPECT_TRUE(processes.started.empty());
}

TEST_F(ControlerScreenSaverTest, LeavingDuringStartUpSwitchesTheSystemOnToo) {
  controler.setInitializePram(database, "");
  trace.take();
  controler.exitSys();
  EXPECT_EQ(trace.take(), kSystemRestored + " | quit");
  controler.previewAScrSavProcByName("clock");
  controler.setPlayPosiForScreenSaver({});
  EXPECT_TRUE(processes.started.empty());
}

TEST_F(ControlerScreenSaverTest, LeavingBeforeTheStartSequenceAsksTheSystemNothing) {
  trace.take();
  controler.exitSys();
  EXPECT_EQ(trace.take(), "quit");
}

TEST_F(ControlerScreenSaverTest, TheLogTellsWhatTheSystemWasAsked) {
  start();
  controler.exitSys();
  const std::string all = testing::PrintToString(log.lines);
  const auto off = all.find("info the system's screen saver and sleep are switched off");
  const auto on = all.find("info the system's screen saver and sleep are switched on");
  EXPECT_NE(off, std::string::npos);
  EXPECT_NE(on, std::string::npos);
  EXPECT_LT(off, on);
}

}  // namespace
}  // namespace tessivo
