// Every operation and every notification in every state, with either engine as the current one.
#include "unit/screen/PlaybackStateTable.h"

#include "unit/screen/ScreenFixture.h"

namespace tessivo {
namespace {

using namespace stateTable;

struct Cell {
  const Row* row;
  bool mediaIsCurrent;
  std::int32_t state;
};

/// Keeps bytes out of the report.
void PrintTo(const Cell& cell, std::ostream* out) {
  *out << cell.row->name << " in state " << cell.state;
}

std::vector<Cell> allCells() {
  std::vector<Cell> cells;
  for (const Row& row : kTable) {
    for (const bool media : {false, true}) {
      for (std::int32_t state = 1; state <= 4; ++state) cells.push_back({&row, media, state});
    }
  }
  return cells;
}

class PlaybackStateTableTest : public ScreenFixture, public testing::WithParamInterface<Cell> {
 protected:
  void SetUp() override {
    ScreenFixture::SetUp();
    screen.PlayErr.listen([this](const std::string& reason) { events += " " + brief(reason); });
    screen.PlayOver.listen([this] { events += " PlayOver"; });
    screen.JinDu.listen([this](int, int position, const std::string&, int, const std::string&) {
      events += " JinDu " + std::to_string(position);
    });
  }

  static std::string brief(const std::string& reason) {
    if (reason == "播放路径为空.") return "empty";
    if (reason == "要播放的文件不存在.") return "missing";
    const std::string only = "无法播放该文件,请通过播放器选择列表使用";
    if (reason == "Real Play" + only + "Media Player重新尝试播放.") return "real only";
    if (reason == "Media Play" + only + "Real Player重新尝试播放.") return "media only";
    return "unexpected: " + reason;
  }

  /// RealPlayer was stopped while it played; `owesStop`: its notification is still to come, and it
  /// is active until then.
  void stopRealPlayerBefore(bool owesStop) {
    startPlaying(playRule::kRealOnly);
    if (!owesStop) real().active = false;
    screen.stopPlay();
  }

  void bringInto(std::int32_t state, bool media) {
    screen.lngPlayRuler(media ? playRule::kMediaOnly : playRule::kRealOnly);
    screen.strFilePath("C:\\a.avi");
    if (state == playState::kStopped) return;
    ASSERT_TRUE(screen.play());
    time.advance(1);
    if (!media) real().notify(RealPlayState::contacting);
    if (state == playState::kStarting) return;
    media ? wmp().notify(MediaPlayState::playing) : real().notify(RealPlayState::playing);
    if (state == playState::kPaused) screen.pause();
  }

  std::string carryOut(Input input) {
    if (input <= Input::playWebAddress) return playWith(input);
    if (input < Input::mediaPlaying) return operate(input);
    if (input <= Input::mediaError) return notifyOfMedia(input);
    return notifyOfReal(input);
  }

  std::string events;

 private:
  static std::string text(bool value) { return value ? "true" : "false"; }
  std::string shown() {
    return std::string(wmp().visible() ? "media" : "") + (real().visible() ? "real" : "");
  }

  std::string playWith(Input input) {
    if (input == Input::playEmptyPath) wmp().setUrl("");
    if (input == Input::playWebAddress) wmp().setUrl("http://a/b");
    if (input == Input::playMissingFile) files.existing.clear();
    return text(screen.play());
  }
  std::string setRule(std::int32_t rule) {
    screen.lngPlayRuler(rule);
    return shown();
  }
  std::string position(double ofMediaPlayer) {
    screen.lngJinDu(7);
    wmp().position = ofMediaPlayer;
    const auto seconds = screen.lngJinDu();
    return seconds ? std::to_string(*seconds) : "error";
  }
  std::string length() {
    real().length = 2501;
    wmp().duration = 199.6;
    return std::to_string(screen.lngFileLength());
  }
  std::string menu() {
    screen.popuCtrlMenu();
    std::string enabled;
    const ui::MenuItem& root = screen.menu().mnuPopuMenu();
    for (std::size_t i = 0; i < root.count(); ++i) {
      const std::string& name = root.item(i).name();
      if (name != "mnuPlay" && name != "mnuPause" && name != "mnuStop") continue;
      if (!root.item(i).enabled()) continue;
      enabled += enabled.empty() ? "" : "+";
      enabled += name == "mnuPlay" ? "play" : name == "mnuPause" ? "pause" : "stop";
    }
    return enabled;
  }

