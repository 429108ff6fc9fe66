// Random operations, notifications and waiting, and what must hold after each of them.
#include <cmath>
#include <limits>
#include <random>
#include <set>

#include "unit/screen/ScreenFixture.h"

namespace tessivo {
namespace {

constexpr int kSteps = 40'000;

class PlaybackRandomWalkTest : public ScreenFixture, public testing::WithParamInterface<unsigned> {
 protected:
  PlaybackRandomWalkTest() : random_(GetParam()) {}

  void SetUp() override {
    ScreenFixture::SetUp();
    screen.PlayErr.listen([this](const std::string& reason) { noteError(reason); });
    screen.PlayOver.listen([this] { noteEnd(); });
  }

  void step() {
    const int kind = below(100);
    if (kind < 40) return operation();
    if (kind < 75) return notification();
    if (kind < 80) return engineChanges();
    wait();
  }

  void checkInvariants() {
    ASSERT_GE(screen.lngState(), 1);
    ASSERT_LE(screen.lngState(), 4);
    ASSERT_NE(wmp().visible(), real().visible());
    ASSERT_EQ(wmp().visible(), screen.playback().mediaPlayerIsCurrent());
    ASSERT_TRUE(screen.playback().timMediaPlayJinDu.enabled());
    trace.take();
  }

  int errors = 0;
  int ends = 0;
  int starts = 0;
  std::set<std::int32_t> states;

 private:
  enum class Caller { timer, operation, notification, endNotification };

  int below(int end) { return std::uniform_int_distribution<int>(0, end - 1)(random_); }
  bool chance(int percent) { return below(100) < percent; }
  std::int32_t anyInt32() {
    return static_cast<std::int32_t>(std::uniform_int_distribution<std::int64_t>(
        std::numeric_limits<std::int32_t>::min(),
        std::numeric_limits<std::int32_t>::max())(random_));
  }
  double anySeconds() {
    const double odd[] = {0, 0.5, 32767.4, 32768, 1e300, -1e300, HUGE_VAL, std::nan("")};
    return chance(50) ? odd[below(8)] : anyInt32() * 1.5;
  }
  std::string anyPath() {
    const char* const paths[] = {"C:\\a.avi",    "C:\\b.avi", "\"C:\\a.avi\"", "http://a",
                                 "C:\\gone.avi", "",          "\"\""};
    return paths[chance(70) ? below(4) : below(7)];
  }
  std::int32_t anyRule() { return chance(90) ? below(4) : anyInt32(); }

  void noteError(const std::string& reason) {
    static const std::set<std::string> reasons{
        "播放路径为空.",
        "要播放的文件不存在.",
        "无法识别的文件格式",
        "无法识别的文件格式.",
        "Media Play无法播放该文件,请通过播放器选择列表使用Real Player重新尝试播放.",
        "Real Play无法播放该文件,请通过播放器选择列表使用Media Player重新尝试播放."};
    ++errors;
    EXPECT_TRUE(reasons.contains(reason)) << reason;
    EXPECT_EQ(caller_, Caller::timer) << "PlayErr inside the call that caused it";
  }
  void noteEnd() {
    ++ends;
    EXPECT_EQ(caller_, Caller::endNotification) << "PlayOver outside the notification of an end";
    EXPECT_EQ(screen.lngState(), playState::kStopped);
    expectNoHop();
    if (chance(50)) {  // the owner plays the next item, or the same one again
      if (chance(50)) screen.strFilePath(anyPath());
      screen.play();
    }
  }
  void expectNoHop() {
    const Playback& playback = screen.playback();
    EXPECT_FALSE(playback.timMediaPlayDelay.enabled());
    EXPECT_FALSE(playback.timRealPlayDelay.enabled());
    EXPECT_FALSE(playback.timMediaErrDelay.enabled());
    EXPECT_FALSE(playback.timRealErrDelay.enabled());
  }
  void expectReset() {
    EXPECT_EQ(screen.lngState(), playState::kStopped);
    expectNoHop();
  }

