// Every operation and every notification in every state, with either engine as the current one, by
// every way on which it becomes that.
#include "unit/screen/PlaybackStateTable.h"

#include "unit/screen/ScreenFixture.h"

namespace tessivo {
namespace {

using namespace stateTable;

constexpr Route kRoutes[] = {Route::realOnly,         Route::mediaOnly,
                             Route::preferRealFirst,  Route::preferRealSecond,
                             Route::preferMediaFirst, Route::preferMediaSecond};
constexpr const char* kRouteNames[] = {"realOnly",         "mediaOnly",        "preferRealFirst",
                                       "preferRealSecond", "preferMediaFirst", "preferMediaSecond"};
constexpr std::int32_t kRules[] = {playRule::kRealOnly,    playRule::kMediaOnly,
                                   playRule::kPreferReal,  playRule::kPreferReal,
                                   playRule::kPreferMedia, playRule::kPreferMedia};

struct Cell {
  const Row* row;
  Route route;
  std::int32_t state;

  std::size_t routeIndex() const { return static_cast<std::size_t>(route); }
  std::int32_t rule() const { return kRules[routeIndex()]; }
  bool isSecond() const {
    return route == Route::preferRealSecond || route == Route::preferMediaSecond;
  }
  bool mediaIsCurrent() const {
    const bool mediaIsFirst = rule() == playRule::kMediaOnly || rule() == playRule::kPreferMedia;
    return mediaIsFirst != isSecond();
  }
  std::string expected() const {
    const auto index = static_cast<std::size_t>(state - 1);
    for (const Difference& difference : kDifferences) {
      if (difference.route == route && difference.input == row->input) {
        return difference.outcome[index];
      }
    }
    return (mediaIsCurrent() ? row->media : row->real)[index];
  }
};

/// Keeps bytes out of the report.
void PrintTo(const Cell& cell, std::ostream* out) {
  *out << cell.row->name << " in state " << cell.state << ", " << kRouteNames[cell.routeIndex()];
}

std::vector<Cell> allCells() {
  std::vector<Cell> cells;
  for (const Row& row : kTable) {
    for (const Route route : kRoutes) {
      for (std::int32_t state = 1; state <= 4; ++state) cells.push_back({&row, route, state});
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
    screen.ClickPlayer.listen([this] { events += " ClickPlayer"; });
    screen.DbClickPlayer.listen([this](bool) { events += " DbClickPlayer"; });
    screen.onPopup.listen([this](ui::MenuItem&) { ++popups; });
  }

  static std::string brief(const std::string& reason) {
    if (reason == "播放路径为空.") return "empty";
    if (reason == "要播放的文件不存在.") return "missing";
    const std::string only = "无法播放该文件,请通过播放器选择列表使用";
    if (reason == "Real Play" + only + "Media Player重新尝试播放.") return "real only";
    if (reason == "Media Play" + only + "Real Player重新尝试播放.") return "media only";
    if (reason == "无法识别的文件格式") return "unrecognised";
    if (reason == "无法识别的文件格式.") return "unrecognised.";
    return "unexpected: " + reason;
  }

  /// RealPlayer was stopped while it played; `owesStop`: its notification is still to come, and it
  /// is active until then.
  void stopRealPlayerBefore(bool owesStop) {
    startPlaying(playRule::kRealOnly);
    if (!owesStop) real().active = false;
    screen.stopPlay();
  }

  void bringInto(const Cell& cell) {
    screen.lngPlayRuler(cell.rule());
    screen.strFilePath("C:\\a.avi");
    if (cell.state != playState::kStopped) {
      ASSERT_TRUE(screen.play());
      time.advance(1);
    }
    if (cell.isSecond()) failFirstEngine(cell.rule());
    if (cell.state == playState::kStopped) return;
    const bool media = cell.mediaIsCurrent();
    if (!media) real().notify(RealPlayState::contacting);
    if (cell.state == playState::kStarting) return;
    media ? wmp().notify(MediaPlayState::playing) : real().notify(RealPlayState::playing);
    if (cell.state == playState::kPaused) screen.pause();
  }
  /// It may fail while stopped, too: the second engine is told to play all the same.
  void failFirstEngine(std::int32_t rule) {
    if (rule == playRule::kPreferReal) real().errorMessage.raise();
    if (rule == playRule::kPreferMedia) wmp().mediaError.raise();
    time.advance(2);
  }
  /// RealPlayer was told to play less than 1.5 s ago.
  static bool isEarly(const Cell& cell) {
    const Input input = cell.row->input;
    if (input == Input::realStoppedEarly || input == Input::realStoppedExpected) return true;
    if (input == Input::realStoppedLate) return false;
    if (cell.route == Route::preferMediaSecond) return true;
    const bool usesReal = !cell.mediaIsCurrent() || cell.route == Route::preferRealSecond;
    return usesReal && cell.state != playState::kStopped;
  }

  std::string carryOut(Input input) {
    if (input <= Input::playWebAddress) return playWith(input);
    if (input < Input::mediaPlaying) return operate(input);
    if (input <= Input::mediaError) return notifyOfMedia(input);
    if (input <= Input::tickWhileMediaRests) return tick(input);
    if (input <= Input::mediaRightUp) return useMouse(input);
    return notifyOfReal(input);
  }
  std::string toldToPlay() {
    const std::string steps = trace.take();
    return std::string(steps.find("wmp play") != std::string::npos ? " media plays" : "") +
           (steps.find("real play") != std::string::npos ? " real plays" : "");
  }

  std::string events;
  int popups = 0;

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
      case Input::setMaxSize:
        screen.boolMaxSize(true);
        return text(screen.boolMaxSize());
      case Input::setReportJinDu:
        screen.boolReportJinDu(false);
        return text(screen.boolReportJinDu());
      case Input::createScreenListMenu:
        displays.add({3200, 0, 800, 600});
        screen.createScreenListMenu();
        return screens();
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

  std::string tick(Input input) {
    const bool plays = input == Input::tickWhileMediaPlays;
    wmp().state = plays ? MediaPlayState::playing : MediaPlayState::paused;
    wmp().position = 65;
    screen.playback().timMediaPlayJinDu.onTimer.raise();
    return "-";
  }

  std::string screens() { return std::to_string(screen.menu().screenCount()) + " screens"; }

  /// Tells which timers and menus the mouse has set going.
  std::string useMouse(Input input) {
    screen.createScreenListMenu();
    displays.add({3200, 0, 800, 600});
    screen.timSetTimShowBackZOrder.setEnabled(false);
    if (input == Input::mediaClick) wmp().click.raise(MouseButton::left);
    if (input == Input::mediaRightClick) wmp().click.raise(MouseButton::right);
    if (input == Input::mediaDoubleClick) wmp().doubleClick.raise();
    if (input == Input::mediaMouseDown) wmp().mouseDown.raise(MouseButton::left);
    if (input == Input::mediaRightDown) wmp().mouseDown.raise(MouseButton::right);
    if (input == Input::mediaMouseUp) wmp().mouseUp.raise(MouseButton::left);
    if (input == Input::mediaRightUp) wmp().mouseUp.raise(MouseButton::right);
    std::string going;
    const auto note = [&going](bool is, const std::string& what) {
      if (is) going += (going.empty() ? "" : "+") + what;
    };
    note(screen.timDelayRaiseClickEvent.enabled(), "click");
    note(screen.timDBClickEvent.enabled(), "double");
    note(screen.timSetTimShowBackZOrder.enabled(), "panel");
    note(screen.menu().screenCount() == 3, screens());
    note(popups > 0, "menu");
    return going.empty() ? "-" : going;
  }

  std::string notifyOfReal(Input input) {
    if (input == Input::realContacting) real().notify(RealPlayState::contacting);
    if (input == Input::realBuffering) real().notify(RealPlayState::buffering);
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
  const Cell& cell = GetParam();
  const Input input = cell.row->input;
  if (input == Input::realStoppedExpected) stopRealPlayerBefore(true);
  if (input == Input::realStoppedEarly) stopRealPlayerBefore(false);
  bringInto(cell);
  if (input == Input::realStoppedLate) time.advance(1500);
  ASSERT_EQ(screen.lngState(), cell.state);
  ASSERT_EQ(screen.playback().mediaPlayerIsCurrent(), cell.mediaIsCurrent());
  ASSERT_EQ(screen.playback().timRealPopuWinErrCheck.enabled(), isEarly(cell));
  events.clear();
  trace.take();

  std::string outcome = carryOut(input);
  outcome += " " + std::to_string(screen.lngState());
  time.advance(10);
  outcome += " " + std::to_string(screen.lngState()) + events + toldToPlay();

  EXPECT_EQ(outcome, cell.expected());
}

std::string cellName(const testing::TestParamInfo<Cell>& info) {
  const char* const states[] = {"playing", "stopped", "paused", "starting"};
  return std::string(info.param.row->name) + "_" + kRouteNames[info.param.routeIndex()] + "_" +
         states[info.param.state - 1];
}

INSTANTIATE_TEST_SUITE_P(Every, PlaybackStateTableTest, testing::ValuesIn(allCells()), cellName);

}  // namespace
}  // namespace tessivo
