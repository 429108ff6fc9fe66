// An item in one engine and the next one in the other, in one window, as the playback window shows
// and hides them; run-engines.sh provides the media and the desktop.
#include <memory>

#include "screen/engines/direct_show/EmbeddedRealPlayer.h"
#include "screen/engines/media_foundation/EmbeddedMediaPlayer.h"
#include "win32/engines/EngineStage.h"

namespace tessivo {
namespace {

class OtherEngine : public EngineStage {
 protected:
  void SetUp() override {
    EngineStage::SetUp();
    const auto last = std::make_shared<LastPicture>();
    mediaPlayer = std::make_unique<EmbeddedMediaPlayer>(stage, log, last);
    mediaWindow = engineWindow();
    realPlayer = std::make_unique<EmbeddedRealPlayer>(stage, log, last);
    mediaPlayer->move({0, 0, kWidth, kHeight});
    realPlayer->move({0, 0, kWidth, kHeight});
    mediaPlayer->playStateChange.listen([this](MediaPlayState state) {
      if (state == MediaPlayState::mediaEnded) trace.push_back("media ended");
    });
    realPlayer->playStateChange.listen([this](RealPlayState, RealPlayState state) {
      if (state == RealPlayState::stopped) trace.push_back("real ended");
    });
  }
  void TearDown() override {
    mediaPlayer.reset();
    realPlayer.reset();
  }

  void showMediaPlayer() {
    mediaPlayer->setVisible(true);
    realPlayer->setVisible(false);
  }
  void showRealPlayer() {
    realPlayer->setVisible(true);
    mediaPlayer->setVisible(false);
  }
  void playToTheEndInMediaPlayer() {
    showMediaPlayer();
    mediaPlayer->setUrl(media("second.mp4"));
    mediaPlayer->play();
    ASSERT_TRUE(waitForTrace("media ended"));
    ASSERT_TRUE(showsTheFilm());
  }
  void playToTheEndInRealPlayer() {
    showRealPlayer();
    realPlayer->setSource(media("second.mp4"));
    realPlayer->play();
    ASSERT_TRUE(waitForTrace("real ended"));
    ASSERT_TRUE(showsTheFilm());
  }
  void playInMediaPlayer(const char* name) {
    mediaPlayer->setUrl(media(name));
    mediaPlayer->play();
  }
  void playInRealPlayer(const char* name) {
    realPlayer->setSource(media(name));
    realPlayer->play();
  }
  bool mediaWindowShows() const { return IsWindowVisible(mediaWindow) != 0; }