  void operation() {
    caller_ = Caller::operation;
    switch (below(10)) {
      case 0:
      case 1:
      case 2:
      case 3:
        play();
        break;
      case 4:
        pause();
        break;
      case 5:
        stopPlay();
        break;
      case 6:
        screen.strFilePath(anyPath());
        expectReset();
        break;
      case 7:
        screen.lngPlayRuler(anyRule());
        expectReset();
        break;
      case 8:
        chance(50) ? screen.intVolume(static_cast<std::int16_t>(anyInt32()))
                   : screen.boolMute(chance(50));
        break;
      default:
        screen.lngJinDu(anyInt32());
        screen.lngJinDu();
        screen.lngFileLength();
    }
    caller_ = Caller::timer;
  }
  void play() {
    const std::int32_t before = screen.lngState();
    if (!screen.play()) {
      EXPECT_EQ(screen.lngState(), before);
      return;
    }
    ++starts;
    EXPECT_TRUE(before == playState::kStopped || before == playState::kPaused) << before;
    EXPECT_EQ(screen.lngState(), playState::kStarting);
  }
  void pause() {
    const std::int32_t before = screen.lngState();
    screen.pause();
    EXPECT_EQ(screen.lngState(), before == playState::kPlaying ? playState::kPaused : before);
  }
  void stopPlay() {
    const std::int32_t before = screen.lngState();
    screen.stopPlay();
    if (before == playState::kPlaying || before == playState::kPaused) return expectReset();
    EXPECT_EQ(screen.lngState(), before);
  }

  void notification() {
    caller_ = Caller::notification;
    switch (below(8)) {
      case 0: {
        const auto now = static_cast<MediaPlayState>(below(10));
        if (now == MediaPlayState::mediaEnded) caller_ = Caller::endNotification;
        wmp().notify(now);
        break;
      }
      case 1:
        wmp().notify(MediaPlayState::playing);
        EXPECT_EQ(screen.lngState(), playState::kPlaying);
        break;
      case 2:
        wmp().mediaError.raise();
        break;
      case 3:
        real().notify(static_cast<RealPlayState>(1 + below(4)));
        break;
      case 4:
        realStops();
        break;
      case 5:
        real().notify(RealPlayState::playing);
        EXPECT_EQ(screen.lngState(), playState::kPlaying);
        break;
      case 6:
        real().errorMessage.raise();
        break;
      default:
        real().positionChange.raise(anyInt32(), chance(10) ? 0 : anyInt32());
    }
    caller_ = Caller::timer;
  }
  void realStops() {
    const int endsBefore = ends;
    const bool nothingToEnd =
        screen.lngState() == playState::kStopped || screen.playback().mediaPlayerIsCurrent();
    caller_ = Caller::endNotification;
    real().notify(RealPlayState::stopped);
    if (nothingToEnd) {
      EXPECT_EQ(ends, endsBefore);
    }
  }
  void engineChanges() {
    if (chance(50)) real().active = chance(50);
    real().length = anyInt32();
    wmp().position = anySeconds();
    wmp().duration = chance(20) ? std::nullopt : std::optional<double>(anySeconds());
  }

  void wait() {
    if (chance(20)) time.advance(static_cast<std::uint64_t>(below(3000)));
    if (chance(40)) return time.advance(1);
    time.advance(2);
    expectNoHop();
    EXPECT_FALSE(screen.playback().timErrDelay.enabled());
  }

  std::mt19937 random_;
  Caller caller_ = Caller::timer;
};

TEST_P(PlaybackRandomWalkTest, TheRulesHoldAfterEveryStep) {
  for (int i = 0; i < kSteps; ++i) {
    step();
    checkInvariants();
    states.insert(screen.lngState());
    ASSERT_FALSE(HasFailure()) << "at step " << i;
  }
  // The walk went everywhere.
  EXPECT_EQ(states, (std::set<std::int32_t>{1, 2, 3, 4}));
  EXPECT_GT(starts, 100);
  EXPECT_GT(errors, 100);
  EXPECT_GT(ends, 100);
}

INSTANTIATE_TEST_SUITE_P(Seeds, PlaybackRandomWalkTest, testing::Values(1U, 2U, 3U, 4U, 5U));

}  // namespace
}  // namespace tessivo
