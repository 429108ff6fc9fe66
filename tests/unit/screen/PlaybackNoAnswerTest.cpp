#include "unit/screen/ScreenFixture.h"

namespace tessivo {
namespace {

/// An engine that was told to play and neither plays nor fails.
class PlaybackNoAnswerTest : public ScreenFixture {
 protected:
  void start(std::int32_t rule) {
    screen.lngPlayRuler(rule);
    screen.strFilePath("C:\\a.avi");
    ASSERT_TRUE(screen.play());
    time.advance(1);
    trace.take();
  }
  void almost() {
    time.advance(Playback::kNoAnswerMs - 1);
    EXPECT_EQ(trace.take(), "");
    EXPECT_EQ(screen.lngState(), playState::kStarting);
  }
};

TEST_F(PlaybackNoAnswerTest, TheTimeIsThirtySeconds) {
  EXPECT_EQ(Playback::kNoAnswerMs, 30000);
}

TEST_F(PlaybackNoAnswerTest, OfMediaPlayerAloneIsItsFailure) {
  start(playRule::kMediaOnly);
  almost();
  time.advance(2);
  EXPECT_EQ(trace.take(),
            "wmp stop | wmp position 0 | "
            "PlayErr Media Play无法播放该文件,请通过播放器选择列表使用Real Player重新尝试播放.");
  EXPECT_EQ(screen.lngState(), playState::kStopped);
  EXPECT_EQ(log.lines.at(0), "error no answer of Media Player for 30 s: C:\\a.avi");
}

TEST_F(PlaybackNoAnswerTest, OfRealPlayerAloneIsItsFailureAndItIsStopped) {
  start(playRule::kRealOnly);
  real().notify(RealPlayState::contacting);
  almost();
  time.advance(1);
  EXPECT_EQ(trace.take(), "real stop | wmp stop | wmp position 0 | real stop");
  real().notify(RealPlayState::stopped);
  time.advance(1);
  EXPECT_EQ(trace.take(),
            "PlayErr Real Play无法播放该文件,请通过播放器选择列表使用Media Player重新尝试播放.");
  EXPECT_EQ(screen.lngState(), playState::kStopped);
}

TEST_F(PlaybackNoAnswerTest, TheOtherEngineHasItsTurnAndTheSameTime) {
  start(playRule::kPreferMedia);
  almost();
  time.advance(2);
  EXPECT_EQ(trace.take(), "wmp url C:\\a.avi | real show | wmp hide | real play");
  almost();
  time.advance(2);
  EXPECT_EQ(trace.take(),
            "wmp stop | wmp position 0 | wmp show | real hide | PlayErr 无法识别的文件格式.");
}

TEST_F(PlaybackNoAnswerTest, WhatRealPlayerSaysOfItsStopIsNoEnd) {
  start(playRule::kPreferReal);
  real().notify(RealPlayState::contacting);
  almost();
  time.advance(1);
  real().notify(RealPlayState::stopped);
  EXPECT_EQ(trace.take(), "real stop");
  time.advance(1);
  EXPECT_EQ(trace.take(), "wmp show | real hide | wmp position 0 | wmp play");
  wmp().notify(MediaPlayState::playing);
  trace.take();
  time.advance(2 * Playback::kNoAnswerMs);
  EXPECT_EQ(screen.lngState(), playState::kPlaying);
}

TEST_F(PlaybackNoAnswerTest, AlsoOfTheSecondEngineAfterTheFirstHasPlayedForAMoment) {
  start(playRule::kPreferReal);
  real().notify(RealPlayState::playing);
  real().notify(RealPlayState::stopped);  // too early: Media Player is to try
  time.advance(2);
  ASSERT_TRUE(screen.playback().mediaPlayerIsCurrent());
  time.advance(Playback::kNoAnswerMs - 1);
  ASSERT_EQ(screen.lngState(), playState::kPlaying);
  time.advance(2);
  EXPECT_EQ(screen.lngState(), playState::kStopped);
}

TEST_F(PlaybackNoAnswerTest, ThereIsNoneToWaitForOnceItPlays) {
  start(playRule::kMediaOnly);
  wmp().notify(MediaPlayState::playing);
  EXPECT_FALSE(screen.playback().timNoAnswer.enabled());
}

TEST_F(PlaybackNoAnswerTest, ThereIsNoneToWaitForAfterAnotherPath) {
  start(playRule::kMediaOnly);
  screen.strFilePath("C:\\b.avi");
  EXPECT_FALSE(screen.playback().timNoAnswer.enabled());
}

TEST_F(PlaybackNoAnswerTest, AResumeIsWaitedForAsWell) {
  startPlaying(playRule::kMediaOnly);
  screen.pause();
  wmp().notify(MediaPlayState::paused);
  ASSERT_TRUE(screen.play());
  time.advance(1);
  trace.take();
  almost();
  time.advance(2);
  EXPECT_EQ(screen.lngState(), playState::kStopped);
}

TEST_F(PlaybackNoAnswerTest, TheTimeBeginsAnewWithEachStart) {
  start(playRule::kMediaOnly);
  time.advance(Playback::kNoAnswerMs - 1000);
  start(playRule::kMediaOnly);
  almost();
}

TEST_F(PlaybackNoAnswerTest, AnUnknownRuleWaitsForNobody) {
  start(7);
  time.advance(2 * Playback::kNoAnswerMs);
  EXPECT_EQ(screen.lngState(), playState::kStarting);
}

}  // namespace
}  // namespace tessivo
