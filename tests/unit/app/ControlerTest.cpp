#include "unit/app/ControlerFixture.h"

namespace tessivo {
namespace {

class ControlerTest : public ControlerFixture {};

TEST_F(ControlerTest, TheFirstFileAddedIsLoadedButNotStarted) {
  const auto movie = controler.AddAMovieToPL("C:\\v\\a.avi");
  ASSERT_TRUE(movie);
  EXPECT_EQ(movie->strFileName, "a.avi");
  EXPECT_EQ(movie->strFilePath, "C:\\v\\a.avi");
  EXPECT_EQ(movie->strKey, "F2026112000001000");
  EXPECT_EQ(order(), "a*!");
  EXPECT_EQ(trace.take(),
            "wmp stop | wmp position 0 | wmp url C:\\v\\a.avi | real source C:\\v\\a.avi");
}

TEST_F(ControlerTest, AFurtherFileLeavesWhatIsLoaded) {
  controler.AddAMovieToPL("C:\\v\\a.avi");
  trace.take();
  controler.AddAMovieToPL("C:\\v\\b.avi");
  EXPECT_EQ(order(), "a*b!");
  EXPECT_EQ(trace.take(), "");
}

TEST_F(ControlerTest, AMissingFileIsRejectedAndLogged) {
  EXPECT_FALSE(controler.AddAMovieToPL("C:\\v\\gone.avi"));
  EXPECT_EQ(playList.lngListCount(), 0);
  EXPECT_EQ(log.lines.back(), "error not added, not a file: C:\\v\\gone.avi");
}

TEST_F(ControlerTest, AWebAddressIsAcceptedAsItIsInAnyCase) {
  ASSERT_TRUE(controler.AddAMovieToPL("HtTp://server/x/y.rm"));
  EXPECT_EQ(playList.objGetAItem(1)->strFileName, "HtTp://server/x/y.rm");
}

TEST_F(ControlerTest, QuotesAroundAPathAreNotPartOfIt) {
  ASSERT_TRUE(controler.AddAMovieToPL("\"C:\\v\\a.avi\""));
  EXPECT_EQ(playList.objGetAItem(1)->strFilePath, "C:\\v\\a.avi");
}

TEST_F(ControlerTest, ABatchIsTakenFromIndexOneOnAndSelectsItsFirst) {
  controler.BatchAddMovie({"C:\\v\\a.avi", "C:\\v\\b.avi", "C:\\v\\gone.avi", "C:\\v\\c.avi"},
                          false);
  EXPECT_EQ(order(), "b*!c");
  EXPECT_EQ(trace.take(),
            "wmp stop | wmp position 0 | wmp url C:\\v\\b.avi | real source C:\\v\\b.avi | "
            "row b.avi | row c.avi | select " +
                key(1));
}

TEST_F(ControlerTest, ABatchToPlayPlaysItsFirst) {
  addThree();
  trace.take();
  controler.BatchAddMovie({"", "C:\\v\\b.avi", "C:\\v\\c.avi"}, true);
  EXPECT_EQ(order(), "abcb*!c");
  EXPECT_EQ(trace.take(), "row b.avi | row c.avi | mark " + key(4) +
                              " 1 | wmp stop | wmp position 0 | wmp url C:\\v\\b.avi | "
                              "real source C:\\v\\b.avi | state 1");
  time.advance(1);
  EXPECT_EQ(trace.take(), "wmp url C:\\v\\b.avi | real play");
}

TEST_F(ControlerTest, ABatchToPlayInWhichNoFileExistsStopsWhatPlays) {
  addThree();
  controler.PlayAMovieByFlag(key(1));
  time.advance(1);
  real().notify(RealPlayState::playing);
  trace.take();
  controler.BatchAddMovie({"", "C:\\v\\gone.avi"}, true);
  EXPECT_EQ(trace.take(), "wmp stop | wmp position 0 | real stop | state 3");
}

TEST_F(ControlerTest, AnEmptyBatchNotToPlayDoesNothing) {
  controler.BatchAddMovie({""}, false);
  EXPECT_EQ(trace.take(), "");
}

TEST_F(ControlerTest, PlayingByKeyMovesThePlayMark) {
  addThree();
  EXPECT_TRUE(controler.PlayAMovieByFlag(key(3)));
  EXPECT_EQ(order(), "a!bc*");
  EXPECT_EQ(screen.strFilePath(), "C:\\v\\c.avi");
  EXPECT_FALSE(controler.PlayAMovieByFlag("unknown"));
  EXPECT_EQ(order(), "a!bc*");
}

TEST_F(ControlerTest, SteppingLoadsTheNewItemAndSelectsItWithoutStarting) {
  addThree();
  trace.take();
  MoviePtr previous;
  MoviePtr now;
  controler.playNextPreviousPlayItem(stepDirection::kNext, false, previous, now);
  EXPECT_EQ(order(), "ab*!c");
  EXPECT_EQ(previous->strFileName, "a.avi");
  EXPECT_EQ(now->strFileName, "b.avi");
  time.advance(10);
  EXPECT_EQ(trace.take(),
            "wmp stop | wmp position 0 | wmp url C:\\v\\b.avi | real source C:\\v\\b.avi");
  controler.playNextPreviousPlayItem(stepDirection::kPrevious, false, previous, now);
  EXPECT_EQ(order(), "a*!bc");
}

TEST_F(ControlerTest, SteppingOverTheEndOrInNoDirectionLeavesEverything) {
  addThree();
  trace.take();
  MoviePtr previous;
  MoviePtr now;
  controler.playNextPreviousPlayItem(stepDirection::kPrevious, false, previous, now);
  EXPECT_FALSE(now);
  controler.playNextPreviousPlayItem(3, true, previous, now);
  EXPECT_FALSE(now);
  EXPECT_EQ(order(), "a*!bc");
  EXPECT_EQ(trace.take(), "");
}

TEST_F(ControlerTest, DeletingTheItemThatPlaysGoesToTheFollowingOne) {
  addThree();
  controler.PlayAMovieByFlag(key(2));
  trace.take();
  MoviePtr next;
  EXPECT_TRUE(controler.deleteAItemFromPL(key(2), next));
  EXPECT_EQ(next->strFileName, "c.avi");
  EXPECT_EQ(order(), "ac*!");
  EXPECT_EQ(trace.take(),
            "wmp stop | wmp position 0 | wmp url C:\\v\\c.avi | real source C:\\v\\c.avi");
}

TEST_F(ControlerTest, DeletingTheLastItemGoesToTheOneBefore) {
  addThree();
  controler.PlayAMovieByFlag(key(3));
  MoviePtr next;
  EXPECT_TRUE(controler.deleteAItemFromPL(key(3), next));
  EXPECT_EQ(next->strFileName, "b.avi");
  EXPECT_EQ(order(), "ab*!");
}

TEST_F(ControlerTest, DeletingAnotherItemLeavesPlaybackAlone) {
  addThree();
  trace.take();
  MoviePtr next;
  EXPECT_TRUE(controler.deleteAItemFromPL(key(2), next));
  EXPECT_EQ(order(), "a*c!");
  EXPECT_EQ(trace.take(), "");
}

TEST_F(ControlerTest, DeletingTheOnlyItemLeavesNothing) {
  controler.AddAMovieToPL("C:\\v\\a.avi");
  MoviePtr next;
  EXPECT_TRUE(controler.deleteAItemFromPL(key(1), next));
  EXPECT_FALSE(next);
  EXPECT_EQ(screen.strFilePath(), "");
  EXPECT_FALSE(controler.deleteAItemFromPL("F1", next));
}

TEST_F(ControlerTest, ClearingTheListUnloadsTheFile) {
  addThree();
  controler.deleteAllItemFromPL();
  EXPECT_EQ(controler.lngGetPlayListItemCount(), 0);
  EXPECT_EQ(screen.strFilePath(), "");
}

TEST_F(ControlerTest, MovingSelectingAndAskingGoToThePlaylist) {
  addThree();
  MoviePtr neighbour;
  EXPECT_TRUE(controler.moveAItemUpDown(2, key(1), neighbour));
  EXPECT_EQ(neighbour->strFileName, "b.avi");
  EXPECT_EQ(order(), "ba*!c");
  controler.selectAItem(key(3));
  EXPECT_EQ(order(), "ba*c!");
  EXPECT_EQ(controler.objGetPlayItem()->strFileName, "a.avi");
  EXPECT_EQ(controler.lngGetIndexByItemFlag(key(3)), 3);
}

TEST_F(ControlerTest, VolumeAndRuleAreStoredAndHandedOn) {
  controler.setVolume(77);
  controler.setPlayRuler(playRule::kPreferMedia);
  EXPECT_EQ(controler.config().intVolumeValue(), 77);
  EXPECT_EQ(screen.intVolume(), 77);
  EXPECT_EQ(controler.config().lngPlayRuler(), playRule::kPreferMedia);
  EXPECT_EQ(screen.lngPlayRuler(), playRule::kPreferMedia);
}

TEST_F(ControlerTest, AFilePathGoesToThePlaybackWindow) {
  controler.setFilePath("C:\\v\\b.avi");
  EXPECT_EQ(screen.strFilePath(), "C:\\v\\b.avi");
  EXPECT_EQ(trace.take(),
            "wmp stop | wmp position 0 | wmp url C:\\v\\b.avi | real source C:\\v\\b.avi");
}

TEST_F(ControlerTest, MuteLengthAndPositionGoToThePlaybackWindow) {
  controler.setMute(true);
  EXPECT_TRUE(screen.boolMute());
  EXPECT_TRUE(controler.boolGetMuteValue());
  real().length = 90000;
  EXPECT_EQ(controler.lngGetClipLength(), 90);
  controler.setJinDu(12);
  EXPECT_EQ(screen.lngJinDu(), 12);
}

TEST_F(ControlerTest, TheWindowsEventsAreHandedToThePanelUnchanged) {
  screen.JinDu.raise(32, 65, "00:01:05", 200, "00:03:20");
  screen.PlayErr.raise("why");
  screen.PlayOver.raise();
  EXPECT_EQ(trace.take(), "progress 32 65 00:01:05 200 00:03:20 | error why | over");
}

TEST_F(ControlerTest, TheControlMenusCommandsAndThePanelsStateAfterThem) {
  controler.AddAMovieToPL("C:\\v\\a.avi");
  const auto panelAfter = [this](std::int32_t code) {
    trace.take();
    screen.clickPopuMenu.raise(code);
    const std::string all = trace.take();
    const auto state = all.rfind("state ");
    return state == std::string::npos ? std::string("none") : all.substr(state);
  };
  EXPECT_EQ(panelAfter(menuCode::kScreen), "state 6");
  EXPECT_TRUE(screen.boolMaxSize());
  EXPECT_EQ(panelAfter(menuCode::kExitFullScreen), "state 7");
  EXPECT_FALSE(screen.boolMaxSize());
  EXPECT_EQ(panelAfter(menuCode::kPlay), "state 1");
  EXPECT_EQ(panelAfter(menuCode::kPlay), "state 2");  // refused while starting: the paused look
  time.advance(1);
  real().notify(RealPlayState::playing);
  EXPECT_EQ(panelAfter(menuCode::kPause), "state 2");
  EXPECT_EQ(screen.lngState(), playState::kPaused);
  EXPECT_EQ(panelAfter(menuCode::kStop), "state 3");
  EXPECT_EQ(screen.lngState(), playState::kStopped);
  EXPECT_EQ(panelAfter(menuCode::kMute), "state 5");
  EXPECT_EQ(panelAfter(menuCode::kSoundOn), "state 4");
  EXPECT_EQ(panelAfter(menuCode::kShowMainFace), "none");
  EXPECT_EQ(panelAfter(99), "none");
}

TEST_F(ControlerTest, ADoubleClickGoesFullScreenOnTheMonitorUnderThePointer) {
  pointer.at = {1300, 500};
  screen.DbClickPlayer.raise(false);
  EXPECT_TRUE(screen.boolMaxSize());
  EXPECT_EQ(screen.maximum(), (Rect{1280, 0, 1920, 1080}));
  EXPECT_NE(trace.take().find("panel on top | state 6"), std::string::npos);
}

TEST_F(ControlerTest, OnASharedEdgeThePrimaryMonitorWins) {
  pointer.at = {1280, 500};
  screen.DbClickPlayer.raise(false);
  EXPECT_EQ(screen.maximum(), (Rect{0, 0, 1280, 1024}));
}

TEST_F(ControlerTest, AllFourEdgesOfAMonitorBelongToIt) {
  constexpr Rect kApart{4000, 100, 800, 600};
  displays.add(kApart);
  for (const Point edge : {Point{4000, 300}, {4800, 300}, {4400, 100}, {4400, 700}}) {
    screen.boolMaxSize(false);
    screen.setMaximum({});
    pointer.at = edge;
    screen.DbClickPlayer.raise(false);
    EXPECT_TRUE(screen.boolMaxSize()) << edge.x << "," << edge.y;
    EXPECT_EQ(screen.maximum(), kApart) << edge.x << "," << edge.y;
  }
}

TEST_F(ControlerTest, APixelBeyondAnyEdgeOfAMonitorDoesNot) {
  displays.add({4000, 100, 800, 600});
  for (const Point beyond : {Point{3999, 300}, {4801, 300}, {4400, 99}, {4400, 701}}) {
    pointer.at = beyond;
    screen.DbClickPlayer.raise(false);
    EXPECT_FALSE(screen.boolMaxSize()) << beyond.x << "," << beyond.y;
  }
}

TEST_F(ControlerTest, ADoubleClickOnNoMonitorDoesNothing) {
  pointer.at = {-5000, 0};
  screen.DbClickPlayer.raise(false);
  EXPECT_FALSE(screen.boolMaxSize());
  EXPECT_EQ(trace.take(), "");
}

TEST_F(ControlerTest, ADoubleClickInFullScreenBringsThePanelUp) {
  pointer.at = {10, 10};
  screen.DbClickPlayer.raise(true);
  EXPECT_EQ(trace.take(), "panel restored | panel front");
}

TEST_F(ControlerTest, ADoubleClickOnMediaPlayerGoesFullScreenAndBringsThePanelUpOnTheNextTurn) {
  pointer.at = {200, 200};  // the panel is on this monitor
  wmp().click.raise(MouseButton::left);
  wmp().doubleClick.raise();
  EXPECT_TRUE(screen.boolMaxSize());
  EXPECT_TRUE(trace.take().ends_with("panel on top | state 6"));
  time.advance(1);
  EXPECT_EQ(trace.take(), "panel restored | panel front");
  time.advance(500);  // the single click was dropped
  EXPECT_EQ(trace.take(), "");
  EXPECT_TRUE(screen.boolMaxSize());
}

TEST_F(ControlerTest, AClickBringsThePanelToTheMonitorUnderThePointer) {
  pointer.at = {2000, 500};
  screen.ClickPlayer.raise();
  // Work area 1920 x 1040 at 1280,0; the panel is 400 x 300.
  EXPECT_EQ(trace.take(), "panel restored | panel to 2040,370 | panel front");
  screen.ClickPlayer.raise();
  EXPECT_EQ(trace.take(), "panel restored | panel front");
}

TEST_F(ControlerTest, LeavingSavesInOrderAndEndsTheLoop) {
  addThree();
  panel.shownLength = 200;
  panel.shownPosition = 65;
  screen.boolMute(true);
  screen.show();
  bool savedTooEarly = false;
  loop.whilePumping = [&] {
    SysConfig early;
    early.strDBFilePath(database);
    PlayList earlyList(keys);
    earlyList.strPLDBFilePath(database);
    earlyList.boolGetPlayListFromPLDB();
    savedTooEarly = early.boolGetData() || earlyList.lngListCount() > 0;
  };
  trace.take();
  controler.exitSys();
  EXPECT_EQ(trace.take(),
            "requests end | panel gone | wmp sound | real sound | pump 200 | real gone | tray gone "
            "| " +
                kSystemRestored + " | quit");
  EXPECT_FALSE(screen.visible());
  EXPECT_FALSE(savedTooEarly);
  SysConfig stored;
  stored.strDBFilePath(database);
  ASSERT_TRUE(stored.boolGetData());
  EXPECT_EQ(stored.lngCurrentPlayItemLen(), 200);
  EXPECT_EQ(stored.lngCurrentPlayPosition(), 65);
  PlayList again(keys);
  again.strPLDBFilePath(database);
  ASSERT_TRUE(again.boolGetPlayListFromPLDB());
  EXPECT_EQ(again.lngListCount(), 3);
}

TEST_F(ControlerTest, WithoutKeepingTheListOnlyTheSettingsAreSaved) {
  addThree();
  controler.config().boolSavePlayList(false);
  controler.setVolume(12);
  panel.shownPosition = 65;
  controler.exitSys();
  SysConfig stored;
  stored.strDBFilePath(database);
  ASSERT_TRUE(stored.boolGetData());
  EXPECT_EQ(stored.intVolumeValue(), 12);
  EXPECT_EQ(stored.lngCurrentPlayPosition(), 0);
  PlayList again(keys);
  again.strPLDBFilePath(database);
  ASSERT_TRUE(again.boolGetPlayListFromPLDB());
  EXPECT_EQ(again.lngListCount(), 0);
}

TEST_F(ControlerTest, AWindowThatAnEnginePopsUpIsClosedFromTheStartToTheSave) {
  ASSERT_TRUE(shownWindows.show);
  shownWindows.show({7, 7, false, true, false});
  time.advance(100);
  EXPECT_EQ(windows.closed, (std::vector<WindowHandle>{7}));
  bool watchedInPump = false;
  loop.whilePumping = [&] { watchedInPump = shownWindows.show != nullptr; };
  controler.exitSys();
  EXPECT_TRUE(watchedInPump);
  EXPECT_FALSE(shownWindows.show);
}

TEST_F(ControlerTest, WindowsAreWatchedUntilEverythingIsSaved) {
  controler.config().strDBFilePath(folder.file("no/such/folder/SysConfig"));
  playList.strPLDBFilePath(folder.file("no/such/folder/SysConfig"));
  addThree();
  std::string watched;
  loop.whilePumping = [&] { watched += shownWindows.show ? "y" : "n"; };
  controler.exitSys();
  // One pump for the engines, nine for either of the two that cannot be saved.
  EXPECT_EQ(watched, std::string(19, 'y'));
  EXPECT_FALSE(shownWindows.show);
}

TEST_F(ControlerTest, WhatHappensWhileTheEnginesSettleReachesNoPanel) {
  loop.whilePumping = [this] {
    screen.JinDu.raise(32, 65, "00:01:05", 200, "00:03:20");
    screen.PlayErr.raise("why");
    screen.PlayOver.raise();
    screen.clickPopuMenu.raise(menuCode::kShowMainFace);
    screen.ClickPlayer.raise();
    screen.DbClickPlayer.raise(true);
  };
  trace.take();
  controler.exitSys();
  EXPECT_EQ(trace.take(),
            "requests end | panel gone | wmp sound | real sound | pump 200 | real gone | tray gone "
            "| " +
                kSystemRestored + " | quit");
}

TEST_F(ControlerTest, LeavingGivesTheCaughtWindowsBackFirstAndCatchesNoMore) {
  windows.windows[2] = {0, "RealAudioCtrlWndClass", "", true};
  windows.windows[3] = {2, "Picture", "", true};
  windows.underPoint = 3;
  time.advance(1000);
  ASSERT_EQ(procedures.replaced.size(), 1U);
  std::size_t givenBackBeforePump = 0;
  loop.whilePumping = [&] {
    givenBackBeforePump = procedures.restored.size();
    time.advance(1000);  // the picture is still looked for
  };
  controler.exitSys();
  EXPECT_EQ(givenBackBeforePump, 1U);
  EXPECT_EQ(procedures.replaced.size(), 1U);
}

TEST_F(ControlerTest, NoMenuHoldsTheProgramUpWhileItLeaves) {
  int popups = 0;
  screen.onPopup.listen([&popups](ui::MenuItem&) { ++popups; });
  real().pictureMouse.raise(PictureMouse::rightUp);
  EXPECT_EQ(popups, 1);
  loop.whilePumping = [&] { real().pictureMouse.raise(PictureMouse::rightUp); };
  controler.exitSys();
  EXPECT_EQ(popups, 1);
}

TEST_F(ControlerTest, AClockThatIsSetWhileAFilmPlaysChangesNothing) {
  addThree();
  files.existing = {"C:\\a.avi"};
  startPlaying(playRule::kMediaOnly);
  wmp().position = 7;
  std::string usual;
  for (const LocalTime& moment : {LocalTime{2026, 11, 20, 1000},
                                  LocalTime{2026, 11, 20, 80'000'000}, LocalTime{2026, 11, 19, 0},
                                  LocalTime{2031, 1, 1, 0}, LocalTime{2026, 12, 31, 86'397'000}}) {
    time.setDate(moment);
    trace.take();
    int positions = 0;
    const auto counting =
        screen.JinDu.connect([&](std::int32_t, std::int32_t, const std::string&, std::int32_t,
                                 const std::string&) { ++positions; });
    time.advance(6000);
    EXPECT_EQ(positions, 6) << moment.year;
    const std::string happened = trace.take();
    if (moment.msOfDay == 1000) usual = happened;
    EXPECT_EQ(happened, usual) << moment.year;
  }
}

TEST_F(ControlerTest, AStepThatFailsKeepsTheProgramNeitherFromSavingNorFromEnding) {
  addThree();
  controler.setVolume(61);
  panel.whileFinishing = [] { throw std::runtime_error("no memory"); };
  loop.whilePumping = [] { throw std::runtime_error("nor here"); };
  trace.take();
  controler.exitSys();
  EXPECT_TRUE(trace.take().ends_with("quit"));
  EXPECT_EQ(log.lines.back(), "info stop");
  EXPECT_EQ(log.lines[log.lines.size() - 4], "error unexpected error while leaving: no memory");
  EXPECT_EQ(log.lines[log.lines.size() - 3], "error unexpected error while leaving: nor here");
  SysConfig stored;
  stored.strDBFilePath(database);
  ASSERT_TRUE(stored.boolGetData());
  EXPECT_EQ(stored.intVolumeValue(), 61);
  PlayList again(keys);
  again.strPLDBFilePath(database);
  ASSERT_TRUE(again.boolGetPlayListFromPLDB());
  EXPECT_EQ(again.lngListCount(), 3);
}

TEST_F(ControlerTest, LeavingWhileLeavingDoesNothing) {
  loop.whilePumping = [this] { controler.exitSys(); };
  trace.take();
  controler.exitSys();
  EXPECT_EQ(trace.take(),
            "requests end | panel gone | wmp sound | real sound | pump 200 | real gone | tray gone "
            "| " +
                kSystemRestored + " | quit");
}

TEST_F(ControlerTest, HasThePrivilegesOfTheRegistryFromItsCreationToTheEnd) {
  EXPECT_EQ(token.adjusted.size(), 28U);
  power.whenAsked = [this] { EXPECT_EQ(token.adjusted.size(), 28U); };
  controler.exitSys();
  ASSERT_EQ(token.adjusted.size(), 29U);
  EXPECT_TRUE(token.adjusted.back().first);
}

TEST_F(ControlerTest, ClosingThePlaybackWindowAsksWhetherToLeave) {
  screen.close();
  EXPECT_EQ(trace.take(), "exit asked");
}

TEST_F(ControlerTest, TheEndOfTheSessionAtThePlaybackWindowLeavesWithoutAQuestion) {
  screen.onEndSession.raise();
  const std::string all = trace.take();
  EXPECT_NE(all.find("quit"), std::string::npos);
  EXPECT_EQ(all.find("asked"), std::string::npos);
}

TEST_F(ControlerTest, WhileItLeavesThePanelIsNotShownAgain) {
  loop.whilePumping = [this] {
    controler.showMainFace();
    controler.activateMainFace();
  };
  trace.take();
  controler.exitSys();
  EXPECT_EQ(trace.take().find("front"), std::string::npos);
}

TEST_F(ControlerTest, WhileItLeavesTheSettingsDialogIsNotAskedFor) {
  int wanted = 0;
  controler.configFaceWanted.listen([&wanted] { ++wanted; });
  loop.whilePumping = [this] { controler.showConfigFace(); };
  controler.exitSys();
  EXPECT_EQ(wanted, 0);
}

TEST_F(ControlerTest, TheSettingsDialogIsAskedOfWhoeverHasIt) {
  int wanted = 0;
  controler.configFaceWanted.listen([&wanted] { ++wanted; });
  controler.showConfigFace();
  EXPECT_EQ(wanted, 1);
}

TEST_F(ControlerTest, ActivatingThePanelLeavesItWhereItIs) {
  panel.rect = {5000, 5000, 400, 300};
  controler.activateMainFace();
  EXPECT_EQ(trace.take(), "panel front");
}

TEST_F(ControlerTest, WhatCannotBeSavedIsTriedForASecondAndLoggedWithItsReason) {
  addThree();
  controler.config().strDBFilePath(folder.file("no/such/folder/SysConfig"));
  playList.strPLDBFilePath(folder.file("no/such/folder/SysConfig"));
  trace.take();
  controler.exitSys();
  std::string attempts;
  for (int i = 0; i < 18; ++i) attempts += "pump 100 | ";
  EXPECT_EQ(
      trace.take(),
      "requests end | panel gone | wmp sound | real sound | pump 200 | real gone | tray gone | " +
          attempts + kSystemRestored + " | quit");
  ASSERT_GE(log.lines.size(), 4U);
  const std::string& settings = log.lines[log.lines.size() - 4];
  const std::string& list = log.lines[log.lines.size() - 3];
  EXPECT_EQ(settings.find("error settings not saved: "), 0U);
  EXPECT_GT(settings.size(), std::string("error settings not saved: ").size());
  EXPECT_EQ(list.find("error playlist not saved: "), 0U);
  EXPECT_GT(list.size(), std::string("error playlist not saved: ").size());
  EXPECT_EQ(log.lines.back(), "info stop");
}

TEST_F(ControlerTest, ADatabaseThatComesFreeWhileLeavingIsSavedTo) {
  controler.config().strDBFilePath(folder.file("later/SysConfig"));
  controler.config().boolSavePlayList(false);
  controler.setVolume(61);
  int pumps = 0;
  loop.whilePumping = [&] {
    if (++pumps != 4) return;
    std::filesystem::create_directories(folder.path() / "later");
    prepareDatabase(folder.file("later/SysConfig"), log);
  };
  controler.exitSys();
  SysConfig stored;
  stored.strDBFilePath(folder.file("later/SysConfig"));
  ASSERT_TRUE(stored.boolGetData());
  EXPECT_EQ(stored.intVolumeValue(), 61);
}

/// The pointer stands over the engine's window (2) in the playback window (1).
class MouseHidingTest : public ControlerFixture {
 protected:
  void SetUp() override {
    ControlerFixture::SetUp();
    windows.windows = {{1, {0, "", screen.caption()}}, {2, {1, "", ""}}};
    windows.underPoint = 2;
    screen.setMaximum({1280, 0, 1920, 1080});
    screen.boolMaxSize(true);
    pointer.at = {2000, 500};
    time.advance(300);  // the pointer's place is noted
  }
  PlayArea answer() {
    PlayArea area{1, 2, 3, 4, true, "?"};
    controler.m_objMouseHideShow_tellMePlayArea(area);
    return area;
  }
};

TEST_F(MouseHidingTest, ThePointerHidesAfterMoreThanFiveSecondsOverTheFullScreen) {
  time.advance(4800);
  EXPECT_TRUE(pointer.seen());
  time.advance(600);
  EXPECT_FALSE(pointer.seen());
  pointer.at.x += 1;
  time.advance(300);
  EXPECT_TRUE(pointer.seen());
}

TEST_F(MouseHidingTest, ThePointerStaysOverAnotherMonitor) {
  pointer.at = {640, 500};
  time.advance(20000);
  EXPECT_TRUE(pointer.seen());
}

TEST_F(MouseHidingTest, ThePointerStaysOverAPictureInAWindow) {
  screen.boolMaxSize(false);
  pointer.at = {200, 200};
  time.advance(20000);
  EXPECT_TRUE(pointer.seen());
}

TEST_F(MouseHidingTest, ThePlayAreaIsTheFullScreenWindowInPixels) {
  const PlayArea area = answer();
  EXPECT_EQ((Rect{area.lngLeft, area.lngTop, area.lngWidth, area.lngHeight}),
            (Rect{1280, 0, 1920, 1080}));
  EXPECT_TRUE(area.boolAreaValid);
  EXPECT_EQ(area.strWinCaption, "Tessivo 播放窗口");
}

TEST_F(MouseHidingTest, ThePlayAreaDoesNotCountOutsideFullScreen) {
  screen.boolMaxSize(false);
  const PlayArea area = answer();
  EXPECT_EQ((Rect{area.lngLeft, area.lngTop, area.lngWidth, area.lngHeight}), screen.windowRect());
  EXPECT_FALSE(area.boolAreaValid);
}

TEST_F(MouseHidingTest, LeavingShowsThePointerWhenTheFormsHaveGone) {
  time.advance(5400);
  ASSERT_FALSE(pointer.seen());
  bool seenBefore = true;
  loop.whilePumping = [&] { seenBefore = pointer.seen(); };
  controler.exitSys();
  EXPECT_FALSE(seenBefore);
  EXPECT_TRUE(pointer.seen());
  EXPECT_TRUE(threadTimers.running.empty());
}

/// The settings are read, the windows not yet made.
class StartWithoutForms : public ControlerFixture {
 protected:
  void SetUp() override { ASSERT_EQ(prepareDatabase(database, log), DatabaseState::created); }
};

TEST_F(StartWithoutForms, ATickBeforeTheFormsAreThereHidesNothing) {
  controler.setInitializePram(database, "");
  time.advance(20000);
  EXPECT_TRUE(pointer.seen());
}

}  // namespace
}  // namespace tessivo
