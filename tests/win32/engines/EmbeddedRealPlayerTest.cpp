// DirectShow with real media on a real desktop; run-engines.sh provides both.
#include "screen/engines/direct_show/EmbeddedRealPlayer.h"

#include <filesystem>
#include <memory>

#include "win32/engines/EngineStage.h"

namespace tessivo {
namespace {

class DirectShow : public EngineStage {
 protected:
  void SetUp() override {
    EngineStage::SetUp();
    player = std::make_unique<EmbeddedRealPlayer>(stage, log);
    player->move({0, 0, kWidth, kHeight});
    player->setVisible(true);
    player->setVolume(30);
    player->playStateChange.listen([this](RealPlayState from, RealPlayState to) {
      trace.push_back(std::to_string(static_cast<int>(from)) + "->" +
                      std::to_string(static_cast<int>(to)));
    });
    player->errorMessage.listen([this] { trace.push_back("error"); });
    player->preparationFailed.listen([this] { trace.push_back("cannot"); });
    player->positionChange.listen([this](std::int32_t position, std::int32_t length) {
      positions.push_back(position);
      reportedLength = length;
    });
    player->pictureMouse.listen([this](PictureMouse what) {
      trace.push_back("mouse " + std::to_string(static_cast<int>(what)));
    });
  }
  void TearDown() override { player.reset(); }

  void startPlaying(const std::string& name) {
    player->setSource(media(name));
    player->play();
    ASSERT_TRUE(waitForTrace("1->3")) << name;
  }
  std::int32_t position() const { return positions.empty() ? -1 : positions.back(); }
  bool waitForPosition(std::int32_t from, std::int32_t to) {
    return waitFor([&] { return position() >= from && position() <= to; });
  }