  std::unique_ptr<EmbeddedMediaPlayer> mediaPlayer;
  std::unique_ptr<EmbeddedRealPlayer> realPlayer;
  HWND mediaWindow = nullptr;
};

class MediaFoundationToDirectShowOnDesktop : public OtherEngine {};
class DirectShowToMediaFoundationOnDesktop : public OtherEngine {};

TEST_F(MediaFoundationToDirectShowOnDesktop, WhatWasOpenedAheadFollowsWithoutBlack) {
  ASSERT_NO_FATAL_FAILURE(playToTheEndInMediaPlayer());
  realPlayer->prepare(media("green.mp4"));
  showRealPlayer();
  EXPECT_FALSE(mediaPlayer->visible());
  EXPECT_TRUE(realPlayer->visible());
  EXPECT_TRUE(mediaWindowShows());
  playInRealPlayer("green.mp4");
  EXPECT_TRUE(turnsGreenWithoutBlack());
  EXPECT_TRUE(waitFor([&] { return !mediaWindowShows(); }));
}

TEST_F(MediaFoundationToDirectShowOnDesktop, WhatWasNotOpenedAheadFollowsWithoutBlackToo) {
  ASSERT_NO_FATAL_FAILURE(playToTheEndInMediaPlayer());
  showRealPlayer();
  playInRealPlayer("green.mp4");
  EXPECT_TRUE(turnsGreenWithoutBlack());
}

TEST_F(MediaFoundationToDirectShowOnDesktop, WhatTheFirstCannotPlayTheSecondDoesWithoutBlack) {
  ASSERT_NO_FATAL_FAILURE(playToTheEndInMediaPlayer());
  mediaPlayer->prepare(media("random.avi"));
  realPlayer->prepare(media("green.mp4"));
  watch(200);
  playInMediaPlayer("random.avi");
  mediaPlayer->mediaError.listen([this] { trace.push_back("error"); });
  ASSERT_TRUE(waitForTrace("error"));
  showRealPlayer();
  playInRealPlayer("green.mp4");
  EXPECT_TRUE(turnsGreenWithoutBlack());
}

TEST_F(MediaFoundationToDirectShowOnDesktop, TheLastPictureGoesWhenNothingFollows) {
  ASSERT_NO_FATAL_FAILURE(playToTheEndInMediaPlayer());
  showRealPlayer();
  EXPECT_TRUE(waitFor([&] { return showsBlack() && !mediaWindowShows(); }));
}

TEST_F(MediaFoundationToDirectShowOnDesktop, TheLastPictureGoesWhenSoundAloneFollows) {
  ASSERT_NO_FATAL_FAILURE(playToTheEndInMediaPlayer());
  showRealPlayer();
  playInRealPlayer("tone.wav");
  EXPECT_TRUE(waitFor([&] { return showsBlack() && !mediaWindowShows(); }));
}

TEST_F(MediaFoundationToDirectShowOnDesktop, TheLastPictureGoesWhenWhatFollowsIsGivenUp) {
  ASSERT_NO_FATAL_FAILURE(playToTheEndInMediaPlayer());
  showRealPlayer();
  playInRealPlayer("green.mp4");
  realPlayer->setSource("");
  EXPECT_TRUE(waitFor([&] { return showsBlack() && !mediaWindowShows(); }));
}

TEST_F(MediaFoundationToDirectShowOnDesktop, AWindowThatIsShownAgainStays) {
  ASSERT_NO_FATAL_FAILURE(playToTheEndInMediaPlayer());
  showRealPlayer();
  showMediaPlayer();
  playInMediaPlayer("green.mp4");
  EXPECT_TRUE(turnsGreenWithoutBlack());
  watch(600);
  EXPECT_TRUE(mediaWindowShows());
  EXPECT_TRUE(isGreen(shownAt(200, 120)));
}

TEST_F(MediaFoundationToDirectShowOnDesktop, AnEngineGoesWithItsLastPicture) {
  ASSERT_NO_FATAL_FAILURE(playToTheEndInMediaPlayer());
  showRealPlayer();
  mediaPlayer.reset();
  playInRealPlayer("green.mp4");
  EXPECT_TRUE(waitFor([&] { return isGreen(shownAt(200, 120)); }));
}

TEST_F(DirectShowToMediaFoundationOnDesktop, WhatWasOpenedAheadFollowsWithoutBlack) {
  ASSERT_NO_FATAL_FAILURE(playToTheEndInRealPlayer());
  mediaPlayer->prepare(media("green.mp4"));
  showMediaPlayer();
  EXPECT_FALSE(realPlayer->visible());
  EXPECT_TRUE(mediaPlayer->visible());
  playInMediaPlayer("green.mp4");
  EXPECT_TRUE(turnsGreenWithoutBlack());
}

TEST_F(DirectShowToMediaFoundationOnDesktop, WhatWasNotOpenedAheadFollowsWithoutBlackToo) {
  ASSERT_NO_FATAL_FAILURE(playToTheEndInRealPlayer());
  showMediaPlayer();
  playInMediaPlayer("green.mp4");
  EXPECT_TRUE(turnsGreenWithoutBlack());
}

TEST_F(DirectShowToMediaFoundationOnDesktop, TheLastPictureGoesWhenNothingFollows) {
  ASSERT_NO_FATAL_FAILURE(playToTheEndInRealPlayer());
  showMediaPlayer();
  EXPECT_TRUE(waitFor([&] { return showsBlack(); }));
  EXPECT_FALSE(realPlayer->visible());
}

TEST_F(DirectShowToMediaFoundationOnDesktop, TheLastPictureGoesWhenWhatFollowsIsGivenUp) {
  ASSERT_NO_FATAL_FAILURE(playToTheEndInRealPlayer());
  showMediaPlayer();
  playInMediaPlayer("green.mp4");
  mediaPlayer->stop();
  EXPECT_TRUE(waitFor([&] { return showsBlack(); }));
}

}  // namespace
}  // namespace tessivo
