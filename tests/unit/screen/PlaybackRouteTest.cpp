#include "unit/screen/ScreenFixture.h"

namespace tessivo {
namespace {

class PlaybackRouteTest : public ScreenFixture {
 protected:
  void order(std::int32_t rule) {
    screen.lngPlayRuler(rule);
    screen.strFilePath("C:\\a.avi");
    ASSERT_TRUE(screen.play());
    time.advance(1);
    trace.take();
  }
  void turn() { time.advance(1); }
};

TEST_F(PlaybackRouteTest, RealOnlyReportsItsOwnMessageAndNeverStartsMediaPlayer) {
  order(playRule::kRealOnly);
  real().errorMessage.raise();
  turn();
  turn();
  EXPECT_EQ(trace.take(),
            "wmp stop | wmp position 0 | "
            "PlayErr Real Play无法播放该文件,请通过播放器选择列表使用Media Player重新尝试播放.");
  EXPECT_EQ(screen.lngState(), playState::kStopped);
}

TEST_F(PlaybackRouteTest, MediaOnlyReportsItsOwnMessage) {
  order(playRule::kMediaOnly);
  wmp().mediaError.raise();
  turn();
  turn();
  EXPECT_EQ(trace.take(),
            "wmp clear errors | wmp stop | wmp position 0 | "
            "PlayErr Media Play无法播放该文件,请通过播放器选择列表使用Real Player重新尝试播放.");
}

TEST_F(PlaybackRouteTest, PreferRealFallsBackToMediaPlayer) {
  order(playRule::kPreferReal);
  real().errorMessage.raise();
  turn();
  EXPECT_EQ(screen.lngState(), playState::kStarting);
  turn();
  EXPECT_EQ(trace.take(), "wmp show | real hide | wmp position 0 | wmp play");
  wmp().notify(MediaPlayState::playing);
  EXPECT_EQ(screen.lngState(), playState::kPlaying);
}

TEST_F(PlaybackRouteTest, TheFallbackOfPreferRealStartsAtTheRequestedPosition) {
  screen.lngPlayRuler(playRule::kPreferReal);
  screen.strFilePath("C:\\a.avi");
  screen.lngJinDu(65);
  ASSERT_TRUE(screen.play());
  turn();
  real().errorMessage.raise();
  turn();
  trace.take();
  turn();
  EXPECT_EQ(trace.take(), "wmp show | real hide | wmp position 65 | wmp play");
}

TEST_F(PlaybackRouteTest, ResumingAfterTheFallbackGoesOnWhereItPaused) {
  order(playRule::kPreferReal);
  real().errorMessage.raise();
  turn();
  turn();
  wmp().notify(MediaPlayState::playing);
  wmp().position = 60;
  screen.pause();
  ASSERT_TRUE(screen.play());
  trace.take();
  turn();
  EXPECT_EQ(trace.take(), "wmp play");
  EXPECT_EQ(wmp().position, 60);
}

TEST_F(PlaybackRouteTest, ANewPathDropsAPendingStartOfMediaPlayer) {
  screen.lngPlayRuler(playRule::kMediaOnly);
  screen.strFilePath("C:\\a.avi");
  ASSERT_TRUE(screen.play());
  screen.strFilePath("C:\\b.avi");
  trace.take();
  time.advance(10);
  EXPECT_EQ(trace.take(), "");
}

TEST_F(PlaybackRouteTest, ANewPathDropsAPendingFailureOfMediaPlayer) {
  order(playRule::kMediaOnly);
  wmp().mediaError.raise();
  screen.strFilePath("C:\\b.avi");
  trace.take();
  time.advance(10);
  EXPECT_EQ(trace.take(), "");
}

TEST_F(PlaybackRouteTest, TheTimersOfTheOtherEngineStartNothingUnderAnOnlyRule) {
  order(playRule::kRealOnly);
  screen.playback().timMediaPlayDelay.setEnabled(true);
  screen.playback().timMediaErrDelay.setEnabled(true);
  time.advance(10);
  EXPECT_EQ(trace.take(), "");
  order(playRule::kMediaOnly);
  screen.playback().timRealPlayDelay.setEnabled(true);
  screen.playback().timRealErrDelay.setEnabled(true);
  time.advance(10);
  EXPECT_EQ(trace.take(), "");
}

TEST_F(PlaybackRouteTest, PreferRealWithBothFailingReportsWithoutFullStop) {
  order(playRule::kPreferReal);
  real().errorMessage.raise();
  turn();
  turn();
  trace.take();
  wmp().mediaError.raise();
  turn();
  turn();
  EXPECT_EQ(trace.take(),
            "wmp clear errors | wmp stop | wmp position 0 | real show | wmp hide | "
            "PlayErr 无法识别的文件格式");
}

TEST_F(PlaybackRouteTest, PreferMediaFallsBackToRealPlayer) {
  order(playRule::kPreferMedia);
  wmp().mediaError.raise();
  turn();
  turn();
  EXPECT_EQ(trace.take(),
            "wmp clear errors | wmp url C:\\a.avi | real show | wmp hide | real play");
}

TEST_F(PlaybackRouteTest, PreferMediaWithBothFailingReportsWithFullStop) {
  order(playRule::kPreferMedia);
  wmp().mediaError.raise();
  turn();
  turn();
  trace.take();
  real().notify(RealPlayState::stopped);
  turn();
  turn();
  EXPECT_EQ(trace.take(),
            "wmp stop | wmp position 0 | wmp show | real hide | PlayErr 无法识别的文件格式.");
}

TEST_F(PlaybackRouteTest, AnEarlyStopIsAnErrorAndALaterOneTheEnd) {
  order(playRule::kRealOnly);
  real().notify(RealPlayState::playing);
  time.advance(1499);
  trace.take();
  real().notify(RealPlayState::stopped);
  EXPECT_EQ(trace.take(), "");
  EXPECT_FALSE(screen.playback().timRealPopuWinErrCheck.enabled());
  EXPECT_TRUE(screen.playback().timRealErrDelay.enabled());

  order(playRule::kRealOnly);
  real().notify(RealPlayState::playing);
  time.advance(1500);
  trace.take();
  real().notify(RealPlayState::stopped);
  EXPECT_EQ(trace.take(), "wmp stop | wmp position 0 | PlayOver");
}

TEST_F(PlaybackRouteTest, TheEarlyStopWindowIsOpenWhenRealPlayerIsToldToPlay) {
  std::vector<bool> open;
  real().whenPlayed = [&] { open.push_back(screen.playback().timRealPopuWinErrCheck.enabled()); };
  order(playRule::kRealOnly);
  EXPECT_EQ(open, std::vector<bool>{true});
}

TEST_F(PlaybackRouteTest, AnEarlyStopUnderPreferRealStartsMediaPlayer) {
  order(playRule::kPreferReal);
  real().notify(RealPlayState::stopped);
  turn();
  turn();
  EXPECT_EQ(trace.take(), "wmp show | real hide | wmp position 0 | wmp play");
}

TEST_F(PlaybackRouteTest, AStopDropsAHopInFlight) {
  order(playRule::kPreferReal);
  real().errorMessage.raise();
  screen.strFilePath("C:\\b.avi");
  trace.take();
  time.advance(10);
  EXPECT_EQ(trace.take(), "");
  EXPECT_EQ(screen.lngState(), playState::kStopped);
}

TEST_F(PlaybackRouteTest, AResetLeavesThePendingErrorAndTheEarlyStopWindow) {
  order(playRule::kRealOnly);
  screen.strFilePath("C:\\gone.avi");
  EXPECT_FALSE(screen.play());
  screen.lngPlayRuler(playRule::kRealOnly);
  EXPECT_TRUE(screen.playback().timErrDelay.enabled());
  EXPECT_TRUE(screen.playback().timRealPopuWinErrCheck.enabled());
  trace.take();
  turn();
  EXPECT_EQ(trace.take(), "PlayErr 要播放的文件不存在.");
}

TEST_F(PlaybackRouteTest, ErrorsAreLoggedWithReasonAndPath) {
  order(playRule::kRealOnly);
  real().errorMessage.raise();
  turn();
  turn();
  EXPECT_EQ(log.lines.back(),
            "error play error: "
            "Real Play无法播放该文件,请通过播放器选择列表使用Media Player重新尝试播放. | "
            "C:\\a.avi");
}

}  // namespace
}  // namespace tessivo