  std::string operate(Input input) {
    switch (input) {
      case Input::pause:
        screen.pause();
        return "-";
      case Input::stopPlay:
        screen.stopPlay();
        return "-";
      case Input::newPath:
        screen.strFilePath("C:\\b.avi");
        return shown();
      case Input::newRule0:
        return setRule(0);
      case Input::newRule1:
        return setRule(1);
      case Input::newRule2:
        return setRule(2);
      case Input::newRule3:
        return setRule(3);
      case Input::newUnknownRule:
        return setRule(4);
      case Input::setVolume:
        screen.intVolume(55);
        return std::to_string(screen.intVolume());
      case Input::setMute:
        screen.boolMute(true);
        return text(screen.boolMute());
      case Input::getPosition:
        return position(12.5);
      case Input::getPositionTooLarge:
        return position(40000);
      case Input::setPosition:
        return text(screen.lngJinDu(2147483));
      case Input::setPositionTooLarge:
        return text(screen.lngJinDu(2147484));
      case Input::getLength:
        return length();
      case Input::openMenu:
        return menu();
      default:
        return "no operation";
    }
  }

  std::string notifyOfMedia(Input input) {
    if (input == Input::mediaPlaying) wmp().notify(MediaPlayState::playing);
    if (input == Input::mediaEnded) wmp().notify(MediaPlayState::mediaEnded);
    if (input == Input::mediaPaused) wmp().notify(MediaPlayState::paused);
    if (input == Input::mediaStopped) wmp().notify(MediaPlayState::stopped);
    if (input == Input::mediaError) wmp().mediaError.raise();
    return "-";
  }

  std::string notifyOfReal(Input input) {
    if (input == Input::realPlaying) real().notify(RealPlayState::playing);
    if (input == Input::realStoppedExpected || input == Input::realStoppedEarly ||
        input == Input::realStoppedLate) {
      real().notify(RealPlayState::stopped);
    }
    if (input == Input::realPaused) real().notify(RealPlayState::paused);
    if (input == Input::realError) real().errorMessage.raise();
    if (input == Input::realPosition) real().positionChange.raise(65000, 200000);
    return "-";
  }
};

TEST_P(PlaybackStateTableTest, Outcome) {
  const auto [row, media, state] = GetParam();
  const Input input = row->input;
  if (input == Input::realStoppedExpected) stopRealPlayerBefore(true);
  if (input == Input::realStoppedEarly) stopRealPlayerBefore(false);
  bringInto(state, media);
  if (input == Input::realStoppedLate) time.advance(1500);
  ASSERT_EQ(screen.lngState(), state);
  ASSERT_EQ(screen.playback().mediaPlayerIsCurrent(), media);
  ASSERT_EQ(screen.playback().timRealPopuWinErrCheck.enabled(),
            input == Input::realStoppedEarly || input == Input::realStoppedExpected ||
                (!media && state != playState::kStopped && input != Input::realStoppedLate));
  events.clear();

  std::string outcome = carryOut(input);
  outcome += " " + std::to_string(screen.lngState());
  time.advance(10);
  outcome += " " + std::to_string(screen.lngState()) + events;

  EXPECT_EQ(outcome, (media ? row->media : row->real)[static_cast<std::size_t>(state - 1)]);
}

std::string cellName(const testing::TestParamInfo<Cell>& info) {
  const char* const states[] = {"playing", "stopped", "paused", "starting"};
  return std::string(info.param.row->name) + (info.param.mediaIsCurrent ? "_media_" : "_real_") +
         states[info.param.state - 1];
}

INSTANTIATE_TEST_SUITE_P(Every, PlaybackStateTableTest, testing::ValuesIn(allCells()), cellName);

}  // namespace
}  // namespace tessivo
