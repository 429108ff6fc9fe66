// Orders that overtake what an engine's thread has yet to report; run-engines.sh provides the
// media.
#include <memory>

#include "screen/engines/direct_show/EmbeddedRealPlayer.h"
#include "screen/engines/media_foundation/EmbeddedMediaPlayer.h"
#include "win32/engines/EngineStage.h"

namespace tessivo {
namespace {

class MediaFoundationQuickOrdersOnDesktop : public EngineStage {
 protected:
  void SetUp() override {
    EngineStage::SetUp();
    player = std::make_unique<EmbeddedMediaPlayer>(stage, log);
    player->playStateChange.listen([this](MediaPlayState state) {
      trace.push_back("state " + std::to_string(static_cast<int>(state)));
    });
    player->setUrl(media("film.avi"));
    player->play();
    ASSERT_TRUE(waitForTrace("state 3"));
    trace.clear();
  }
  void TearDown() override { player.reset(); }
  bool goesOn() {
    if (!waitForTrace("state 3")) return false;
    const double here = player->currentPosition();
    return waitFor([&] { return player->currentPosition() > here + 0.3; });
  }

  std::unique_ptr<EmbeddedMediaPlayer> player;
};

TEST_F(MediaFoundationQuickOrdersOnDesktop, APlayRightAfterThePauseIsAnsweredAndGoesOn) {
  player->pause();
  player->play();
  EXPECT_TRUE(goesOn());
}

TEST_F(MediaFoundationQuickOrdersOnDesktop, ThreeInARow) {
  player->pause();
  player->play();
  player->pause();
  player->play();
  EXPECT_TRUE(goesOn());
}

TEST_F(MediaFoundationQuickOrdersOnDesktop, APlayAfterAPauseDuringASeekIsAnsweredAndGoesOn) {
  player->setCurrentPosition(2);
  player->pause();
  watch(5);
  player->play();
  EXPECT_TRUE(goesOn());
}

TEST_F(MediaFoundationQuickOrdersOnDesktop, ASeekRightAfterThePauseStaysPaused) {
  player->pause();
  player->setCurrentPosition(3);
  ASSERT_TRUE(waitForTrace("state 2"));
  watch(700);
  EXPECT_EQ(player->currentPosition(), 3);
  EXPECT_EQ(traced("state 3"), 0);
  player->play();
  ASSERT_TRUE(waitForTrace("state 3"));
  EXPECT_GE(player->currentPosition(), 2.9);
}

TEST_F(MediaFoundationQuickOrdersOnDesktop, APlayOfWhatPlaysIsAnsweredFromTheLoop) {
  player->play();
  EXPECT_EQ(traced("state 3"), 0);
  EXPECT_TRUE(waitForTrace("state 3"));
}

TEST_F(MediaFoundationQuickOrdersOnDesktop, APauseAloneIsReportedAndHolds) {
  player->pause();
  ASSERT_TRUE(waitForTrace("state 2"));
  const double here = player->currentPosition();
  watch(500);
  EXPECT_EQ(player->currentPosition(), here);
}

class DirectShowQuickOrdersOnDesktop : public EngineStage {
 protected:
  void SetUp() override {
    EngineStage::SetUp();
    player = std::make_unique<EmbeddedRealPlayer>(stage, log);
    player->playStateChange.listen([this](RealPlayState, RealPlayState to) {
      trace.push_back("to " + std::to_string(static_cast<int>(to)));
    });
    player->positionChange.listen([this](std::int32_t at, std::int32_t) { position = at; });
    player->setSource(media("film.avi"));
    player->play();
    ASSERT_TRUE(waitForTrace("to 3"));
    trace.clear();
  }
  void TearDown() override { player.reset(); }
  bool goesOn() {
    if (!waitForTrace("to 3")) return false;
    const std::int32_t here = position;
    return waitFor([&] { return position > here + 300; });
  }

  std::unique_ptr<EmbeddedRealPlayer> player;
  std::int32_t position = 0;
};

TEST_F(DirectShowQuickOrdersOnDesktop, APlayRightAfterThePauseIsAnsweredAndGoesOn) {
  player->pause();
  player->play();
  EXPECT_TRUE(goesOn());
}

TEST_F(DirectShowQuickOrdersOnDesktop, ThreeInARow) {
  player->pause();
  player->play();
  player->pause();
  player->play();
  EXPECT_TRUE(goesOn());
}

TEST_F(DirectShowQuickOrdersOnDesktop, APlayOfWhatPlaysIsAnsweredFromTheLoop) {
  player->play();
  EXPECT_EQ(traced("to 3"), 0);
  EXPECT_TRUE(waitForTrace("to 3"));
}

TEST_F(DirectShowQuickOrdersOnDesktop, APauseAloneIsReportedAndHolds) {
  player->pause();
  ASSERT_TRUE(waitForTrace("to 4"));
  watch(300);
  const std::int32_t here = position;
  watch(700);
  EXPECT_EQ(position, here);
}

}  // namespace
}  // namespace tessivo
