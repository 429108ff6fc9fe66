#include "saver/ScreenSaverCtrl.h"

#include <gtest/gtest.h>

#include "fakes/FakeLog.h"
#include "fakes/FakeSaverSystem.h"
#include "fakes/FakeSystem.h"
#include "fakes/FakeThreadTimers.h"

namespace tessivo {

namespace {

using Started = FakeProcesses::Started;

class ScreenSaverCtrlTest : public testing::Test {
 protected:
  /// The clock is chosen for a playback window full screen on the second monitor.
  void choose() {
    saver.strScreenSaverProcName("clock");
    saver.SetPlayArea(1280, 0, 1024, 768);
    window = {true, "a.avi"};
  }
  void beIdle(int minutes = 5) {
    time.advance(static_cast<std::uint64_t>(minutes) * 60'000 + 1'000);
  }
  std::vector<std::string> names() const {
    std::vector<std::string> all;
    for (std::int32_t i = 1; i <= saver.lngGetScrSavPrcNameLstItmCount(); ++i) {
      all.push_back(saver.strGetScrSavPrcNameByIndex(i));
    }
    return all;
  }
  const Started run{"C:\\p\\SSP\\clock.exe", "RUN##1280##0##1024##768##1##a.avi",
                    WindowStyle::normalNoFocus};

