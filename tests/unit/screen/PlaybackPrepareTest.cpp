#include "unit/screen/ScreenFixture.h"

namespace tessivo {
namespace {

class PlaybackPrepareTest : public ScreenFixture {
 protected:
  std::string prepared() { return "wmp " + wmp().prepared + " | real " + real().prepared; }
};

TEST_F(PlaybackPrepareTest, TheRulesFirstEngineGetsThePathWithoutQuotes) {
  screen.lngPlayRuler(playRule::kPreferMedia);
  screen.prepareNext("\"C:\\b.avi\"");
  EXPECT_EQ(prepared(), "wmp C:\\b.avi | real ");
  for (const std::int32_t rule : {playRule::kPreferReal, playRule::kRealOnly}) {
    screen.lngPlayRuler(rule);
    screen.prepareNext("C:\\b.avi");
    EXPECT_EQ(prepared(), "wmp  | real C:\\b.avi") << rule;
  }
  screen.lngPlayRuler(playRule::kMediaOnly);
  screen.prepareNext("C:\\b.avi");
  EXPECT_EQ(prepared(), "wmp C:\\b.avi | real ");
}

TEST_F(PlaybackPrepareTest, WhatTheFirstEngineCannotOpenTheSecondDoes) {
  screen.lngPlayRuler(playRule::kPreferReal);
  screen.prepareNext("C:\\b.avi");
  wmp().preparationFailed.raise();  // of an earlier rule
  EXPECT_EQ(prepared(), "wmp  | real C:\\b.avi");
  real().preparationFailed.raise();
  EXPECT_EQ(prepared(), "wmp C:\\b.avi | real C:\\b.avi");
  screen.prepareNext("C:\\b.avi");  // said again every second
  EXPECT_EQ(prepared(), "wmp C:\\b.avi | real C:\\b.avi");
  screen.prepareNext("C:\\c.avi");
  EXPECT_EQ(prepared(), "wmp  | real C:\\c.avi");

  screen.lngPlayRuler(playRule::kPreferMedia);
  screen.prepareNext("C:\\b.avi");
  wmp().preparationFailed.raise();
  EXPECT_EQ(prepared(), "wmp C:\\b.avi | real C:\\b.avi");
  screen.prepareNext("");
  EXPECT_EQ(prepared(), "wmp  | real ");
}

TEST_F(PlaybackPrepareTest, NoOtherEngineOpensItByARuleOfOne) {
  for (const std::int32_t rule : {playRule::kRealOnly, playRule::kMediaOnly}) {
    screen.lngPlayRuler(rule);
    screen.prepareNext("C:\\b.avi");
    const std::string before = prepared();
    real().preparationFailed.raise();
    wmp().preparationFailed.raise();
    EXPECT_EQ(prepared(), before) << rule;
  }
}

TEST_F(PlaybackPrepareTest, AHopToTheSecondEngineKeepsWhatThatHasOpened) {
  files.existing = {"C:\\b.avi"};
  screen.lngPlayRuler(playRule::kPreferReal);
  screen.prepareNext("C:\\b.avi");
  real().preparationFailed.raise();
  screen.strFilePath("C:\\b.avi");
  screen.play();
  time.advance(1);
  real().errorMessage.raise();
  time.advance(2);
  EXPECT_TRUE(wmp().visible());
  EXPECT_EQ(wmp().prepared, "C:\\b.avi");
}

TEST_F(PlaybackPrepareTest, AnotherRuleForgetsIt) {
  screen.prepareNext("C:\\b.avi");
  screen.lngPlayRuler(playRule::kPreferReal);
  EXPECT_EQ(prepared(), "wmp  | real ");
}

TEST_F(PlaybackPrepareTest, TheSameRuleOnceMoreKeepsIt) {
  screen.lngPlayRuler(playRule::kPreferReal);
  screen.prepareNext("C:\\b.avi");
  screen.lngPlayRuler(playRule::kPreferReal);
  EXPECT_EQ(prepared(), "wmp  | real C:\\b.avi");
}

TEST_F(PlaybackPrepareTest, TheUsersStopForgetsItAndTheEndOfTheItemDoesNot) {
  files.existing = {"C:\\a.avi"};
  screen.strFilePath("C:\\a.avi");
  screen.play();
  time.advance(1);
  real().notify(RealPlayState::playing);
  time.advance(2000);
  screen.prepareNext("C:\\b.avi");
  real().notify(RealPlayState::stopped);
  screen.stopPlay();  // as the panel does before it steps
  screen.strFilePath("C:\\b.avi");
  EXPECT_EQ(real().prepared, "C:\\b.avi");

  screen.strFilePath("C:\\a.avi");
  screen.play();
  time.advance(1);
  real().notify(RealPlayState::playing);
  screen.stopPlay();
  EXPECT_EQ(real().prepared, "");
}

TEST_F(PlaybackPrepareTest, AFailureForgetsIt) {
  startPlaying(playRule::kMediaOnly);
  screen.prepareNext("C:\\b.avi");
  wmp().mediaError.raise();
  time.advance(1);
  EXPECT_EQ(wmp().prepared, "");

  files.existing.erase("C:\\b.avi");
  screen.strFilePath("C:\\b.avi");
  screen.prepareNext("C:\\b.avi");
  EXPECT_FALSE(screen.play());  // it has just gone
  EXPECT_EQ(wmp().prepared, "");
}

TEST_F(PlaybackPrepareTest, TheEmptyPathForgetsIt) {
  startPlaying(playRule::kMediaOnly);
  screen.prepareNext("C:\\b.avi");
  screen.strFilePath("");
  EXPECT_EQ(wmp().prepared, "");
}

}  // namespace
}  // namespace tessivo