  std::unique_ptr<EmbeddedRealPlayer> player;
  std::vector<std::int32_t> positions;
  std::int32_t reportedLength = 0;
};

class DirectShowOnDesktop : public DirectShow {};
class DirectShowFormatOnDesktop : public DirectShow,
                                  public testing::WithParamInterface<const char*> {};
class DirectShowBadMediaOnDesktop : public DirectShow,
                                    public testing::WithParamInterface<const char*> {};

TEST_P(DirectShowFormatOnDesktop, PlaysWithItsLengthAndReportsThePosition) {
  player->setSource(media(GetParam()));
  EXPECT_FALSE(player->canStop());
  player->play();
  EXPECT_TRUE(player->canStop());
  EXPECT_TRUE(trace.empty()) << "not from inside the call";
  ASSERT_TRUE(waitForTrace("1->3"));
  EXPECT_NEAR(player->lengthMs(), 6000, 300);
  EXPECT_TRUE(waitForPosition(500, 3000));
  EXPECT_EQ(reportedLength, player->lengthMs());
  EXPECT_EQ(trace, (std::vector<std::string>{"0->1", "1->3"}));
}

INSTANTIATE_TEST_SUITE_P(Media, DirectShowFormatOnDesktop,
                         testing::Values("film.avi", "film.mp4", "film.mkv", "film.webm",
                                         "film.wmv", "film.mpg", "tone.mp3", "tone.wav",
                                         "中文 影片.mp4"));

TEST_P(DirectShowBadMediaOnDesktop, RaisesOneErrorAndNoStopAndSaysWhyInTheLog) {
  player->setSource(media(GetParam()));
  player->play();
  ASSERT_TRUE(waitForTrace("error"));
  EXPECT_FALSE(player->canStop());
  watch(EmbeddedRealPlayer::kEarlyStopMs);
  EXPECT_EQ(trace, (std::vector<std::string>{"0->1", "error"}));
  ASSERT_EQ(log.lines.size(), 1U);
  EXPECT_NE(log.lines[0].find(GetParam()), std::string::npos);
  EXPECT_NE(log.lines[0].find("0x"), std::string::npos);
}

INSTANTIATE_TEST_SUITE_P(Media, DirectShowBadMediaOnDesktop,
                         testing::Values("random.avi", "empty.avi", "missing.avi",
                                         "no folder\\a.mp4"));

TEST_F(DirectShowOnDesktop, PlaysAgainAfterAnError) {
  player->setSource(media("random.avi"));
  player->play();
  ASSERT_TRUE(waitForTrace("error"));
  startPlaying("film.avi");
}

TEST_F(DirectShowOnDesktop, APlayWithoutASourceIsAnError) {
  player->play();
  ASSERT_TRUE(waitForTrace("error"));
}

TEST_F(DirectShowOnDesktop, SettingTheSourceStartsNothing) {
  player->setSource(media("film.avi"));
  watch(500);
  EXPECT_TRUE(trace.empty());
  EXPECT_FALSE(player->canStop());
  EXPECT_EQ(player->lengthMs(), 0);
}

TEST_F(DirectShowOnDesktop, ShowsThePictureInItsAspectRatioOnBlack) {
  startPlaying("film.avi");
  EXPECT_TRUE(waitFor([&] { return showsTheFilm(); }))
      << std::hex << shownAt(200, 120) << ' ' << shownAt(200, 280) << ' ' << shownAt(200, 60);
}

TEST_F(DirectShowOnDesktop, ThePictureFollowsTheSize) {
  startPlaying("film.mp4");
  ASSERT_TRUE(waitFor([&] { return showsTheFilm(); }));
  player->move({0, 0, 160, 400});  // now 160 × 90, from row 155 to row 245
  EXPECT_TRUE(waitFor([&] {
    return isRed(shownAt(80, 180)) && isBlue(shownAt(80, 220)) && shownAt(80, 120) == kBlack &&
           shownAt(80, 280) == kBlack && shownAt(300, 200) != kBlack;  // the stage
  }));
}

TEST_F(DirectShowOnDesktop, IsBlackWhenStoppedAndForSoundAlone) {
  startPlaying("film.avi");
  ASSERT_TRUE(waitFor([&] { return showsTheFilm(); }));
  player->stop();
  EXPECT_TRUE(waitFor([&] { return showsBlack(); }));
  trace.clear();
  positions.clear();
  startPlaying("tone.mp3");
  ASSERT_TRUE(waitForPosition(300, 3000));
  EXPECT_TRUE(showsBlack());
}

TEST_F(DirectShowOnDesktop, ReportsThePositionFourToFiveTimesASecond) {
  startPlaying("film.avi");
  ASSERT_TRUE(waitForPosition(0, 2000));
  positions.clear();
  watch(2000);
  EXPECT_GE(positions.size(), 7U);
  EXPECT_LE(positions.size(), 11U);
  EXPECT_TRUE(std::is_sorted(positions.begin(), positions.end()));
}

TEST_F(DirectShowOnDesktop, StopIsReportedOnceAndLater) {
  startPlaying("film.avi");
  trace.clear();
  player->stop();
  EXPECT_FALSE(player->canStop());
  EXPECT_TRUE(trace.empty()) << "not from inside the call";
  player->stop();
  positions.clear();
  ASSERT_TRUE(waitForTrace("3->0"));
  watch(600);
  EXPECT_EQ(trace, std::vector<std::string>{"3->0"});
  EXPECT_TRUE(positions.empty());
}

TEST_F(DirectShowOnDesktop, ANewSourceStopsWhatPlays) {
  startPlaying("film.avi");
  trace.clear();
  player->setSource(media("film.mp4"));
  EXPECT_FALSE(player->canStop());
  watch(600);
  EXPECT_EQ(trace, std::vector<std::string>{"3->0"});
}

TEST_F(DirectShowOnDesktop, PauseHoldsThePositionInSilenceAndPlayGoesOnFromThere) {
  startPlaying("film.mp4");
  ASSERT_TRUE(waitForPosition(800, 3000));
  player->pause();
  ASSERT_TRUE(waitForTrace("3->4"));
  EXPECT_TRUE(player->canStop());
  const std::int32_t held = position();
  positions.clear();
  watch(1000);
  EXPECT_TRUE(positions.empty());
  player->play();
  ASSERT_TRUE(waitForTrace("4->3"));
  ASSERT_TRUE(waitFor([&] { return !positions.empty(); }));
  EXPECT_NEAR(positions.front(), held, 400);
  EXPECT_TRUE(waitForPosition(held + 500, held + 2500));
}

TEST_F(DirectShowOnDesktop, APauseKeepsThePicture) {
  startPlaying("film.avi");
  ASSERT_TRUE(waitFor([&] { return showsTheFilm(); }));
  player->pause();
  ASSERT_TRUE(waitForTrace("3->4"));
  watch(300);
  EXPECT_TRUE(showsTheFilm());
}

TEST_F(DirectShowOnDesktop, SeeksWhilePlaying) {
  startPlaying("film.avi");
  ASSERT_TRUE(waitForPosition(200, 2000));
  player->setPositionMs(4000);
  ASSERT_TRUE(waitForPosition(4200, 5800));
  EXPECT_TRUE(showsTheFilm());
  EXPECT_EQ(trace, (std::vector<std::string>{"0->1", "1->3"}));
}

TEST_F(DirectShowOnDesktop, SeeksWhilePausedAndPlaysFromThere) {
  startPlaying("film.avi");
  player->pause();
  ASSERT_TRUE(waitForTrace("3->4"));
  player->setPositionMs(3500);
  player->play();
  ASSERT_TRUE(waitForTrace("4->3"));
  EXPECT_TRUE(waitForPosition(3500, 5500));
}

TEST_F(DirectShowOnDesktop, APositionSetBeforePlayIsWhereItStarts) {
  player->setSource(media("film.mp4"));
  player->setPositionMs(3000);
  player->play();
  ASSERT_TRUE(waitFor([&] { return !positions.empty(); }));
  EXPECT_GE(positions.front(), 2900);
  EXPECT_TRUE(waitForPosition(3300, 5500));
}

TEST_F(DirectShowOnDesktop, TheStopOfAShortItemIsHeldBackUntilItCountsAsAnEnd) {
  player->setSource(media("second.avi"));
  const ULONGLONG ordered = GetTickCount64();
  player->play();
  ASSERT_TRUE(waitForTrace("3->0"));
  EXPECT_GE(GetTickCount64() - ordered, 1550U);
  EXPECT_LE(GetTickCount64() - ordered, 3000U);
  EXPECT_EQ(traced("error"), 0);
  EXPECT_FALSE(player->canStop());
}

TEST_F(DirectShowOnDesktop, AStopDuringTheHoldIsReportedOnce) {
  player->setSource(media("second.avi"));
  player->setPositionMs(900);
  player->play();
  ASSERT_TRUE(waitForTrace("1->3"));
  ASSERT_TRUE(waitForPosition(900, 1100));
  watch(300);
  EXPECT_TRUE(player->canStop()) << "held back";
  player->stop();
  watch(2000);
  EXPECT_EQ(traced("3->0"), 1);
}

TEST_F(DirectShowOnDesktop, ReportsTheEndOfALongerItemAtOnce) {
  startPlaying("film.avi");
  player->setPositionMs(4500);
  ASSERT_TRUE(waitForTrace("3->0"));
  EXPECT_GE(position(), 5000);
  watch(300);
  EXPECT_EQ(trace, (std::vector<std::string>{"0->1", "1->3", "3->0"}));
}

TEST_F(DirectShowOnDesktop, PlaysAgainAfterTheEndAndAfterAStop) {
  player->setSource(media("second.avi"));
  player->play();
  ASSERT_TRUE(waitForTrace("3->0"));
  player->play();
  ASSERT_TRUE(waitFor([&] { return traced("1->3") == 2; }));
  player->stop();
  player->play();
  ASSERT_TRUE(waitFor([&] { return traced("1->3") == 3; }));
}

TEST_F(DirectShowOnDesktop, AnAbandonedAttemptRaisesNothingButItsStop) {
  player->setSource(media("random.avi"));
  player->play();
  player->setSource(media("film.avi"));
  watch(1000);
  EXPECT_EQ(trace, (std::vector<std::string>{"0->1", "1->0"}));
  EXPECT_TRUE(positions.empty());
}

TEST_F(DirectShowOnDesktop, NoCallKeepsTheUserInterfaceWaiting) {
  EXPECT_LT(timeOf([&] { player->setSource(media("film.mp4")); }), 100U);
  EXPECT_LT(timeOf([&] { player->play(); }), 100U);
  ASSERT_TRUE(waitForPosition(200, 2000));
  EXPECT_LT(timeOf([&] { player->setPositionMs(2000); }), 100U);
  ASSERT_TRUE(waitForPosition(2200, 4000));
  EXPECT_LT(timeOf([&] { player->setVolume(50); }), 100U);
  EXPECT_LT(timeOf([&] { player->pause(); }), 100U);
  ASSERT_TRUE(waitForTrace("3->4"));
  EXPECT_LT(timeOf([&] { player->stop(); }), 100U);
  EXPECT_LT(timeOf([&] { player->setSource(media("film.avi")); }), 100U);
}

TEST_F(DirectShowOnDesktop, MayBeDestroyedByAListener) {
  player->positionChange.listen([this](std::int32_t, std::int32_t) { player.reset(); });
  player->setSource(media("film.mp4"));
  player->play();
  EXPECT_TRUE(waitFor([&] { return player == nullptr; }));
  watch(200);
}

TEST_F(DirectShowOnDesktop, MayBeDestroyedWhileItOpens) {
  player->setSource(media("film.mp4"));
  player->play();
  player.reset();
  watch(300);
  EXPECT_EQ(engineWindow(), nullptr);
}

TEST_F(DirectShowOnDesktop, SurvivesTheEndOfItsParent) {
  startPlaying("film.mp4");
  DestroyWindow(stage);
  player->stop();
  player->play();
  player->setVisible(false);
  watch(200);
}

TEST_F(DirectShowOnDesktop, PlaysAPathOfThreeHundredCharacters) {
  namespace fs = std::filesystem;
  const std::wstring root = L"\\\\?\\" + fs::temp_directory_path().wstring() + L"tessivo-long-b";
  std::wstring folder = root;
  CreateDirectoryW(folder.c_str(), nullptr);
  for (int i = 0; i < 3; ++i) {
    folder += L"\\" + std::wstring(80, L'd');
    CreateDirectoryW(folder.c_str(), nullptr);
  }
  const std::wstring file = folder + L"\\film 100%25 #1.mp4";
  ASSERT_TRUE(CopyFileW(wide(media("film.mp4")).c_str(), file.c_str(), FALSE));
  const std::wstring plain = file.substr(4);
  ASSERT_GT(plain.size(), 280U);
  player->setSource(toUtf8(std::u16string(plain.begin(), plain.end())));
  player->play();
  EXPECT_TRUE(waitForTrace("1->3"));
  player.reset();
  DeleteFileW(file.c_str());
  for (; folder.size() >= root.size(); folder.erase(folder.rfind(L'\\'))) {
    RemoveDirectoryW(folder.c_str());
  }
}

TEST_F(DirectShowOnDesktop, AFileThatVanishesWhilePlayingEndsSomehow) {
  const auto file = std::filesystem::temp_directory_path() / "tessivo-vanishing-b.avi";
  std::filesystem::copy_file(wide(media("second.avi")), file,
                             std::filesystem::copy_options::overwrite_existing);
  player->setSource(file.string());
  player->play();
  ASSERT_TRUE(waitForTrace("1->3"));
  DeleteFileW(file.c_str());
  EXPECT_TRUE(waitFor([&] { return traced("3->0") + traced("error") == 1; }));
  player.reset();
  DeleteFileW(file.c_str());
}

TEST_F(DirectShowOnDesktop, AStopLetsGoOfTheFile) {
  const auto file = std::filesystem::temp_directory_path() / "tessivo-released-b.avi";
  std::filesystem::copy_file(wide(media("film.avi")), file,
                             std::filesystem::copy_options::overwrite_existing);
  player->setSource(file.string());
  player->play();
  ASSERT_TRUE(waitForTrace("1->3"));
  player->stop();
  EXPECT_TRUE(waitFor([&] { return DeleteFileW(file.c_str()) != 0; }));
}

TEST_F(DirectShowOnDesktop, ManyPlaysLeaveNoHandleAndNoWindowBehind) {
  const auto cycle = [&] {
    player->setSource(media("film.avi"));
    player->play();
    ASSERT_TRUE(waitForTrace("1->3"));
    player->stop();
    ASSERT_TRUE(waitFor([&] { return GetWindow(engineWindow(), GW_CHILD) == nullptr; }));
    trace.clear();
  };
  for (int i = 0; i < 3; ++i) cycle();
  const int before = processHandles();
  for (int i = 0; i < 10; ++i) cycle();
  EXPECT_TRUE(waitFor([&] { return processHandles() <= before + 5; }, 5000));
}

TEST_F(DirectShowOnDesktop, FilesThatAreGoneLeaveNoThreadBehind) {
  const auto fail = [&] {
    player->setSource(media("gone.avi"));
    player->play();
    ASSERT_TRUE(waitForTrace("error"));
    trace.clear();
  };
  for (int i = 0; i < 3; ++i) fail();
  const int before = processThreads();
  for (int i = 0; i < 10; ++i) fail();
  EXPECT_TRUE(waitFor([&] { return processThreads() <= before + 3; }, 5000)) << processThreads();
}

TEST_F(DirectShowOnDesktop, VisibilityAndPlacementAreThoseOfItsWindow) {
  EXPECT_TRUE(player->visible());
  player->setVisible(false);
  EXPECT_FALSE(player->visible());
  player->move({10, 20, 300, 200});
  RECT place{};
  GetWindowRect(engineWindow(), &place);
  MapWindowPoints(nullptr, stage, reinterpret_cast<POINT*>(&place), 2);
  EXPECT_EQ(place.left, 10);
  EXPECT_EQ(place.top, 20);
  EXPECT_EQ(place.right, 310);
  EXPECT_EQ(place.bottom, 220);
}

TEST_F(DirectShowOnDesktop, OnlyThreeThingsOfTheMouseCount) {
  for (const UINT message : {WM_MOUSEMOVE, WM_LBUTTONDOWN, WM_LBUTTONUP, WM_LBUTTONDBLCLK,
                             WM_RBUTTONDOWN, WM_RBUTTONUP, WM_RBUTTONDBLCLK}) {
    SendMessageW(engineWindow(), message, 0, MAKELPARAM(50, 50));
  }
  EXPECT_EQ(trace, (std::vector<std::string>{"mouse 0", "mouse 1", "mouse 2"}));
}

TEST_F(DirectShowOnDesktop, TheMouseOnThePictureReachesTheEngine) {
  startPlaying("film.avi");
  ASSERT_TRUE(waitFor([&] { return showsTheFilm(); }));
  clickOnScreen(200, 200);
  EXPECT_TRUE(waitForTrace("mouse 0"));
}

TEST_F(DirectShowOnDesktop, WhatWasOpenedAheadFollowsWithoutBlack) {
  startPlaying("second.mp4");
  ASSERT_TRUE(waitFor([&] { return showsTheFilm(); }));
  player->prepare(media("green.mp4"));
  ASSERT_TRUE(waitForTrace("3->0"));
  EXPECT_TRUE(showsTheFilm()) << "the last picture stays";
  trace.clear();
  player->setSource(media("green.mp4"));
  player->play();
  EXPECT_TRUE(turnsGreenWithoutBlack());
  EXPECT_TRUE(waitForTrace("1->3"));
  EXPECT_TRUE(waitFor([&] { return pictureWindows() == 1; }));
}

TEST_F(DirectShowOnDesktop, WhatWasNotOpenedAheadFollowsWithoutBlackToo) {
  startPlaying("second.mp4");
  player->prepare(media("film.mkv"));  // something else came up
  ASSERT_TRUE(waitFor([&] { return showsTheFilm(); }));
  ASSERT_TRUE(waitForTrace("3->0"));
  player->setSource(media("green.mp4"));
  player->play();
  EXPECT_TRUE(turnsGreenWithoutBlack());
}

TEST_F(DirectShowOnDesktop, TheLastPictureGoesWhenNothingFollows) {
  startPlaying("second.mp4");
  ASSERT_TRUE(waitForTrace("3->0"));
  EXPECT_TRUE(waitFor([&] { return showsBlack() && pictureWindows() == 0; }));
}

TEST_F(DirectShowOnDesktop, TheLastPictureGoesWhenSoundAloneFollows) {
  startPlaying("second.mp4");
  ASSERT_TRUE(waitForTrace("3->0"));
  player->setSource(media("tone.mp3"));
  player->play();
  EXPECT_TRUE(waitFor([&] { return showsBlack(); }));
}

TEST_F(DirectShowOnDesktop, TheLastPictureGoesWhenWhatFollowsIsGivenUp) {
  const std::vector<std::pair<const char*, std::function<void()>>> ways{
      {"another source", [this] { player->setSource(""); }}, {"stop", [this] { player->stop(); }}};
  for (const auto& [name, giveUp] : ways) {
    trace.clear();
    startPlaying("second.mp4");
    ASSERT_TRUE(waitForTrace("3->0")) << name;
    player->setSource(media("green.mp4"));
    player->play();
    giveUp();
    EXPECT_TRUE(showsTheFilm()) << name << ": another may follow";
    EXPECT_TRUE(waitFor([&] { return showsBlack() && pictureWindows() == 0; })) << name;
  }
}

TEST_F(DirectShowOnDesktop, OpeningAheadChangesNothingUntilItIsPlayed) {
  player->prepare(media("random.avi"));
  watch(800);
  EXPECT_EQ(trace, std::vector<std::string>{"cannot"});
  EXPECT_TRUE(waitFor([&] { return pictureWindows() == 0; }));
  player->setSource(media("random.avi"));
  player->play();
  EXPECT_EQ(pictureWindows(), 0) << "it is not tried again";
  ASSERT_TRUE(waitForTrace("error"));
  watch(300);
  EXPECT_EQ(traced("error"), 1);
}

TEST_F(DirectShowOnDesktop, WhatWasOpenedAheadCanBeForgotten) {
  player->prepare(media("film.mp4"));
  EXPECT_EQ(pictureWindows(), 1);
  watch(500);
  EXPECT_TRUE(showsBlack()) << "it does not play";
  player->prepare("");
  EXPECT_TRUE(waitFor([&] { return pictureWindows() == 0; }));
}

}  // namespace
}  // namespace tessivo
