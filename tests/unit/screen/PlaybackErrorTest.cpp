#include "unit/screen/ScreenFixture.h"

namespace tessivo {
namespace {

/// Errors and reports that come when nothing asked for them, and the rule that knows no engine.
class PlaybackErrorTest : public ScreenFixture {
 protected:
  void useRule(std::int32_t rule) {
    screen.lngPlayRuler(rule);
    screen.strFilePath("C:\\a.avi");
    trace.take();
  }
};

TEST_F(PlaybackErrorTest, UnderAnUnknownRuleAStartStaysPending) {
  useRule(7);
  EXPECT_TRUE(screen.play());
  time.advance(5000);
  screen.stopPlay();
  screen.pause();
  EXPECT_FALSE(screen.play());
  time.advance(5000);
  EXPECT_EQ(trace.take(), "");
  EXPECT_EQ(screen.lngState(), playState::kStarting);
}

TEST_F(PlaybackErrorTest, ProgramLeftWhileAnEngineTakesThePathHasNoErrorPending) {
  real().whenSourced = [this] { screen.unloadScreen(); };
  screen.strFilePath("C:\\a.avi");
  EXPECT_FALSE(screen.play());
  EXPECT_EQ(time.running(), 0U);
}

/// What asks something of Media Player, whose control lets messages through: the program is left.
class LeftInsideACallTest : public PlaybackErrorTest {
 protected:
  void leftDuring(const std::function<void()>& what) {
    useRule(playRule::kPreferMedia);
    wmp().whenCalled = [this] { screen.unloadScreen(); };
    what();
    EXPECT_EQ(time.running(), 0U);
  }
};

TEST_F(LeftInsideACallTest, APathIsHandedOver) {
  leftDuring([this] { screen.strFilePath("C:\\b.avi"); });
}
TEST_F(LeftInsideACallTest, ItIsStarted) {
  leftDuring([this] {
    EXPECT_TRUE(screen.play());
    time.advance(5);
  });
}
TEST_F(LeftInsideACallTest, TheOtherEngineTakesOver) {
  leftDuring([this] {
    const auto leave = std::exchange(wmp().whenCalled, nullptr);
    EXPECT_TRUE(screen.play());
    time.advance(5);
    wmp().mediaError.raise();
    wmp().whenCalled = leave;
    time.advance(5);
  });
}
TEST_F(LeftInsideACallTest, ItFails) {
  leftDuring([this] { wmp().mediaError.raise(); });
}
TEST_F(LeftInsideACallTest, ItPlays) {
  leftDuring([this] { wmp().notify(MediaPlayState::playing); });
}
TEST_F(LeftInsideACallTest, TheRuleChanges) {
  leftDuring([this] { useRule(playRule::kRealOnly); });
}
TEST_F(LeftInsideACallTest, ItIsMadeLouder) {
  leftDuring([this] { screen.intVolume(5); });
}
TEST_F(LeftInsideACallTest, ItIsMuted) {
  leftDuring([this] { screen.boolMute(true); });
}
TEST_F(LeftInsideACallTest, ItIsSentToAPlace) {
  leftDuring([this] { screen.playback().lngJinDu(7); });
}

TEST_F(PlaybackErrorTest, UnderAnUnknownRuleFailuresChangeNothing) {
  useRule(-1);
  ASSERT_TRUE(screen.play());
  wmp().mediaError.raise();
  real().errorMessage.raise();
  time.advance(10);
  EXPECT_EQ(trace.take(), "wmp clear errors");
  EXPECT_EQ(screen.lngState(), playState::kStarting);
}

TEST_F(PlaybackErrorTest, AKnownRuleEndsTheStartThatAnUnknownOneLeftPending) {
  useRule(7);
  ASSERT_TRUE(screen.play());
  screen.lngPlayRuler(playRule::kRealOnly);
  EXPECT_EQ(screen.lngState(), playState::kStopped);
  EXPECT_TRUE(screen.play());
}

TEST_F(PlaybackErrorTest, ANewPathEndsTheStartThatAnUnknownRuleLeftPending) {
  useRule(7);
  ASSERT_TRUE(screen.play());
  screen.strFilePath("C:\\b.avi");
  EXPECT_EQ(screen.lngState(), playState::kStopped);
}

TEST_F(PlaybackErrorTest, TwoMediaErrorsInARowAreOneFailure) {
  useRule(playRule::kMediaOnly);
  ASSERT_TRUE(screen.play());
  time.advance(1);
  wmp().mediaError.raise();
  wmp().mediaError.raise();
  time.advance(10);
  EXPECT_EQ(trace.take(),
            "wmp play | wmp clear errors | wmp clear errors | wmp stop | wmp position 0 | "
            "PlayErr Media Play无法播放该文件,请通过播放器选择列表使用Real Player重新尝试播放.");
}

TEST_F(PlaybackErrorTest, AnErrorMessageAndAnEarlyStopTogetherAreOneFailure) {
  useRule(playRule::kRealOnly);
  ASSERT_TRUE(screen.play());
  time.advance(1);
  real().notify(RealPlayState::contacting);
  trace.take();
  real().errorMessage.raise();
  real().notify(RealPlayState::stopped);
  time.advance(10);
  EXPECT_EQ(trace.take(),
            "wmp stop | wmp position 0 | "
            "PlayErr Real Play无法播放该文件,请通过播放器选择列表使用Media Player重新尝试播放.");
}

TEST_F(PlaybackErrorTest, ASecondReasonReplacesTheOneThatIsPending) {
  screen.strFilePath("C:\\gone.avi");
  EXPECT_FALSE(screen.play());
  screen.strFilePath("");
  EXPECT_FALSE(screen.play());
  trace.take();
  time.advance(10);
  EXPECT_EQ(trace.take(), "PlayErr 播放路径为空.");
}

TEST_F(PlaybackErrorTest, AFailureReplacesThePendingReasonOfARefusedPlay) {
  useRule(playRule::kRealOnly);
  ASSERT_TRUE(screen.play());
  time.advance(1);
  real().errorMessage.raise();
  files.existing.clear();
  EXPECT_FALSE(screen.play());
  trace.take();
  time.advance(10);
  EXPECT_EQ(trace.take(),
            "wmp stop | wmp position 0 | "
            "PlayErr Real Play无法播放该文件,请通过播放器选择列表使用Media Player重新尝试播放.");
}

TEST_F(PlaybackErrorTest, APlayRefusedInsideTheReportIsReportedToo) {
  int again = 2;
  screen.PlayErr.listen([this, &again](const std::string&) {
    if (again-- > 0) screen.play();
  });
  screen.play();
  time.advance(10);
  EXPECT_EQ(trace.take(), "PlayErr 播放路径为空. | PlayErr 播放路径为空. | PlayErr 播放路径为空.");
}

TEST_F(PlaybackErrorTest, UnloadingDropsThePendingReport) {
  screen.play();
  screen.unloadScreen();
  trace.take();
  time.advance(10);
  EXPECT_EQ(trace.take(), "");
  EXPECT_EQ(time.running(), 0U);
}

TEST_F(PlaybackErrorTest, AnErrorOfRealPlayerWhileStoppedIsReported) {
  useRule(playRule::kRealOnly);
  real().errorMessage.raise();
  time.advance(10);
  EXPECT_EQ(trace.take(),
            "wmp stop | wmp position 0 | "
            "PlayErr Real Play无法播放该文件,请通过播放器选择列表使用Media Player重新尝试播放.");
}

TEST_F(PlaybackErrorTest, AnErrorOfMediaPlayerWhileStoppedIsReported) {
  useRule(playRule::kMediaOnly);
  wmp().mediaError.raise();
  time.advance(10);
  EXPECT_EQ(trace.take(),
            "wmp clear errors | wmp stop | wmp position 0 | "
            "PlayErr Media Play无法播放该文件,请通过播放器选择列表使用Real Player重新尝试播放.");
}

TEST_F(PlaybackErrorTest, AnErrorWhileStoppedTakesTheRouteOfThePreferRule) {
  useRule(playRule::kPreferReal);
  real().errorMessage.raise();
  time.advance(10);
  EXPECT_EQ(trace.take(), "wmp show | real hide | wmp play");
  useRule(playRule::kPreferMedia);
  wmp().mediaError.raise();
  time.advance(10);
  EXPECT_EQ(trace.take(),
            "wmp clear errors | wmp url C:\\a.avi | real show | wmp hide | real play");
}

TEST_F(PlaybackErrorTest, APositionBeforeTheStartIsReportedAsItComes) {
  real().positionChange.raise(-65500, 200000);
  EXPECT_EQ(trace.take(), "JinDu -33% -65=00:-01:-05 of 200=00:03:20");
}

TEST_F(PlaybackErrorTest, APositionWithinTheSecondBeforeTheStartIsStillSecondZero) {
  real().positionChange.raise(-999, 200000);
  EXPECT_EQ(trace.take(), "");
}

TEST_F(PlaybackErrorTest, TheFarEndsOfPositionAndLengthAreReported) {
  real().positionChange.raise(2147483647, 2147483647);
  EXPECT_EQ(trace.take(), "JinDu 100% 2147483=596:31:23 of 2147483=596:31:23");
  real().positionChange.raise(-2147483647 - 1, -2147483647 - 1);
  EXPECT_EQ(trace.take(), "JinDu 100% -2147483=-596:-31:-23 of -2147483=-596:-31:-23");
}

TEST_F(PlaybackErrorTest, APositionOfMediaPlayerBeyondThirtyTwoBitsIsNotReported) {
  startPlaying(playRule::kMediaOnly);
  wmp().duration = 200;
  wmp().position = 2147483648.0;
  time.advance(1000);
  EXPECT_EQ(trace.take(), "");
  wmp().position = 2147483647.0;
  time.advance(1000);
  EXPECT_EQ(trace.take(), "JinDu 1073741824% 2147483647=596523:14:07 of 200=00:03:20");
}

TEST_F(PlaybackErrorTest, APercentageThatDoesNotFitIsZero) {
  real().positionChange.raise(2147483647, 1);
  EXPECT_EQ(trace.take(), "JinDu 0% 2147483=596:31:23 of 0=00:00:00");
}

}  // namespace
}  // namespace tessivo
