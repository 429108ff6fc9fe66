#include "unit/screen/ScreenFixture.h"

namespace tessivo {
namespace {

/// Stopped notifications of the RealPlayer slot that come late, twice or from an item that is over.
class PlaybackStopTest : public ScreenFixture {
 protected:
  void orderStart(const std::string& path) {
    screen.strFilePath(path);
    ASSERT_TRUE(screen.play());
    time.advance(1);
  }
  /// RealPlayer was stopped, says so at once when asked, and still owes the notification.
  void stopWithoutNotification() {
    screen.stopPlay();
    real().active = false;
  }
  std::string afterALongWhile() {
    time.advance(5000);
    return trace.take();
  }
};

TEST_F(PlaybackStopTest, ALateStopOfTheItemBeforeIsNoFailureOfTheOneThatStarts) {
  startPlaying(playRule::kRealOnly);
  stopWithoutNotification();
  orderStart("C:\\b.avi");
  trace.take();
  real().notify(RealPlayState::stopped);
  EXPECT_EQ(afterALongWhile(), "");
  EXPECT_EQ(screen.lngState(), playState::kStarting);
}

TEST_F(PlaybackStopTest, ALateStopOfAPausedItemIsNoFailureOfTheOneThatStarts) {
  startPlaying(playRule::kRealOnly);
  screen.pause();
  real().notify(RealPlayState::paused);
  stopWithoutNotification();
  orderStart("C:\\b.avi");
  trace.take();
  real().notify(RealPlayState::stopped);
  EXPECT_EQ(afterALongWhile(), "");
}

TEST_F(PlaybackStopTest, AfterTheLateStopAnEarlyStopOfTheNewItemIsItsFailure) {
  startPlaying(playRule::kRealOnly);
  stopWithoutNotification();
  orderStart("C:\\b.avi");
  real().notify(RealPlayState::stopped);
  real().notify(RealPlayState::contacting);
  trace.take();
  real().notify(RealPlayState::stopped);
  EXPECT_TRUE(screen.playback().timRealErrDelay.enabled());
}

TEST_F(PlaybackStopTest, AfterTheLateStopTheEndOfTheNewItemIsItsEnd) {
  startPlaying(playRule::kRealOnly);
  stopWithoutNotification();
  orderStart("C:\\b.avi");
  real().notify(RealPlayState::stopped);
  real().notify(RealPlayState::playing);
  time.advance(1500);
  trace.take();
  real().notify(RealPlayState::stopped);
  EXPECT_EQ(trace.take(), "wmp stop | wmp position 0 | PlayOver");
}

TEST_F(PlaybackStopTest, AnEarlyStopOfAnItemThatIsResumedIsItsOwnFailure) {
  startPlaying(playRule::kRealOnly);
  screen.pause();
  real().notify(RealPlayState::paused);
  time.advance(1500);
  ASSERT_TRUE(screen.play());
  time.advance(1);
  real().notify(RealPlayState::stopped);
  EXPECT_TRUE(screen.playback().timRealErrDelay.enabled());
}

TEST_F(PlaybackStopTest, AnItemThatIsResumedMayEndBeforeRealPlayerIsToldToPlay) {
  startPlaying(playRule::kRealOnly);
  screen.pause();
  real().notify(RealPlayState::paused);
  time.advance(1500);
  ASSERT_TRUE(screen.play());
  trace.take();
  real().notify(RealPlayState::stopped);
  EXPECT_EQ(trace.take(), "wmp stop | wmp position 0 | PlayOver");
}

TEST_F(PlaybackStopTest, AStopBeforeRealPlayerIsToldToPlayBelongsToTheItemBefore) {
  screen.strFilePath("C:\\a.avi");
  ASSERT_TRUE(screen.play());
  trace.take();
  real().notify(RealPlayState::stopped);
  EXPECT_EQ(trace.take(), "");
  EXPECT_EQ(screen.lngState(), playState::kStarting);
  time.advance(1);
  EXPECT_EQ(trace.take(), "wmp url C:\\a.avi | real play");
}

TEST_F(PlaybackStopTest, AStopThatComesLateWhileStoppedIsNoEnd) {
  startPlaying(playRule::kRealOnly);
  stopWithoutNotification();
  screen.lngPlayRuler(playRule::kPreferReal);  // RealPlayer cannot stop: no stop is expected now
  time.advance(1500);
  trace.take();
  real().notify(RealPlayState::stopped);
  EXPECT_EQ(afterALongWhile(), "");
  EXPECT_EQ(screen.lngState(), playState::kStopped);
}

TEST_F(PlaybackStopTest, AStopThatComesEarlyWhileStoppedIsNoFailure) {
  startPlaying(playRule::kRealOnly);
  stopWithoutNotification();
  screen.lngPlayRuler(playRule::kRealOnly);
  ASSERT_TRUE(screen.playback().timRealPopuWinErrCheck.enabled());
  trace.take();
  real().notify(RealPlayState::stopped);
  EXPECT_EQ(afterALongWhile(), "");
}

TEST_F(PlaybackStopTest, AnEndThatIsNotifiedTwiceIsOneEnd) {
  startPlaying(playRule::kRealOnly);
  time.advance(1500);
  real().notify(RealPlayState::stopped);
  real().notify(RealPlayState::stopped);
  EXPECT_EQ(trace.take(), "wmp stop | wmp position 0 | PlayOver");
}

TEST_F(PlaybackStopTest, GivingUpOnAnActiveRealPlayerIsOneFailure) {
  screen.lngPlayRuler(playRule::kPreferMedia);
  orderStart("C:\\a.avi");
  wmp().mediaError.raise();
  time.advance(2);
  real().notify(RealPlayState::contacting);
  trace.take();
  real().errorMessage.raise();
  time.advance(1);
  real().notify(RealPlayState::stopped);
  EXPECT_EQ(afterALongWhile(),
            "wmp stop | wmp position 0 | real stop | wmp show | real hide | "
            "PlayErr 无法识别的文件格式.");
}

TEST_F(PlaybackStopTest, TheStopOrderedByGivingUpIsNoFailureOfTheNextAttempt) {
  orderStart("C:\\a.avi");
  real().notify(RealPlayState::contacting);
  real().errorMessage.raise();
  time.advance(2);
  ASSERT_TRUE(screen.play());
  time.advance(1);
  trace.take();
  real().notify(RealPlayState::stopped);
  EXPECT_EQ(afterALongWhile(), "");
  EXPECT_EQ(screen.lngState(), playState::kStarting);
}

TEST_F(PlaybackStopTest, TheEndOnMediaPlayerStopsARealPlayerLeftActiveAndIsOneEnd) {
  screen.lngPlayRuler(playRule::kPreferReal);
  orderStart("C:\\a.avi");
  real().notify(RealPlayState::contacting);
  real().errorMessage.raise();
  time.advance(1500);
  wmp().notify(MediaPlayState::playing);
  trace.take();
  wmp().notify(MediaPlayState::mediaEnded);
  real().notify(RealPlayState::stopped);
  EXPECT_EQ(afterALongWhile(),
            "wmp stop | wmp position 0 | real stop | real show | wmp hide | PlayOver");
}

TEST_F(PlaybackStopTest, ALateStopOfTheFailedRealPlayerLeavesMediaPlayerPlaying) {
  screen.lngPlayRuler(playRule::kPreferReal);
  orderStart("C:\\a.avi");
  real().notify(RealPlayState::contacting);
  real().errorMessage.raise();
  time.advance(1500);
  ASSERT_TRUE(screen.playback().mediaPlayerIsCurrent());
  trace.take();
  real().notify(RealPlayState::stopped);
  EXPECT_EQ(trace.take(), "");
  EXPECT_EQ(screen.lngState(), playState::kStarting);
}

TEST_F(PlaybackStopTest, AnEarlyStopOfTheFailedRealPlayerStartsMediaPlayerOnce) {
  screen.lngPlayRuler(playRule::kPreferReal);
  orderStart("C:\\a.avi");
  real().notify(RealPlayState::contacting);
  trace.take();
  real().errorMessage.raise();
  time.advance(2);
  real().notify(RealPlayState::stopped);
  time.advance(10);
  EXPECT_EQ(trace.take(), "wmp show | real hide | wmp position 0 | wmp play");
}

TEST_F(PlaybackStopTest, TheStopOfANewPathIsNoFailureOfTheItemThatStarts) {
  orderStart("C:\\a.avi");
  real().notify(RealPlayState::contacting);
  orderStart("C:\\b.avi");
  trace.take();
  real().notify(RealPlayState::stopped);
  EXPECT_EQ(afterALongWhile(), "");
  EXPECT_EQ(screen.lngState(), playState::kStarting);
}

TEST_F(PlaybackStopTest, AStopThatNeverComesSwallowsNoFailureOfTheNewItem) {
  startPlaying(playRule::kRealOnly);
  screen.strFilePath("C:\\b.avi");
  real().active = false;
  ASSERT_TRUE(screen.play());
  time.advance(1);
  real().notify(RealPlayState::contacting);
  trace.take();
  real().notify(RealPlayState::stopped);
  EXPECT_EQ(afterALongWhile(),
            "wmp stop | wmp position 0 | "
            "PlayErr Real Play无法播放该文件,请通过播放器选择列表使用Media Player重新尝试播放.");
}

TEST_F(PlaybackStopTest, AnOrderedStopIsExpectedOnce) {
  startPlaying(playRule::kRealOnly);
  orderStart("C:\\b.avi");
  real().notify(RealPlayState::stopped);
  real().notify(RealPlayState::contacting);
  ASSERT_FALSE(screen.playback().timRealErrDelay.enabled());
  real().notify(RealPlayState::stopped);
  EXPECT_TRUE(screen.playback().timRealErrDelay.enabled());
}

TEST_F(PlaybackStopTest, ANewPathLeavesItToTheSourceToStopRealPlayer) {
  startPlaying(playRule::kRealOnly);
  real().positionChange.raise(65000, 200000);
  trace.take();
  screen.strFilePath("C:\\b.avi");
  EXPECT_EQ(trace.take(), "wmp stop | wmp position 0 | wmp url C:\\b.avi | real source C:\\b.avi");
  EXPECT_EQ(screen.labMovieTimShow.caption(), "00:01:05 / 00:03:20");
}

TEST_F(PlaybackStopTest, APlayingThatComesAfterTheStartWasAbandonedSeeksNothing) {
  orderStart("C:\\a.avi");
  screen.strFilePath("C:\\b.avi");
  trace.take();
  real().notify(RealPlayState::playing);
  EXPECT_EQ(trace.take(), "real sound");
}

TEST_F(PlaybackStopTest, EnginesThatAreDetachedAreNotListenedTo) {
  FakeMediaPlayer media(trace);
  FakeRealPlayer realPlayer(trace);
  Playback playback(time, files, log);
  playback.attach(media, realPlayer);
  playback.detach();
  trace.take();
  media.notify(MediaPlayState::playing);
  media.mediaError.raise();
  realPlayer.notify(RealPlayState::playing);
  EXPECT_EQ(trace.take(), "");
  EXPECT_EQ(playback.lngState(), playState::kStopped);
}

TEST_F(PlaybackStopTest, AnItemThatFollowedWithoutAStopEndsWithItsOwn) {
  startPlaying(playRule::kRealOnly);
  orderStart("C:\\b.avi");
  real().notify(RealPlayState::contacting);
  real().notify(RealPlayState::playing);
  time.advance(2000);
  trace.take();
  real().notify(RealPlayState::stopped);
  EXPECT_NE(trace.take().find("PlayOver"), std::string::npos);
}

TEST_F(PlaybackStopTest, EveryStartOpensTheEarlyStopWindowAnew) {
  orderStart("C:\\a.avi");
  time.advance(1000);
  orderStart("C:\\b.avi");
  time.advance(1499);
  trace.take();
  real().notify(RealPlayState::stopped);
  EXPECT_TRUE(screen.playback().timRealErrDelay.enabled());
  EXPECT_EQ(trace.take(), "");
}

}  // namespace
}  // namespace tessivo
