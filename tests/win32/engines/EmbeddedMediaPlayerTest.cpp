// Media Foundation with real media on a real desktop; run-engines.sh provides both.
#include "screen/engines/media_foundation/EmbeddedMediaPlayer.h"

#include <algorithm>
#include <filesystem>
#include <memory>

#include "win32/engines/EngineStage.h"

namespace tessivo {
namespace {

class MediaFoundation : public EngineStage {
 protected:
  void SetUp() override {
    EngineStage::SetUp();
    player = std::make_unique<EmbeddedMediaPlayer>(stage, log);
    player->move({0, 0, kWidth, kHeight});
    player->setVisible(true);
    player->setVolume(30);
    player->playStateChange.listen([this](MediaPlayState state) {
      trace.push_back("state " + std::to_string(static_cast<int>(state)));
    });
    player->mediaError.listen([this] { trace.push_back("error"); });
    player->preparationFailed.listen([this] { trace.push_back("cannot"); });
    player->mouseDown.listen([this](MouseButton b) { traceMouse("down", b); });
    player->mouseUp.listen([this](MouseButton b) { traceMouse("up", b); });
    player->click.listen([this](MouseButton b) { traceMouse("click", b); });
    player->doubleClick.listen([this] { trace.push_back("double"); });
  }
  void TearDown() override { player.reset(); }

  void traceMouse(const char* what, MouseButton button) {
    trace.push_back(what + (" " + std::to_string(static_cast<int>(button))));
  }

  void startPlaying(const std::string& name) {
    player->setUrl(media(name));
    player->play();
    ASSERT_TRUE(waitForTrace("state 3")) << name;
  }
  /// Of a film, which can be deleted when nobody holds it.
  void playACopy() {
    std::filesystem::copy_file(wide(media("film.avi")), copy,
                               std::filesystem::copy_options::overwrite_existing);
    player->setUrl(copy.string());
    player->play();
    ASSERT_TRUE(waitForTrace("state 3"));
  }
  bool waitForPosition(double from, double to) {
    return waitFor([&] {
      const double position = player->currentPosition();
      return position >= from && position <= to;
    });
  }