  VirtualTime time;
  FakeThreadTimers threadTimers{time};
  MTimer timers{threadTimers};
  FakeIdleInput input{time};
  FakeProcesses processes;
  FakeFiles files;
  FakeLog log;
  PlayWindow window;
  ScreenSaverCtrl saver{{input, timers, processes, files, log, "C:\\p"}, [this] { return window; }};
};

TEST_F(ScreenSaverCtrlTest, BeginsWithTheFolderBesideTheProgramAndFiveMinutesAndDoesNothing) {
  EXPECT_EQ(saver.strScrSavPrcsFolderPath(), "C:\\p\\SSP");
  EXPECT_EQ(saver.strScreenSaverProcName(), "");
  EXPECT_EQ(saver.lngDelayMinute(), 5);
  EXPECT_EQ(saver.lngWorkState(), 0);
  EXPECT_EQ(saver.lngGetScrSavPrcNameLstItmCount(), 0);
  EXPECT_TRUE(threadTimers.running.empty());
}

TEST_F(ScreenSaverCtrlTest, StartsTheProgramOverThePictureWhenTheUserIsIdle) {
  choose();
  saver.lngWorkState(saverState::waitting_saver);
  time.advance(300'000);
  EXPECT_TRUE(processes.started.empty());
  time.advance(1'000);
  EXPECT_EQ(processes.started, std::vector{run});
  EXPECT_EQ(saver.lngWorkState(), saverState::open_saver);
  time.advance(600'000);
  EXPECT_EQ(processes.started.size(), 1U);
}

TEST_F(ScreenSaverCtrlTest, WaitsAgainWhenTheUserIsBack) {
  choose();
  saver.lngWorkState(saverState::waitting_saver);
  beIdle();
  input.touch();
  time.advance(1'000);
  EXPECT_EQ(saver.lngWorkState(), saverState::waitting_saver);
  EXPECT_EQ(processes.started.size(), 1U);
  beIdle();
  EXPECT_EQ(processes.started.size(), 2U);
}

TEST_F(ScreenSaverCtrlTest, TheLogTellsIdlenessTheProgramAndActivity) {
  choose();
  saver.lngWorkState(saverState::waitting_saver);
  beIdle();
  input.touch();
  time.advance(1'000);
  EXPECT_EQ(log.lines, (std::vector<std::string>{"info the user is idle",
                                                 "info screen saver started: C:\\p\\SSP\\clock.exe "
                                                 "RUN##1280##0##1024##768##1##a.avi",
                                                 "info the user is active again"}));
}

TEST_F(ScreenSaverCtrlTest, AProgramThatCannotBeStartedIsALineInTheLogAndTheUserIsWaitedFor) {
  choose();
  processes.error = 2;
  saver.lngWorkState(saverState::waitting_saver);
  beIdle();
  EXPECT_EQ(saver.lngWorkState(), saverState::open_saver);
  EXPECT_EQ(log.lines.back(),
            "error screen saver not started, error 2: C:\\p\\SSP\\clock.exe "
            "RUN##1280##0##1024##768##1##a.avi");
  time.advance(600'000);
  EXPECT_EQ(processes.started.size(), 1U);
  input.touch();
  time.advance(1'000);
  EXPECT_EQ(saver.lngWorkState(), saverState::waitting_saver);
}

TEST_F(ScreenSaverCtrlTest, AnEmptyNameIsTriedLikeAnyOther) {
  saver.lngWorkState(saverState::open_saver);
  ASSERT_EQ(processes.started.size(), 1U);
  EXPECT_EQ(processes.started[0].program, "C:\\p\\SSP\\.exe");
}

TEST_F(ScreenSaverCtrlTest, OpenStartsTheProgramAtOnceAndWatchesForActivity) {
  choose();
  saver.lngWorkState(saverState::open_saver);
  EXPECT_EQ(processes.started, std::vector{run});
  time.advance(500);
  input.touch();
  time.advance(500);
  EXPECT_EQ(saver.lngWorkState(), saverState::waitting_saver);
}

TEST_F(ScreenSaverCtrlTest, TheSameStateIsNotAppliedAgain) {
  choose();
  saver.lngWorkState(saverState::open_saver);
  saver.lngWorkState(saverState::open_saver);
  EXPECT_EQ(processes.started.size(), 1U);
}

TEST_F(ScreenSaverCtrlTest, OffStopsWatching) {
  choose();
  saver.lngWorkState(saverState::waitting_saver);
  saver.lngWorkState(saverState::unenabled_saver);
  EXPECT_TRUE(threadTimers.running.empty());
  beIdle();
  EXPECT_TRUE(processes.started.empty());
  saver.lngWorkState(saverState::open_saver);
  saver.lngWorkState(saverState::unenabled_saver);
  input.touch();
  time.advance(2'000);
  EXPECT_EQ(saver.lngWorkState(), saverState::unenabled_saver);
}

TEST_F(ScreenSaverCtrlTest, OtherStatesAreKeptAndMeanNothing) {
  choose();
  saver.lngWorkState(saverState::waitting_saver);
  saver.lngWorkState(7);
  EXPECT_EQ(saver.lngWorkState(), 7);
  EXPECT_EQ(threadTimers.running.size(), 1U);  // the watch goes on
  beIdle();
  EXPECT_EQ(saver.lngWorkState(), 7);  // and what it tells is not for this state
  EXPECT_TRUE(processes.started.empty());
}

TEST_F(ScreenSaverCtrlTest, ActivityCountsOnlyWhileAProgramIsOpen) {
  saver.lngWorkState(saverState::open_saver);
  saver.lngWorkState(9);
  time.advance(500);
  input.touch();
  time.advance(500);
  EXPECT_EQ(saver.lngWorkState(), 9);
}

TEST_F(ScreenSaverCtrlTest, TheDelayFollowsTheSettings) {
  choose();
  saver.lngDelayMinute(2);
  EXPECT_EQ(saver.lngDelayMinute(), 2);
  saver.lngWorkState(saverState::waitting_saver);
  time.advance(120'000);
  EXPECT_TRUE(processes.started.empty());
  time.advance(1'000);
  EXPECT_EQ(processes.started.size(), 1U);
}

TEST_F(ScreenSaverCtrlTest, ADelayOfNothingStaysInTheWatchForGood) {
  saver.lngDelayMinute(0);
  saver.lngDelayMinute(5);
  EXPECT_EQ(saver.lngDelayMinute(), 5);
  saver.lngWorkState(saverState::waitting_saver);
  time.advance(1'000);
  EXPECT_EQ(saver.lngWorkState(), saverState::open_saver);
}

TEST_F(ScreenSaverCtrlTest, TheCommandLineTellsThePresentAreaAndWindow) {
  saver.strScrSavPrcsFolderPath("D:\\a b\\屏保");
  saver.strScreenSaverProcName("时钟");
  saver.SetPlayArea(0, 0, 1024, 768);
  window = {false, "Screen"};
  saver.lngWorkState(saverState::open_saver);
  EXPECT_EQ(processes.started.back(),
            (Started{"D:\\a b\\屏保\\时钟.exe", "RUN##0##0##1024##768##0##Screen",
                     WindowStyle::normalNoFocus}));
  saver.lngWorkState(saverState::unenabled_saver);
  saver.SetPlayArea(-1920, -40, 1920, 1080);
  window = {true, "a ## b "};
  saver.lngWorkState(saverState::open_saver);
  EXPECT_EQ(processes.started.back().arguments, "RUN##-1920##-40##1920##1080##1##a ## b ");
}

TEST_F(ScreenSaverCtrlTest, BeforeTheFirstReportTheAreaIsNothing) {
  saver.lngWorkState(saverState::open_saver);
  EXPECT_EQ(processes.started.back().arguments, "RUN##0##0##0##0##0##");
}

TEST_F(ScreenSaverCtrlTest, APreviewHasNoAreaAndABlankForItsCaption) {
  choose();
  saver.previewAScrSavProcByName("stars");
  EXPECT_EQ(processes.started,
            (std::vector{Started{"C:\\p\\SSP\\stars.exe", "RUN##0##0##0##0##0## ",
                                 WindowStyle::normalNoFocus}}));
  EXPECT_EQ(saver.lngWorkState(), 0);
  EXPECT_TRUE(threadTimers.running.empty());
}

TEST_F(ScreenSaverCtrlTest, APreviewThatCannotBeStartedIsALineInTheLog) {
  processes.error = 5;
  saver.previewAScrSavProcByName("stars");
  EXPECT_EQ(log.lines, std::vector<std::string>{"error screen saver not started, error 5: "
                                                "C:\\p\\SSP\\stars.exe RUN##0##0##0##0##0## "});
}

TEST_F(ScreenSaverCtrlTest, ANameThatLeadsOutOfTheFolderIsNotStarted) {
  for (const std::string name : {"..\\cmd", "a\\b", "../x", "C:x"}) {
    log.lines.clear();
    saver.previewAScrSavProcByName(name);
    EXPECT_EQ(log.lines, std::vector<std::string>{
                             "error screen saver not started, not in the folder: " + name});
    saver.showAScrSavPrcPramConfigFace(name, 0, 0, "");
    saver.strScreenSaverProcName(name);
    saver.lngWorkState(saverState::open_saver);
    saver.lngWorkState(saverState::unenabled_saver);
  }
  EXPECT_TRUE(processes.started.empty());
}

TEST_F(ScreenSaverCtrlTest, TheSettingsOpenAtThePlaceForTheOwnerAndThePathComesBack) {
  EXPECT_EQ(saver.showAScrSavPrcPramConfigFace("stars", 300, -20, "45296.5213ScrSavPramSet"),
            "C:\\p\\SSP\\stars.exe");
  EXPECT_EQ(processes.started,
            (std::vector{Started{"C:\\p\\SSP\\stars.exe",
                                 "SHOW_CONFIG_FACE##300##-20##45296.5213ScrSavPramSet",
                                 WindowStyle::normal}}));
  EXPECT_EQ(saver.lngWorkState(), 0);
}

TEST_F(ScreenSaverCtrlTest, ThePathComesBackAlsoWhenTheSettingsCannotBeOpened) {
  processes.error = 2;
  EXPECT_EQ(saver.showAScrSavPrcPramConfigFace("none", 0, 0, "x"), "C:\\p\\SSP\\none.exe");
}

TEST_F(ScreenSaverCtrlTest, ListsTheExecutablesOfTheFolder) {
  files.folders["C:\\p\\SSP"] = {"b.EXE", "c.txt", "d.",        "a.exe", "x.exe.bak",
                                 "exe",   "e.eXe", "f.exe.exe", "g.exec"};
  saver.getScrSaverProcNameList();
  EXPECT_EQ(names(), (std::vector<std::string>{"b", "a", "e", "f.exe"}));
  EXPECT_EQ(saver.strGetScrSavPrcNameByIndex(0), "");
  EXPECT_EQ(saver.strGetScrSavPrcNameByIndex(5), "");
  EXPECT_EQ(saver.strGetScrSavPrcNameByIndex(-1), "");
}

TEST_F(ScreenSaverCtrlTest, AFileThatIsNothingButTheExtensionIsAProgramWithoutAName) {
  files.folders["C:\\p\\SSP"] = {".exe", "a.exe"};
  saver.getScrSaverProcNameList();
  EXPECT_EQ(saver.lngGetScrSavPrcNameLstItmCount(), 2);
  EXPECT_EQ(names(), (std::vector<std::string>{"", "a"}));
}

TEST_F(ScreenSaverCtrlTest, TheListIsMadeAnewEachTime) {
  files.folders["C:\\p\\SSP"] = {"a.exe", "b.exe"};
  saver.getScrSaverProcNameList();
  files.folders["C:\\p\\SSP"] = {"c.exe"};
  saver.getScrSaverProcNameList();
  EXPECT_EQ(names(), std::vector<std::string>{"c"});
  files.folders["C:\\p\\SSP"] = {};
  saver.getScrSaverProcNameList();
  EXPECT_EQ(saver.lngGetScrSavPrcNameLstItmCount(), 0);
}

TEST_F(ScreenSaverCtrlTest, AFolderThatCannotBeOpenedOrIsNotNamedHoldsNothing) {
  files.folders["C:\\p\\SSP"] = {"a.exe"};
  files.folders["  "] = {"b.exe"};
  saver.getScrSaverProcNameList();
  saver.strScrSavPrcsFolderPath("C:\\gone");
  saver.getScrSaverProcNameList();
  EXPECT_EQ(saver.lngGetScrSavPrcNameLstItmCount(), 0);
  saver.strScrSavPrcsFolderPath("  ");
  saver.getScrSaverProcNameList();
  EXPECT_EQ(saver.lngGetScrSavPrcNameLstItmCount(), 0);
}

TEST_F(ScreenSaverCtrlTest, ItsWatchEndsWithIt) {
  {
    ScreenSaverCtrl other({input, timers, processes, files, log, "C:\\p"},
                          [this] { return window; });
    other.lngWorkState(saverState::waitting_saver);
    ASSERT_EQ(threadTimers.running.size(), 1U);
  }
  EXPECT_TRUE(threadTimers.running.empty());
}

}  // namespace
}  // namespace tessivo
