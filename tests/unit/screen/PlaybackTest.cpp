#include "unit/screen/ScreenFixture.h"

namespace tessivo {
namespace {

class PlaybackTest : public ScreenFixture {};

TEST_F(PlaybackTest, StartsStoppedWithTheStatedValues) {
  EXPECT_EQ(screen.lngState(), playState::kStopped);
  EXPECT_EQ(screen.lngPlayRuler(), playRule::kRealOnly);
  EXPECT_EQ(screen.intVolume(), 30);
  EXPECT_FALSE(screen.boolMute());
  EXPECT_EQ(screen.lngJinDu(), 0);
  EXPECT_TRUE(screen.boolReportJinDu());
  EXPECT_FALSE(screen.boolMaxSize());
  EXPECT_EQ(screen.strFilePath(), "");
  EXPECT_TRUE(real().visible());
  EXPECT_FALSE(wmp().visible());
  EXPECT_EQ(screen.labMovieTimShow.caption(), "00:00:00 / 00:00:00");
}

TEST_F(PlaybackTest, OnlyTheProgressTimerRunsAtFirst) {
  const Playback& playback = screen.playback();
  EXPECT_TRUE(playback.timMediaPlayJinDu.enabled());
  EXPECT_FALSE(playback.timMediaPlayDelay.enabled());
  EXPECT_FALSE(playback.timRealPlayDelay.enabled());
  EXPECT_FALSE(playback.timMediaErrDelay.enabled());
  EXPECT_FALSE(playback.timRealErrDelay.enabled());
  EXPECT_FALSE(playback.timErrDelay.enabled());
  EXPECT_FALSE(playback.timRealPopuWinErrCheck.enabled());
  EXPECT_FALSE(screen.timDelayRaiseClickEvent.enabled());
  EXPECT_FALSE(screen.timDBClickEvent.enabled());
}

TEST_F(PlaybackTest, TimersHaveTheirIntervals) {
  const Playback& playback = screen.playback();
  const std::vector<const ui::Timer*> nextTurn{
      &playback.timMediaPlayDelay, &playback.timRealPlayDelay, &playback.timMediaErrDelay,
      &playback.timRealErrDelay,   &playback.timErrDelay,      &screen.timDBClickEvent};
  for (const ui::Timer* timer : nextTurn) EXPECT_EQ(timer->interval(), 1) << timer->name();
  EXPECT_EQ(playback.timRealPopuWinErrCheck.interval(), 1500);
  EXPECT_EQ(playback.timMediaPlayJinDu.interval(), 1000);
  EXPECT_EQ(screen.timDelayRaiseClickEvent.interval(), 280);
  EXPECT_EQ(screen.timSetTimShowBackZOrder.interval(), 1000);
  EXPECT_EQ(screen.timFrmPosiReport.interval(), 2000);
}

TEST_F(PlaybackTest, ANewPathGoesToBothEnginesAndStartsNeither) {
  screen.strFilePath("C:\\a.avi");
  time.advance(5000);
  EXPECT_EQ(trace.take(), "wmp stop | wmp position 0 | wmp url C:\\a.avi | real source C:\\a.avi");
}

TEST_F(PlaybackTest, APathInDoubleQuotesIsUsedWithoutThem) {
  screen.strFilePath("\"C:\\a b.avi\"");
  EXPECT_EQ(screen.strFilePath(), "C:\\a b.avi");
}

TEST_F(PlaybackTest, TwoDoubleQuotesAloneAreKept) {
  screen.strFilePath("\"\"");
  EXPECT_EQ(screen.strFilePath(), "\"\"");
}

TEST_F(PlaybackTest, AQuoteAtOneEndOnlyIsKept) {
  screen.strFilePath("\"C:\\a.avi");
  EXPECT_EQ(screen.strFilePath(), "\"C:\\a.avi");
  screen.strFilePath("C:\\a.avi\"");
  EXPECT_EQ(screen.strFilePath(), "C:\\a.avi\"");
}

TEST_F(PlaybackTest, PlayWithoutAPathFailsLater) {
  EXPECT_FALSE(screen.play());
  EXPECT_EQ(trace.take(), "");
  time.advance(1);
  EXPECT_EQ(trace.take(), "PlayErr 播放路径为空.");
  time.advance(1000);
  EXPECT_EQ(trace.take(), "");
}

TEST_F(PlaybackTest, BlanksAreNoPath) {
  screen.strFilePath("   ");
  EXPECT_FALSE(screen.play());
  trace.take();
  time.advance(1);
  EXPECT_EQ(trace.take(), "PlayErr 播放路径为空.");
}

TEST_F(PlaybackTest, PlayOfAMissingFileFailsLater) {
  screen.strFilePath("C:\\gone.avi");
  EXPECT_FALSE(screen.play());
  EXPECT_EQ(screen.lngState(), playState::kStopped);
  trace.take();
  time.advance(1);
  EXPECT_EQ(trace.take(), "PlayErr 要播放的文件不存在.");
}

TEST_F(PlaybackTest, AWebAddressCountsAsExisting) {
  screen.strFilePath("rtsp://somewhere/HTTP.rm");
  EXPECT_TRUE(screen.play());
}

TEST_F(PlaybackTest, PlayWhileStartingOrPlayingIsRefusedSilently) {
  screen.strFilePath("C:\\a.avi");
  ASSERT_TRUE(screen.play());
  trace.take();
  EXPECT_FALSE(screen.play());
  EXPECT_EQ(screen.lngState(), playState::kStarting);
  time.advance(1);
  real().notify(RealPlayState::playing);
  trace.take();
  EXPECT_FALSE(screen.play());
  EXPECT_EQ(screen.lngState(), playState::kPlaying);
  time.advance(1);
  EXPECT_EQ(trace.take(), "");
}

TEST_F(PlaybackTest, RealPlayerStartsOnTheNextTurn) {
  screen.strFilePath("C:\\a.avi");
  trace.take();
  EXPECT_TRUE(screen.play());
  EXPECT_EQ(trace.take(), "");
  time.advance(1);
  EXPECT_EQ(trace.take(), "wmp url C:\\a.avi | real play");
  EXPECT_TRUE(screen.playback().timRealPopuWinErrCheck.enabled());
  time.advance(100);
  EXPECT_EQ(trace.take(), "");
}

TEST_F(PlaybackTest, RealPlayerPlayingIsSentToThePositionAndGetsTheMuteState) {
  screen.strFilePath("C:\\a.avi");
  screen.boolMute(true);
  screen.lngJinDu(65);
  screen.play();
  time.advance(1);
  trace.take();
  real().notify(RealPlayState::playing);
  EXPECT_EQ(trace.take(), "real position 65000 | real mute");
  EXPECT_EQ(screen.lngState(), playState::kPlaying);
}

TEST_F(PlaybackTest, ResumingRealPlayerDoesNotSendItBack) {
  startPlaying(playRule::kRealOnly);
  screen.pause();
  EXPECT_EQ(trace.take(), "real pause");
  EXPECT_EQ(screen.lngState(), playState::kPaused);
  EXPECT_TRUE(screen.play());
  time.advance(1);
  real().notify(RealPlayState::playing);
  EXPECT_EQ(trace.take(), "wmp url C:\\a.avi | real play | real sound");
}

TEST_F(PlaybackTest, MediaPlayerPlayingGetsTheMuteStateAgain) {
  screen.lngPlayRuler(playRule::kMediaOnly);
  screen.strFilePath("C:\\a.avi");
  screen.play();
  trace.take();
  time.advance(1);
  EXPECT_EQ(trace.take(), "wmp play");
  wmp().notify(MediaPlayState::playing);
  EXPECT_EQ(trace.take(), "wmp sound");
  EXPECT_EQ(screen.lngState(), playState::kPlaying);
}

TEST_F(PlaybackTest, MediaPlayerPlayingStaysMuted) {
  screen.lngPlayRuler(playRule::kMediaOnly);
  screen.strFilePath("C:\\a.avi");
  screen.boolMute(true);
  screen.play();
  time.advance(1);
  trace.take();
  wmp().notify(MediaPlayState::playing);
  EXPECT_EQ(trace.take(), "wmp mute");
}

TEST_F(PlaybackTest, PauseOutsidePlayingDoesNothing) {
  screen.pause();
  EXPECT_EQ(trace.take(), "");
  EXPECT_EQ(screen.lngState(), playState::kStopped);
}

TEST_F(PlaybackTest, PauseOfMediaPlayerPausesThatOne) {
  startPlaying(playRule::kMediaOnly);
  screen.pause();
  EXPECT_EQ(trace.take(), "wmp pause");
}

TEST_F(PlaybackTest, StopRunsTheResetStep) {
  startPlaying(playRule::kRealOnly);
  screen.lngJinDu(7);
  trace.take();
  screen.stopPlay();
  EXPECT_EQ(trace.take(), "wmp stop | wmp position 0 | real stop");
  EXPECT_EQ(screen.lngState(), playState::kStopped);
  EXPECT_EQ(screen.lngJinDu(), 0);
}

TEST_F(PlaybackTest, AnOrderedStopRaisesNothing) {
  startPlaying(playRule::kRealOnly);
  time.advance(1500);
  trace.take();
  screen.stopPlay();
  real().notify(RealPlayState::stopped);
  time.advance(5000);
  EXPECT_EQ(trace.take(), "wmp stop | wmp position 0 | real stop");
}

TEST_F(PlaybackTest, AStopThatANewPathBringsAboutRaisesNothing) {
  startPlaying(playRule::kRealOnly);
  time.advance(1500);
  screen.strFilePath("C:\\b.avi");
  trace.take();
  real().notify(RealPlayState::stopped);
  time.advance(5000);
  EXPECT_EQ(trace.take(), "");
}

TEST_F(PlaybackTest, AStopThatANewRuleBringsAboutRaisesNothing) {
  startPlaying(playRule::kRealOnly);
  time.advance(1500);
  screen.lngPlayRuler(playRule::kMediaOnly);
  trace.take();
  real().notify(RealPlayState::stopped);
  time.advance(5000);
  EXPECT_EQ(trace.take(), "");
}

TEST_F(PlaybackTest, LoadingGivesBothEnginesTheVolumeAndTheMuteState) {
  frmScreen another{{toolkit, time, displays, files, log, engines, windows, caughtWindows}};
  trace.take();
  another.load();
  EXPECT_NE(trace.take().find("wmp volume 30 | real volume 30 | wmp sound | real sound"),
            std::string::npos);
}

TEST_F(PlaybackTest, AnUnknownRuleStartsNoEngine) {
  screen.strFilePath("C:\\a.avi");
  screen.lngPlayRuler(7);
  screen.play();
  trace.take();
  time.advance(10);
  EXPECT_EQ(trace.take(), "");
}

TEST_F(PlaybackTest, AOneSecondItemHasAPercentage) {
  startPlaying(playRule::kMediaOnly);
  wmp().duration = 1;
  wmp().position = 1;
  time.advance(1000);
  EXPECT_EQ(trace.take(), "JinDu 100% 1=00:00:01 of 1=00:00:01");
}

TEST_F(PlaybackTest, AfterAnOrderedStopTheNextEndIsAnEnd) {
  startPlaying(playRule::kRealOnly);
  screen.stopPlay();
  real().notify(RealPlayState::stopped);
  startPlaying(playRule::kRealOnly);
  time.advance(1500);
  real().notify(RealPlayState::stopped);
  EXPECT_EQ(trace.take(), "wmp stop | wmp position 0 | PlayOver");
}

TEST_F(PlaybackTest, AStopOrderedFromAnEngineThatSaysNothingSwallowsNoLaterEnd) {
  startPlaying(playRule::kRealOnly);
  screen.strFilePath("C:\\b.avi");
  real().active = false;
  ASSERT_TRUE(screen.play());
  time.advance(1);
  real().notify(RealPlayState::playing);
  time.advance(1500);
  trace.take();
  real().notify(RealPlayState::stopped);
  EXPECT_EQ(trace.take(), "wmp stop | wmp position 0 | PlayOver");
}

TEST_F(PlaybackTest, StopWhileStoppedOrStartingDoesNothing) {
  screen.stopPlay();
  EXPECT_EQ(trace.take(), "");
  screen.strFilePath("C:\\a.avi");
  screen.play();
  trace.take();
  screen.stopPlay();
  EXPECT_EQ(trace.take(), "");
  EXPECT_EQ(screen.lngState(), playState::kStarting);
}

TEST_F(PlaybackTest, ANewPathAbandonsAPendingStart) {
  screen.strFilePath("C:\\a.avi");
  screen.play();
  screen.strFilePath("C:\\b.avi");
  trace.take();
  time.advance(5);
  EXPECT_EQ(trace.take(), "");
  EXPECT_EQ(screen.lngState(), playState::kStopped);
}

TEST_F(PlaybackTest, ANewRuleAbandonsAPendingStartAndShowsItsEngine) {
  screen.strFilePath("C:\\a.avi");
  screen.play();
  trace.take();
  screen.lngPlayRuler(playRule::kPreferMedia);
  EXPECT_EQ(trace.take(), "wmp stop | wmp position 0 | wmp show | real hide");
  time.advance(5);
  EXPECT_EQ(trace.take(), "");
}

TEST_F(PlaybackTest, AnUnknownRuleLeavesTheEngineAsItWas) {
  screen.lngPlayRuler(playRule::kMediaOnly);
  screen.lngPlayRuler(7);
  EXPECT_EQ(screen.lngPlayRuler(), 7);
  EXPECT_TRUE(wmp().visible());
  EXPECT_FALSE(real().visible());
}

TEST_F(PlaybackTest, TheEndOnMediaPlayerResetsAndReports) {
  startPlaying(playRule::kMediaOnly);
  wmp().notify(MediaPlayState::mediaEnded);
  EXPECT_EQ(trace.take(), "wmp stop | wmp position 0 | PlayOver");
  EXPECT_EQ(screen.lngState(), playState::kStopped);
}

TEST_F(PlaybackTest, OtherMediaStatesAreIgnored) {
  startPlaying(playRule::kMediaOnly);
  wmp().notify(MediaPlayState::paused);
  wmp().notify(MediaPlayState::stopped);
  EXPECT_EQ(trace.take(), "");
  EXPECT_EQ(screen.lngState(), playState::kPlaying);
}

TEST_F(PlaybackTest, VolumeAndMuteGoToBothEngines) {
  screen.intVolume(55);
  screen.boolMute(true);
  EXPECT_EQ(trace.take(), "wmp volume 55 | real volume 55 | wmp mute | real mute");
  EXPECT_EQ(screen.intVolume(), 55);
  EXPECT_TRUE(screen.boolMute());
}

TEST_F(PlaybackTest, APositionGoesToBothEngines) {
  EXPECT_TRUE(screen.lngJinDu(65));
  EXPECT_EQ(trace.take(), "wmp position 65 | real position 65000");
}

TEST_F(PlaybackTest, APositionTooLargeForMillisecondsFailsAfterMediaPlayer) {
  EXPECT_TRUE(screen.lngJinDu(2147483));
  trace.take();
  EXPECT_FALSE(screen.lngJinDu(2147484));
  EXPECT_EQ(trace.take(), "wmp position 2.14748e+06");
  EXPECT_EQ(screen.lngJinDu(), 2147484);
}

TEST_F(PlaybackTest, ReadingThePositionWhileRealPlayerPlaysGivesTheStoredOne) {
  startPlaying(playRule::kRealOnly);
  screen.lngJinDu(12);
  real().positionChange.raise(40000, 200000);
  EXPECT_EQ(screen.lngJinDu(), 12);
}

TEST_F(PlaybackTest, APositionReadFromMediaPlayerIsKeptWhenRealPlayerTakesOver) {
  startPlaying(playRule::kPreferMedia);
  wmp().position = 12;
  ASSERT_EQ(screen.lngJinDu(), 12);
  wmp().mediaError.raise();
  time.advance(2);
  ASSERT_FALSE(screen.playback().mediaPlayerIsCurrent());
  EXPECT_EQ(screen.lngJinDu(), 12);
}

TEST_F(PlaybackTest, ReadingThePositionOfMediaPlayerRoundsHalfToEven) {
  startPlaying(playRule::kMediaOnly);
  wmp().position = 12.5;
  EXPECT_EQ(screen.lngJinDu(), 12);
  wmp().position = 32767.4;
  EXPECT_EQ(screen.lngJinDu(), 32767);
}

TEST_F(PlaybackTest, ReadingAPositionBeyondSixteenBitsFails) {
  startPlaying(playRule::kMediaOnly);
  wmp().position = 32768;
  EXPECT_EQ(screen.lngJinDu(), std::nullopt);
}

TEST_F(PlaybackTest, TheLengthIsRoundedToSeconds) {
  real().length = 2500;
  EXPECT_EQ(screen.lngFileLength(), 2);
  real().length = 2501;
  EXPECT_EQ(screen.lngFileLength(), 3);
  screen.lngPlayRuler(playRule::kMediaOnly);
  EXPECT_EQ(screen.lngFileLength(), 0);
  wmp().duration = 199.6;
  EXPECT_EQ(screen.lngFileLength(), 200);
}

TEST_F(PlaybackTest, MediaPlayerReportsEverySecondWhilePlaying) {
  startPlaying(playRule::kMediaOnly);
  wmp().duration = 200;
  wmp().position = 65;
  time.advance(1000);
  time.advance(1000);
  const std::string once = "JinDu 32% 65=00:01:05 of 200=00:03:20";
  EXPECT_EQ(trace.take(), once + " | " + once);
  EXPECT_EQ(screen.labMovieTimShow.caption(), "00:01:05 / 00:03:20");
}

TEST_F(PlaybackTest, MediaPlayersTimesAreRoundedToSeconds) {
  startPlaying(playRule::kMediaOnly);
  wmp().duration = 199.6;
  wmp().position = 64.6;
  time.advance(1000);
  EXPECT_EQ(trace.take(), "JinDu 32% 65=00:01:05 of 200=00:03:20");
}

TEST_F(PlaybackTest, MediaPlayerReportsNothingUnlessItPlays) {
  startPlaying(playRule::kMediaOnly);
  wmp().state = MediaPlayState::paused;
  time.advance(3000);
  EXPECT_EQ(trace.take(), "");
}

TEST_F(PlaybackTest, MediaPlayerWithoutMediaReportsZeroTimes) {
  startPlaying(playRule::kMediaOnly);
  wmp().position = 3;
  time.advance(1000);
  EXPECT_EQ(trace.take(), "JinDu 0% 3=00:00:00 of 0=00:00:00");
}

TEST_F(PlaybackTest, ASecondThatDoesNotChangeIsReportedOnceByRealPlayer) {
  startPlaying(playRule::kRealOnly);
  real().positionChange.raise(65000, 200900);
  real().positionChange.raise(65999, 200900);
  EXPECT_EQ(trace.take(), "JinDu 32% 65=00:01:05 of 200=00:03:20");
  EXPECT_EQ(screen.labMovieTimShow.caption(), "00:01:05 / 00:03:20");
  real().positionChange.raise(66000, 0);
  EXPECT_EQ(trace.take(), "JinDu 0% 66=00:01:06 of 0=00:00:00");
}

TEST_F(PlaybackTest, AfterAResetTheLabelKeepsTheTotal) {
  startPlaying(playRule::kRealOnly);
  real().positionChange.raise(65000, 200000);
  screen.stopPlay();
  EXPECT_EQ(screen.labMovieTimShow.caption(), "00:00:00 / 00:03:20");
}

TEST_F(PlaybackTest, ALightResetLeavesTheLabel) {
  startPlaying(playRule::kRealOnly);
  real().positionChange.raise(65000, 200000);
  time.advance(1500);
  real().notify(RealPlayState::stopped);
  EXPECT_EQ(screen.labMovieTimShow.caption(), "00:01:05 / 00:03:20");
}

TEST_F(PlaybackTest, PlayingIsLoggedWithEngineAndLength) {
  real().length = 200000;
  startPlaying(playRule::kRealOnly);
  ASSERT_FALSE(log.lines.empty());
  EXPECT_EQ(log.lines.back(), "info playing: C:\\a.avi | RealPlayer | 00:03:20");
}

TEST_F(PlaybackTest, PlayingThatIsNotifiedTwiceIsLoggedOnce) {
  startPlaying(playRule::kMediaOnly);
  const auto lines = log.lines.size();
  wmp().notify(MediaPlayState::playing);
  EXPECT_EQ(log.lines.size(), lines);
}

TEST_F(PlaybackTest, AfterUnloadingNothingRunsAndCallsAreHarmless) {
  startPlaying(playRule::kRealOnly);
  screen.unloadScreen();
  EXPECT_EQ(time.running(), 0U);
  trace.take();
  screen.strFilePath("C:\\b.avi");
  screen.stopPlay();
  screen.pause();
  screen.intVolume(1);
  screen.boolMute(true);
  EXPECT_TRUE(screen.lngJinDu(1));
  EXPECT_FALSE(screen.play());
  EXPECT_EQ(screen.lngFileLength(), 0);
  EXPECT_EQ(trace.take(), "");
}

}  // namespace
}  // namespace tessivo