  std::unique_ptr<EmbeddedMediaPlayer> player;
  const std::filesystem::path copy =
      std::filesystem::temp_directory_path() / "tessivo-released-a.avi";
};

class MediaFoundationOnDesktop : public MediaFoundation {};
class MediaFoundationFormatOnDesktop : public MediaFoundation,
                                       public testing::WithParamInterface<const char*> {};
class MediaFoundationBadMediaOnDesktop : public MediaFoundation,
                                         public testing::WithParamInterface<const char*> {};

TEST_P(MediaFoundationFormatOnDesktop, PlaysWithItsLengthAndAMovingPosition) {
  startPlaying(GetParam());
  EXPECT_EQ(player->playState(), MediaPlayState::playing);
  ASSERT_TRUE(player->currentMediaDuration().has_value());
  EXPECT_NEAR(*player->currentMediaDuration(), 6.0, 0.3);
  EXPECT_TRUE(waitForPosition(0.5, 3));
  EXPECT_EQ(traced("error"), 0);
}

INSTANTIATE_TEST_SUITE_P(Media, MediaFoundationFormatOnDesktop,
                         testing::Values("film.avi", "film.mp4", "film.mkv", "film.webm",
                                         "film.wmv", "film.mpg", "tone.mp3", "tone.wav",
                                         "中文 影片.mp4"));

TEST_P(MediaFoundationBadMediaOnDesktop, RaisesOneErrorAndSaysWhyInTheLog) {
  player->setUrl(media(GetParam()));
  player->play();
  EXPECT_TRUE(trace.empty()) << "not from inside the call";
  ASSERT_TRUE(waitForTrace("error"));
  watch(300);
  EXPECT_EQ(trace, std::vector<std::string>{"error"});
  EXPECT_NE(player->playState(), MediaPlayState::playing);
  ASSERT_EQ(log.lines.size(), 1U);
  EXPECT_NE(log.lines[0].find(GetParam()), std::string::npos);
  EXPECT_NE(log.lines[0].find("0x"), std::string::npos);
}

INSTANTIATE_TEST_SUITE_P(Media, MediaFoundationBadMediaOnDesktop,
                         testing::Values("random.avi", "empty.avi", "missing.avi",
                                         "no folder\\a.mp4"));

TEST_F(MediaFoundationOnDesktop, PlaysAgainAfterAnError) {
  player->setUrl(media("random.avi"));
  player->play();
  ASSERT_TRUE(waitForTrace("error"));
  startPlaying("film.avi");
}

TEST_F(MediaFoundationOnDesktop, APlayWithoutAUrlIsAnError) {
  player->play();
  ASSERT_TRUE(waitForTrace("error"));
}

TEST_F(MediaFoundationOnDesktop, KeepsTheUrlAsItWasSetAndHasNoMediaBeforeItPlays) {
  player->setUrl("C:\\no such folder\\a b.mp4");
  EXPECT_EQ(player->url(), "C:\\no such folder\\a b.mp4");
  watch(200);
  EXPECT_TRUE(trace.empty());
  EXPECT_FALSE(player->currentMediaDuration().has_value());
}

TEST_F(MediaFoundationOnDesktop, ShowsThePictureInItsAspectRatioOnBlack) {
  startPlaying("film.mp4");
  EXPECT_TRUE(waitFor([&] { return showsTheFilm(); }))
      << std::hex << shownAt(200, 120) << ' ' << shownAt(200, 280) << ' ' << shownAt(200, 60);
}

TEST_F(MediaFoundationOnDesktop, ThePictureFollowsTheSize) {
  startPlaying("film.mp4");
  ASSERT_TRUE(waitFor([&] { return showsTheFilm(); }));
  player->move({0, 0, 160, 400});  // now 160 × 90, from row 155 to row 245
  EXPECT_TRUE(waitFor([&] {
    return isRed(shownAt(80, 180)) && isBlue(shownAt(80, 220)) && shownAt(80, 120) == kBlack &&
           shownAt(80, 280) == kBlack && shownAt(300, 200) != kBlack;  // the stage
  })) << std::hex
      << shownAt(80, 180) << ' ' << shownAt(80, 220) << ' ' << shownAt(80, 120) << ' '
      << shownAt(300, 200);
}

TEST_F(MediaFoundationOnDesktop, IsBlackWhenStoppedAndForSoundAlone) {
  startPlaying("film.mp4");
  ASSERT_TRUE(waitFor([&] { return showsTheFilm(); }));
  player->stop();
  EXPECT_TRUE(waitFor([&] { return showsBlack(); }));
  trace.clear();
  startPlaying("tone.mp3");
  ASSERT_TRUE(waitForPosition(0.3, 3));
  EXPECT_TRUE(showsBlack());
}

TEST_F(MediaFoundationOnDesktop, StopIsReportedOnceAndLaterAndLeadsBackToTheStart) {
  startPlaying("film.avi");
  ASSERT_TRUE(waitForPosition(0.3, 3));
  trace.clear();
  player->stop();
  EXPECT_EQ(player->playState(), MediaPlayState::stopped);
  EXPECT_TRUE(trace.empty()) << "not from inside the call";
  player->stop();
  ASSERT_TRUE(waitForTrace("state 1"));
  watch(500);
  EXPECT_EQ(trace, std::vector<std::string>{"state 1"});
  EXPECT_EQ(player->currentPosition(), 0);
  EXPECT_NEAR(player->currentMediaDuration().value_or(0), 6.0, 0.3);
}

TEST_F(MediaFoundationOnDesktop, PauseHoldsThePositionAndPlayGoesOnFromThere) {
  startPlaying("film.mp4");
  ASSERT_TRUE(waitForPosition(1, 3));
  player->pause();
  ASSERT_TRUE(waitForTrace("state 2"));
  const double held = player->currentPosition();
  watch(700);
  EXPECT_EQ(player->currentPosition(), held);
  trace.clear();
  player->play();
  ASSERT_TRUE(waitForTrace("state 3"));
  EXPECT_GE(player->currentPosition(), held - 0.1);
  EXPECT_TRUE(waitForPosition(held + 0.5, held + 2));
}

TEST_F(MediaFoundationOnDesktop, APauseKeepsThePicture) {
  startPlaying("film.mp4");
  ASSERT_TRUE(waitFor([&] { return showsTheFilm(); }));
  player->pause();
  ASSERT_TRUE(waitForTrace("state 2"));
  watch(300);
  EXPECT_TRUE(showsTheFilm());
}

TEST_F(MediaFoundationOnDesktop, APausedPictureFollowsTheSizeAndPlaysOnWithoutBlack) {
  startPlaying("film.mp4");
  ASSERT_TRUE(waitFor([&] { return showsTheFilm(); }));
  player->pause();
  ASSERT_TRUE(waitForTrace("state 2"));
  watch(500);
  player->move({0, 0, kWidth / 2, kHeight});
  EXPECT_TRUE(waitFor([&] { return isRed(shownAt(100, 160)) && shownAt(100, 120) == kBlack; }));
  player->move({0, 0, kWidth, kHeight});
  ASSERT_TRUE(waitFor([&] { return showsTheFilm(); }));
  player->play();
  EXPECT_FALSE(waitFor([&] { return shownAt(200, 120) == kBlack; }, 1500));
  EXPECT_EQ(player->playState(), MediaPlayState::playing);
  EXPECT_TRUE(waitFor([&] { return pictureWindows() == 1; }));
}

/// It would work on for the sound, and is never started again.
TEST_F(MediaFoundationOnDesktop, UnderWineAPauseEndsTheSession) {
  playACopy();
  player->pause();
  ASSERT_TRUE(waitForTrace("state 2"));
  EXPECT_TRUE(waitFor([&] { return DeleteFileW(copy.c_str()) != 0; }));
  player->stop();
  EXPECT_TRUE(waitFor([&] { return pictureWindows() == 0; }));
}

TEST_F(MediaFoundationOnDesktop, SeeksWhilePlayingWithoutAChangeOfState) {
  startPlaying("film.mp4");
  ASSERT_TRUE(waitForPosition(0.3, 2));
  trace.clear();
  player->setCurrentPosition(4);
  EXPECT_EQ(player->currentPosition(), 4);
  ASSERT_TRUE(waitForPosition(4.4, 5.5));
  EXPECT_TRUE(waitFor([&] { return showsTheFilm(); }));
  EXPECT_TRUE(trace.empty());
}

TEST_F(MediaFoundationOnDesktop, TheLastOfManySeeksCounts) {
  startPlaying("film.avi");
  for (int i = 0; i < 20; ++i) player->setCurrentPosition(0.2 * i);
  player->setCurrentPosition(3);
  EXPECT_EQ(player->currentPosition(), 3);
  EXPECT_TRUE(waitForPosition(3.3, 5));
}

TEST_F(MediaFoundationOnDesktop, SeeksWhilePausedAndPlaysFromThere) {
  startPlaying("film.avi");
  player->pause();
  ASSERT_TRUE(waitForTrace("state 2"));
  player->setCurrentPosition(3.5);
  EXPECT_EQ(player->currentPosition(), 3.5);
  trace.clear();
  player->play();
  ASSERT_TRUE(waitForTrace("state 3"));
  EXPECT_TRUE(waitForPosition(3.6, 5));
}

TEST_F(MediaFoundationOnDesktop, APositionSetBeforePlayIsWhereItStarts) {
  player->setUrl(media("film.mp4"));
  player->setCurrentPosition(3);
  EXPECT_EQ(player->currentPosition(), 3);
  player->play();
  ASSERT_TRUE(waitForTrace("state 3"));
  EXPECT_GE(player->currentPosition(), 2.9);
  EXPECT_TRUE(waitForPosition(3.2, 5));
}

TEST_F(MediaFoundationOnDesktop, ReportsTheEndOnceAndIsStoppedThen) {
  player->setUrl(media("second.mp4"));
  player->play();
  ASSERT_TRUE(waitForTrace("state 8"));
  EXPECT_EQ(player->playState(), MediaPlayState::stopped);
  watch(300);
  EXPECT_EQ(trace, (std::vector<std::string>{"state 3", "state 8"}));
  EXPECT_EQ(player->currentPosition(), 0);
}

TEST_F(MediaFoundationOnDesktop, PlaysAgainAfterTheEndAndAfterAStop) {
  player->setUrl(media("second.avi"));
  player->play();
  ASSERT_TRUE(waitForTrace("state 8"));
  player->play();
  ASSERT_TRUE(waitFor([&] { return traced("state 3") == 2; }));
  player->stop();
  player->play();
  ASSERT_TRUE(waitFor([&] { return traced("state 3") == 3; }));
  ASSERT_TRUE(waitFor([&] { return traced("state 8") == 2; }));
}

TEST_F(MediaFoundationOnDesktop, EndsAfterASeek) {
  startPlaying("film.mp4");
  player->setCurrentPosition(5.2);
  EXPECT_TRUE(waitForTrace("state 8"));
}

TEST_F(MediaFoundationOnDesktop, AResumePositionBehindTheEndIsTheEnd) {
  player->setUrl(media("second.avi"));
  player->setCurrentPosition(100);
  player->play();
  EXPECT_TRUE(waitForTrace("state 8"));
  EXPECT_EQ(traced("error"), 0);
}

TEST_F(MediaFoundationOnDesktop, AnAbandonedAttemptRaisesNothing) {
  player->setUrl(media("random.avi"));
  player->play();
  player->setUrl(media("film.avi"));
  watch(1000);
  EXPECT_TRUE(trace.empty());
  player->play();
  player->setUrl(player->url());
  watch(1000);
  EXPECT_TRUE(trace.empty());
  EXPECT_TRUE(showsBlack());
}

TEST_F(MediaFoundationOnDesktop, NoCallKeepsTheUserInterfaceWaiting) {
  EXPECT_LT(timeOf([&] { player->setUrl(media("film.mp4")); }), 100U);
  EXPECT_LT(timeOf([&] { player->play(); }), 100U);
  ASSERT_TRUE(waitForPosition(0.2, 2));
  EXPECT_LT(timeOf([&] { player->setCurrentPosition(2); }), 100U);
  ASSERT_TRUE(waitForPosition(2.2, 4));
  EXPECT_LT(timeOf([&] { player->setVolume(50); }), 100U);
  EXPECT_LT(timeOf([&] { player->pause(); }), 100U);
  ASSERT_TRUE(waitForTrace("state 2"));
  EXPECT_LT(timeOf([&] { player->stop(); }), 100U);
  EXPECT_LT(timeOf([&] { player->setUrl(media("film.avi")); }), 100U);
}

TEST_F(MediaFoundationOnDesktop, MayBeDestroyedByAListener) {
  player->playStateChange.listen([this](MediaPlayState) { player.reset(); });
  player->setUrl(media("film.mp4"));
  player->play();
  EXPECT_TRUE(waitFor([&] { return player == nullptr; }));
  watch(200);
}

TEST_F(MediaFoundationOnDesktop, MayBeDestroyedWhileItOpens) {
  player->setUrl(media("film.mp4"));
  player->play();
  player.reset();
  watch(300);
  EXPECT_EQ(engineWindow(), nullptr);
}

TEST_F(MediaFoundationOnDesktop, SurvivesTheEndOfItsParent) {
  startPlaying("film.mp4");
  DestroyWindow(stage);
  player->stop();
  player->play();
  player->setVisible(false);
  watch(200);
}

TEST_F(MediaFoundationOnDesktop, PlaysAPathOfThreeHundredCharacters) {
  namespace fs = std::filesystem;
  const std::wstring root = L"\\\\?\\" + fs::temp_directory_path().wstring() + L"tessivo-long-a";
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
  player->setUrl(toUtf8(std::u16string(plain.begin(), plain.end())));
  player->play();
  EXPECT_TRUE(waitForTrace("state 3"));
  player.reset();
  DeleteFileW(file.c_str());
  for (; folder.size() >= root.size(); folder.erase(folder.rfind(L'\\'))) {
    RemoveDirectoryW(folder.c_str());
  }
}

TEST_F(MediaFoundationOnDesktop, AFileThatVanishesWhilePlayingEndsSomehow) {
  const auto file = std::filesystem::temp_directory_path() / "tessivo-vanishing-a.avi";
  std::filesystem::copy_file(wide(media("second.avi")), file,
                             std::filesystem::copy_options::overwrite_existing);
  player->setUrl(file.string());
  player->play();
  ASSERT_TRUE(waitForTrace("state 3"));
  DeleteFileW(file.c_str());
  EXPECT_TRUE(waitFor([&] { return traced("state 8") + traced("error") == 1; }));
  player.reset();
  DeleteFileW(file.c_str());
}

TEST_F(MediaFoundationOnDesktop, AStopLetsGoOfTheFile) {
  playACopy();
  player->stop();
  EXPECT_TRUE(waitFor([&] { return DeleteFileW(copy.c_str()) != 0; }));
}

TEST_F(MediaFoundationOnDesktop, ManyPlaysLeaveNoHandleAndNoWindowBehind) {
  const auto cycle = [&] {
    player->setUrl(media("film.avi"));
    player->play();
    ASSERT_TRUE(waitForTrace("state 3"));
    player->stop();
    ASSERT_TRUE(waitFor([&] { return GetWindow(engineWindow(), GW_CHILD) == nullptr; }));
    trace.clear();
  };
  for (int i = 0; i < 3; ++i) cycle();
  const int before = processHandles();
  for (int i = 0; i < 10; ++i) cycle();
  EXPECT_TRUE(waitFor([&] { return processHandles() <= before + 5; }, 5000));
}

TEST_F(MediaFoundationOnDesktop, VisibilityAndPlacementAreThoseOfItsWindow) {
  EXPECT_TRUE(player->visible());
  player->setVisible(false);
  EXPECT_FALSE(player->visible());
  EXPECT_FALSE(IsWindowVisible(engineWindow()));
  player->move({10, 20, 300, 200});
  RECT place{};
  GetWindowRect(engineWindow(), &place);
  MapWindowPoints(nullptr, stage, reinterpret_cast<POINT*>(&place), 2);
  EXPECT_EQ(place.left, 10);
  EXPECT_EQ(place.top, 20);
  EXPECT_EQ(place.right, 310);
  EXPECT_EQ(place.bottom, 220);
}

TEST_F(MediaFoundationOnDesktop, AClickIsDownUpAndClickWithItsButton) {
  SendMessageW(engineWindow(), WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(50, 50));
  SendMessageW(engineWindow(), WM_LBUTTONUP, 0, MAKELPARAM(50, 50));
  SendMessageW(engineWindow(), WM_RBUTTONDOWN, MK_RBUTTON, MAKELPARAM(50, 50));
  SendMessageW(engineWindow(), WM_RBUTTONUP, 0, MAKELPARAM(50, 50));
  EXPECT_EQ(trace,
            (std::vector<std::string>{"down 1", "up 1", "click 1", "down 2", "up 2", "click 2"}));
}

TEST_F(MediaFoundationOnDesktop, TheSecondPressOfADoubleClickIsADoubleClick) {
  SendMessageW(engineWindow(), WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(50, 50));
  SendMessageW(engineWindow(), WM_LBUTTONUP, 0, MAKELPARAM(50, 50));
  SendMessageW(engineWindow(), WM_LBUTTONDBLCLK, MK_LBUTTON, MAKELPARAM(50, 50));
  SendMessageW(engineWindow(), WM_LBUTTONUP, 0, MAKELPARAM(50, 50));
  EXPECT_EQ(trace, (std::vector<std::string>{"down 1", "up 1", "click 1", "double", "up 1"}));
}

TEST_F(MediaFoundationOnDesktop, AButtonReleasedOutsideIsNoClick) {
  SendMessageW(engineWindow(), WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(50, 50));
  SendMessageW(engineWindow(), WM_LBUTTONUP, 0, MAKELPARAM(-5, 50));
  EXPECT_EQ(trace, (std::vector<std::string>{"down 1", "up 1"}));
}

TEST_F(MediaFoundationOnDesktop, TheMouseOnThePictureReachesTheEngine) {
  startPlaying("film.mp4");
  ASSERT_TRUE(waitFor([&] { return showsTheFilm(); }));
  trace.clear();
  clickOnScreen(200, 200);
  EXPECT_TRUE(waitForTrace("click 1"));
}

TEST_F(MediaFoundationOnDesktop, WhatWasOpenedAheadFollowsWithoutBlack) {
  startPlaying("second.mp4");
  ASSERT_TRUE(waitFor([&] { return showsTheFilm(); }));
  player->prepare(media("green.mp4"));
  ASSERT_TRUE(waitForTrace("state 8"));
  EXPECT_TRUE(showsTheFilm()) << "the last picture stays";
  trace.clear();
  player->setUrl(media("green.mp4"));
  player->play();
  EXPECT_TRUE(turnsGreenWithoutBlack());
  EXPECT_TRUE(waitForTrace("state 3"));
  EXPECT_TRUE(waitFor([&] { return pictureWindows() == 1; }));
}

TEST_F(MediaFoundationOnDesktop, WhatWasNotOpenedAheadFollowsWithoutBlackToo) {
  startPlaying("second.mp4");
  player->prepare(media("film.mkv"));  // something else came up
  ASSERT_TRUE(waitFor([&] { return showsTheFilm(); }));
  ASSERT_TRUE(waitForTrace("state 8"));
  player->setUrl(media("green.mp4"));
  player->play();
  EXPECT_TRUE(turnsGreenWithoutBlack());
}

TEST_F(MediaFoundationOnDesktop, TheLastPictureGoesWhenNothingFollows) {
  startPlaying("second.mp4");
  ASSERT_TRUE(waitForTrace("state 8"));
  EXPECT_TRUE(waitFor([&] { return showsBlack() && pictureWindows() == 0; }));
}

TEST_F(MediaFoundationOnDesktop, TheLastPictureGoesWhenSoundAloneFollows) {
  startPlaying("second.mp4");
  ASSERT_TRUE(waitForTrace("state 8"));
  player->setUrl(media("tone.mp3"));
  player->play();
  EXPECT_TRUE(waitFor([&] { return showsBlack(); }));
}

TEST_F(MediaFoundationOnDesktop, TheLastPictureGoesWhenWhatFollowsIsGivenUp) {
  const std::vector<std::pair<const char*, std::function<void()>>> ways{
      {"another url", [this] { player->setUrl(""); }}, {"stop", [this] { player->stop(); }}};
  for (const auto& [name, giveUp] : ways) {
    trace.clear();
    startPlaying("second.mp4");
    ASSERT_TRUE(waitForTrace("state 8")) << name;
    player->setUrl(media("green.mp4"));
    player->play();
    giveUp();
    EXPECT_TRUE(showsTheFilm()) << name << ": another may follow";
    EXPECT_TRUE(waitFor([&] { return showsBlack() && pictureWindows() == 0; })) << name;
  }
}

TEST_F(MediaFoundationOnDesktop, OpeningAheadChangesNothingUntilItIsPlayed) {
  player->prepare(media("random.avi"));
  watch(800);
  EXPECT_EQ(trace, std::vector<std::string>{"cannot"});
  EXPECT_TRUE(waitFor([&] { return pictureWindows() == 0; }));
  player->setUrl(media("random.avi"));
  player->play();
  EXPECT_EQ(pictureWindows(), 0) << "it is not tried again";
  ASSERT_TRUE(waitForTrace("error"));
  watch(300);
  EXPECT_EQ(traced("error"), 1);
}

TEST_F(MediaFoundationOnDesktop, WhatWasOpenedAheadCanBeForgotten) {
  player->prepare(media("film.mp4"));
  EXPECT_EQ(pictureWindows(), 1);
  watch(500);
  EXPECT_TRUE(showsBlack()) << "it does not play";
  player->prepare("");
  EXPECT_TRUE(waitFor([&] { return pictureWindows() == 0; }));
}

}  // namespace
}  // namespace tessivo
