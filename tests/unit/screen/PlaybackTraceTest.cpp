// The route of a play request, rule by rule: what happens to the engines, the states and the
// events, in order.
#include "unit/screen/PlaybackTrace.h"

namespace tessivo {
namespace {

// Rule 0: RealPlayer first, then Media Player.

class PreferRealTrace : public PlaybackTraceTest {
 protected:
  void SetUp() override {
    PlaybackTraceTest::SetUp();
    useRule(0);
  }
};

TEST_F(PreferRealTrace, TheFirstPlays) {
  play();
  pass(1);
  currentPlays();
  pass(10);
  EXPECT_EQ(trace.take(), "=4 | wmp url a | real play | real position 0 | real sound | =1");
}

TEST_F(PreferRealTrace, TheFirstFailsAndTheSecondPlays) {
  play();
  pass(1);
  currentFails();
  pass(2);
  currentPlays();
  pass(10);
  EXPECT_EQ(trace.take(),
            "=4 | wmp url a | real play | "
            "wmp show | real hide | wmp position 0 | wmp play | wmp sound | =1");
}

TEST_F(PreferRealTrace, BothFail) {
  play();
  pass(1);
  currentFails();
  pass(2);
  currentFails();
  pass(10);
  EXPECT_EQ(trace.take(),
            "=4 | wmp url a | real play | "
            "wmp show | real hide | wmp position 0 | wmp play | "
            "wmp clear errors | wmp stop | wmp position 0 | real show | wmp hide | =2 | "
            "PlayErr 无法识别的文件格式");
}

TEST_F(PreferRealTrace, AnEarlyStopOfRealPlayerStartsMediaPlayer) {
  play();
  pass(1);
  currentPlays();
  pass(1499);
  realStops();
  pass(10);
  EXPECT_EQ(trace.take(),
            "=4 | wmp url a | real play | real position 0 | real sound | =1 | "
            "wmp show | real hide | wmp play");
}

TEST_F(PreferRealTrace, ALateStopOfRealPlayerIsTheEnd) {
  play();
  pass(1);
  currentPlays();
  pass(1500);
  realStops();
  pass(10);
  EXPECT_EQ(trace.take(),
            "=4 | wmp url a | real play | real position 0 | real sound | =1 | "
            "wmp stop | wmp position 0 | =2 | PlayOver");
}

TEST_F(PreferRealTrace, TheSecondEnds) {
  play();
  pass(1);
  currentFails();
  pass(2);
  currentPlays();
  trace.take();
  wmp().notify(MediaPlayState::mediaEnded);
  pass(10);
  EXPECT_EQ(trace.take(), "wmp stop | wmp position 0 | real show | wmp hide | =2 | PlayOver");
}

TEST_F(PreferRealTrace, AnOrderedStopOfTheFirst) {
  play();
  pass(1);
  currentPlays();
  trace.take();
  screen.stopPlay();
  noteState();
  pass(2000);
  realStops();
  pass(10);
  EXPECT_EQ(trace.take(), "wmp stop | wmp position 0 | real stop | =2");
}

TEST_F(PreferRealTrace, AnOrderedStopOfTheSecond) {
  play();
  pass(1);
  currentFails();
  pass(2);
  currentPlays();
  trace.take();
  screen.stopPlay();
  noteState();
  wmp().notify(MediaPlayState::stopped);
  pass(2000);
  EXPECT_EQ(trace.take(), "wmp stop | wmp position 0 | real show | wmp hide | =2");
}

// Rule 1: Media Player first, then RealPlayer.

class PreferMediaTrace : public PlaybackTraceTest {
 protected:
  void SetUp() override {
    PlaybackTraceTest::SetUp();
    useRule(1);
  }
};

TEST_F(PreferMediaTrace, TheFirstPlays) {
  play();
  pass(1);
  currentPlays();
  pass(10);
  EXPECT_EQ(trace.take(), "=4 | wmp play | wmp sound | =1");
}

TEST_F(PreferMediaTrace, TheFirstFailsAndTheSecondPlays) {
  play();
  pass(1);
  currentFails();
  pass(2);
  currentPlays();
  pass(10);
  EXPECT_EQ(trace.take(),
            "=4 | wmp play | wmp clear errors | "
            "wmp url a | real show | wmp hide | real play | real position 0 | real sound | =1");
}

TEST_F(PreferMediaTrace, BothFail) {
  play();
  pass(1);
  currentFails();
  pass(2);
  currentFails();
  pass(10);
  EXPECT_EQ(trace.take(),
            "=4 | wmp play | wmp clear errors | "
            "wmp url a | real show | wmp hide | real play | "
            "wmp stop | wmp position 0 | wmp show | real hide | =2 | "
            "PlayErr 无法识别的文件格式.");
}

TEST_F(PreferMediaTrace, AnEarlyStopOfRealPlayerIsTheFailureOfTheSecond) {
  play();
  pass(1);
  currentFails();
  pass(2);
  pass(1499);
  realStops();
  pass(10);
  EXPECT_EQ(trace.take(),
            "=4 | wmp play | wmp clear errors | "
            "wmp url a | real show | wmp hide | real play | "
            "wmp stop | wmp position 0 | wmp show | real hide | =2 | "
            "PlayErr 无法识别的文件格式.");
}

TEST_F(PreferMediaTrace, ALateStopOfRealPlayerIsTheEnd) {
  play();
  pass(1);
  currentFails();
  pass(2);
  currentPlays();
  pass(1500);
  trace.take();
  realStops();
  pass(10);
  EXPECT_EQ(trace.take(), "wmp stop | wmp position 0 | wmp show | real hide | =2 | PlayOver");
}

TEST_F(PreferMediaTrace, TheFirstEnds) {
  play();
  pass(1);
  currentPlays();
  trace.take();
  wmp().notify(MediaPlayState::mediaEnded);
  pass(10);
  EXPECT_EQ(trace.take(), "wmp stop | wmp position 0 | =2 | PlayOver");
}

TEST_F(PreferMediaTrace, AnOrderedStopOfTheFirst) {
  play();
  pass(1);
  currentPlays();
  trace.take();
  screen.stopPlay();
  noteState();
  wmp().notify(MediaPlayState::stopped);
  pass(2000);
  EXPECT_EQ(trace.take(), "wmp stop | wmp position 0 | =2");
}

TEST_F(PreferMediaTrace, AnOrderedStopOfTheSecond) {
  play();
  pass(1);
  currentFails();
  pass(2);
  currentPlays();
  trace.take();
  screen.stopPlay();
  noteState();
  realStops();
  pass(2000);
  EXPECT_EQ(trace.take(), "wmp stop | wmp position 0 | real stop | wmp show | real hide | =2");
}

// Rule 2: RealPlayer only.

class RealOnlyTrace : public PlaybackTraceTest {
 protected:
  void SetUp() override {
    PlaybackTraceTest::SetUp();
    useRule(2);
  }
};

TEST_F(RealOnlyTrace, ItPlays) {
  play();
  pass(1);
  currentPlays();
  pass(10);
  EXPECT_EQ(trace.take(), "=4 | wmp url a | real play | real position 0 | real sound | =1");
}

TEST_F(RealOnlyTrace, ItFails) {
  play();
  pass(1);
  currentFails();
  pass(10);
  EXPECT_EQ(trace.take(),
            "=4 | wmp url a | real play | wmp stop | wmp position 0 | =2 | "
            "PlayErr Real Play无法播放该文件,请通过播放器选择列表使用Media Player重新尝试播放.");
}

TEST_F(RealOnlyTrace, AnErrorOfMediaPlayerChangesNothing) {
  play();
  pass(1);
  otherFails();
  pass(10);
  currentPlays();
  otherFails();
  pass(10);
  EXPECT_EQ(trace.take(),
            "=4 | wmp url a | real play | wmp clear errors | "
            "real position 0 | real sound | =1 | wmp clear errors");
}

TEST_F(RealOnlyTrace, AnEarlyStopIsItsFailure) {
  play();
  pass(1);
  pass(1499);
  realStops();
  pass(10);
  EXPECT_EQ(trace.take(),
            "=4 | wmp url a | real play | wmp stop | wmp position 0 | =2 | "
            "PlayErr Real Play无法播放该文件,请通过播放器选择列表使用Media Player重新尝试播放.");
}

TEST_F(RealOnlyTrace, ALateStopIsTheEndEvenWhenItNeverPlayed) {
  play();
  pass(1);
  pass(1500);
  realStops();
  pass(10);
  EXPECT_EQ(trace.take(), "=4 | wmp url a | real play | wmp stop | wmp position 0 | =2 | PlayOver");
}

TEST_F(RealOnlyTrace, AnOrderedStopWhilePaused) {
  play();
  pass(1);
  currentPlays();
  trace.take();
  screen.pause();
  noteState();
  real().notify(RealPlayState::paused);
  screen.stopPlay();
  noteState();
  realStops();
  pass(2000);
  EXPECT_EQ(trace.take(), "real pause | =3 | wmp stop | wmp position 0 | real stop | =2");
}

// Rule 3: Media Player only.

class MediaOnlyTrace : public PlaybackTraceTest {
 protected:
  void SetUp() override {
    PlaybackTraceTest::SetUp();
    useRule(3);
  }
};

TEST_F(MediaOnlyTrace, ItPlays) {
  play();
  pass(1);
  currentPlays();
  pass(10);
  EXPECT_EQ(trace.take(), "=4 | wmp play | wmp sound | =1");
}

TEST_F(MediaOnlyTrace, ItFails) {
  play();
  pass(1);
  currentFails();
  pass(10);
  EXPECT_EQ(trace.take(),
            "=4 | wmp play | wmp clear errors | wmp stop | wmp position 0 | =2 | "
            "PlayErr Media Play无法播放该文件,请通过播放器选择列表使用Real Player重新尝试播放.");
}

TEST_F(MediaOnlyTrace, AnErrorOfRealPlayerChangesNothing) {
  play();
  pass(1);
  otherFails();
  pass(10);
  currentPlays();
  otherFails();
  pass(10);
  EXPECT_EQ(trace.take(), "=4 | wmp play | wmp sound | =1");
}

TEST_F(MediaOnlyTrace, AStopOfRealPlayerChangesNothing) {
  play();
  pass(1);
  realStops();
  pass(10);
  currentPlays();
  realStops();
  pass(10);
  EXPECT_EQ(trace.take(), "=4 | wmp play | wmp sound | =1");
}

TEST_F(MediaOnlyTrace, TheEnd) {
  play();
  pass(1);
  currentPlays();
  trace.take();
  wmp().notify(MediaPlayState::mediaEnded);
  pass(10);
  EXPECT_EQ(trace.take(), "wmp stop | wmp position 0 | =2 | PlayOver");
}

TEST_F(MediaOnlyTrace, AnOrderedStopWhilePaused) {
  play();
  pass(1);
  currentPlays();
  trace.take();
  screen.pause();
  noteState();
  wmp().notify(MediaPlayState::paused);
  screen.stopPlay();
  noteState();
  wmp().notify(MediaPlayState::stopped);
  pass(2000);
  EXPECT_EQ(trace.take(), "wmp pause | =3 | wmp stop | wmp position 0 | =2");
}

}  // namespace
}  // namespace tessivo
