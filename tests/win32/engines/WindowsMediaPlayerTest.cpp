// The installed Windows Media Player control with real media; run-engines.sh provides them. The one
// that Wine brings plays sound and raises its notifications; many members it does not serve.
#include <wmpids.h>

#include <algorithm>
#include <memory>

#include "screen/engines/embedded/RunsOnWine.h"
#include "screen/engines/windows_media_player/WindowsMediaPlayerControl.h"
#include "win32/engines/EngineStage.h"

namespace tessivo {
namespace {

constexpr CLSID kNoSuchControl = {
    0x7e551700, 0x0000, 0x4000, {0x80, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x01}};

class WindowsMediaPlayerOnDesktop : public EngineStage {
 protected:
  void SetUp() override {
    EngineStage::SetUp();
    make(kWindowsMediaPlayerControl);
    ASSERT_TRUE(player->created()) << log.lines.at(0);
  }
  void TearDown() override { player.reset(); }

  void make(const CLSID& control) {
    player = std::make_unique<WindowsMediaPlayerControl>(stage, log, control);
    player->move({0, 0, kWidth, kHeight});
    player->setVisible(true);
    player->setVolume(30);
    player->playStateChange.listen([this](MediaPlayState state) {
      trace.push_back("state " + std::to_string(static_cast<int>(state)));
    });
    player->mediaError.listen([this] { trace.push_back("error"); });
    player->mouseDown.listen([this](MouseButton b) { traceMouse("down", b); });
    player->mouseUp.listen([this](MouseButton b) { traceMouse("up", b); });
    player->click.listen([this](MouseButton b) { traceMouse("click", b); });
    player->doubleClick.listen([this] { trace.push_back("double"); });
  }
  void traceMouse(const char* what, MouseButton button) {
    trace.push_back(what + (" " + std::to_string(static_cast<int>(button))));
  }

  void startPlaying(const std::string& name) {
    player->setUrl(media(name));
    player->play();
    ASSERT_TRUE(waitForTrace("state 3")) << name;
  }

  /// As if the control had fired the event, with whole-number arguments.
  void fire(DISPID event, const std::vector<std::int32_t>& arguments = {}) const {
    player->host().announce(event, std::vector<Variant>(arguments.begin(), arguments.end()));
  }

  long logged(const std::string& part) const {
    return std::count_if(log.lines.begin(), log.lines.end(), [&](const std::string& line) {
      return line.find(part) != std::string::npos;
    });
  }

  std::unique_ptr<WindowsMediaPlayerControl> player;
};

TEST_F(WindowsMediaPlayerOnDesktop, PlaysToTheEndAndSaysSo) {
  startPlaying("tone.wav");
  EXPECT_EQ(player->playState(), MediaPlayState::playing);
  ASSERT_TRUE(player->currentMediaDuration().has_value());
  EXPECT_NEAR(*player->currentMediaDuration(), 6, 0.3);
  EXPECT_TRUE(waitFor([&] { return player->currentPosition() > 1; }));
  ASSERT_TRUE(waitForTrace("state 8"));
  EXPECT_EQ(traced("state 8"), 1);
  EXPECT_EQ(traced("error"), 0);
}

TEST_F(WindowsMediaPlayerOnDesktop, ASourceAloneStartsNothing) {
  player->setUrl(media("tone.wav"));
  EXPECT_EQ(player->url(), media("tone.wav"));
  watch(1500);
  EXPECT_EQ(traced("state 3"), 0);
  EXPECT_NE(player->playState(), MediaPlayState::playing);
}

TEST_F(WindowsMediaPlayerOnDesktop, NoNotificationComesFromInsideACall) {
  player->setUrl(media("tone.wav"));
  player->play();
  fire(DISPID_WMPCOREEVENT_PLAYSTATECHANGE, {3});
  EXPECT_EQ(trace, std::vector<std::string>{});
  EXPECT_TRUE(waitForTrace("state 3"));
  trace.clear();
  player->stop();
  EXPECT_EQ(trace, std::vector<std::string>{});
}

TEST_F(WindowsMediaPlayerOnDesktop, ANewSourceDropsTheNewsOfTheOneBefore) {
  fire(DISPID_WMPCOREEVENT_PLAYSTATECHANGE, {8});
  player->setUrl(media("tone.wav"));
  watch(300);
  EXPECT_EQ(traced("state 8"), 0);
}

TEST_F(WindowsMediaPlayerOnDesktop, AFileThatIsNoneFailsOnce) {
  for (const char* name : {"random.avi", "empty.avi", "no such file.avi"}) {
    trace.clear();
    player->setUrl(media(name));
    player->play();
    ASSERT_TRUE(waitForTrace("error")) << name;
    watch(500);
    EXPECT_EQ(traced("error"), 1) << name;
    EXPECT_EQ(traced("state 3"), 0) << name;
  }
}

TEST_F(WindowsMediaPlayerOnDesktop, AFailureHasNoConsequencesForTheNextFile) {
  player->setUrl(media("random.avi"));
  player->play();
  ASSERT_TRUE(waitForTrace("error"));
  startPlaying("tone.wav");
  watch(500);
  EXPECT_EQ(traced("error"), 1);
}

TEST_F(WindowsMediaPlayerOnDesktop, AFailureThatNobodyAskedForWaitsForThePlay) {
  player->setUrl(media("tone.wav"));
  fire(DISPID_WMPCOREEVENT_MEDIAERROR);
  watch(300);
  EXPECT_EQ(traced("error"), 0);
  player->play();
  EXPECT_EQ(traced("error"), 0);
  ASSERT_TRUE(waitForTrace("error"));
  // Whoever asks again has it tried again.
  player->play();
  EXPECT_TRUE(waitForTrace("state 3"));
}

TEST_F(WindowsMediaPlayerOnDesktop, TwoErrorsOfOnePlayAreOne) {
  startPlaying("tone.wav");
  fire(DISPID_WMPCOREEVENT_MEDIAERROR);
  fire(DISPID_WMPCOREEVENT_MEDIAERROR);
  watch(300);
  EXPECT_EQ(traced("error"), 1);
}

TEST_F(WindowsMediaPlayerOnDesktop, AFilmPlaysStopsAndPlaysAgain) {
  startPlaying("film.avi");
  player->setCurrentPosition(3);
  watch(300);
  EXPECT_LT(timeOf([&] { player->stop(); }), 3000U);
  ASSERT_TRUE(waitForTrace("state 1"));
  trace.clear();
  player->play();
  EXPECT_TRUE(waitForTrace("state 3"));
  EXPECT_LT(player->currentPosition(), 2.0);
}

TEST_F(WindowsMediaPlayerOnDesktop, APositionBeforeThePlayIsShownUntilItPlays) {
  player->setUrl(media("tone.wav"));
  EXPECT_EQ(player->currentPosition(), 0);
  player->setCurrentPosition(4);
  EXPECT_EQ(player->currentPosition(), 4);
  player->stop();
  EXPECT_EQ(player->currentPosition(), 0);
}

TEST_F(WindowsMediaPlayerOnDesktop, TheMouseIsHandedOnWithItsButton) {
  fire(DISPID_WMPOCXEVENT_MOUSEDOWN, {1, 0, 5, 6});
  fire(DISPID_WMPOCXEVENT_MOUSEUP, {1, 0, 5, 6});
  fire(DISPID_WMPOCXEVENT_CLICK, {1, 0, 5, 6});
  fire(DISPID_WMPOCXEVENT_DOUBLECLICK, {1, 0, 5, 6});
  fire(DISPID_WMPOCXEVENT_MOUSEDOWN, {2, 0, 5, 6});
  fire(DISPID_WMPOCXEVENT_MOUSEUP, {2, 0, 5, 6});
  fire(DISPID_WMPOCXEVENT_CLICK, {2, 0, 5, 6});
  fire(DISPID_WMPOCXEVENT_MOUSEMOVE, {0, 0, 5, 6});
  ASSERT_TRUE(waitForTrace("click 2"));
  EXPECT_EQ(trace, (std::vector<std::string>{"down 1", "up 1", "click 1", "double", "down 2",
                                             "up 2", "click 2"}));
}

TEST_F(WindowsMediaPlayerOnDesktop, EventsWithoutTheirArgumentsAreHarmless) {
  fire(DISPID_WMPCOREEVENT_PLAYSTATECHANGE);
  fire(DISPID_WMPOCXEVENT_CLICK);
  fire(12345, {1, 2, 3});
  EXPECT_TRUE(waitForTrace("click 0"));
}

TEST_F(WindowsMediaPlayerOnDesktop, MembersThatFailAreLoggedOnce) {
  for (int i = 0; i < 3; ++i) {
    player->setEnableContextMenu(false);
    player->setEnableErrorDialogs(false);
    player->setInvokeUrls(false);
    player->setFullScreen(false);
    EXPECT_FALSE(player->fullScreen());
    player->clearErrorQueue();
    player->setMute(true);
    player->pause();
    player->playState();
  }
  for (const char* member : {"enableContextMenu", "fullScreen", "Error", "settings.mute",
                             "controls.pause", "playState", "uiMode"}) {
    EXPECT_EQ(logged(std::string(": ") + member + " failed"), runsOnWine() ? 1 : 0) << member;
  }
}

TEST_F(WindowsMediaPlayerOnDesktop, VisibilityAndPlacementAreThoseOfItsWindow) {
  player->setVisible(false);
  EXPECT_FALSE(player->visible());
  EXPECT_FALSE(IsWindowVisible(engineWindow()));
  player->setVisible(true);
  EXPECT_TRUE(player->visible());
  player->move({10, 20, 200, 100});
  RECT control{};
  GetWindowRect(GetWindow(engineWindow(), GW_CHILD), &control);
  EXPECT_EQ(control.right - control.left, 200);
  EXPECT_EQ(control.bottom - control.top, 100);
}

TEST_F(WindowsMediaPlayerOnDesktop, WithoutAControlAPlayFailsAndTheRestIsHarmless) {
  make(kNoSuchControl);
  EXPECT_FALSE(player->created());
  EXPECT_EQ(logged("is not installed"), 1);
  player->setUrl(media("tone.wav"));
  player->pause();
  player->stop();
  player->setMute(true);
  player->setCurrentPosition(3);
  player->setFullScreen(false);
  player->clearErrorQueue();
  EXPECT_EQ(player->currentMediaDuration(), std::nullopt);
  player->play();
  EXPECT_EQ(traced("error"), 0);
  EXPECT_TRUE(waitForTrace("error"));
}

TEST_F(WindowsMediaPlayerOnDesktop, EndsWhilePlayingAndWithNewsUnderWay) {
  startPlaying("film.avi");
  fire(DISPID_WMPCOREEVENT_PLAYSTATECHANGE, {8});
  trace.clear();
  EXPECT_LT(timeOf([&] { player.reset(); }), 3000U);
  watch(200);
  EXPECT_TRUE(trace.empty());
  EXPECT_EQ(engineWindow(), nullptr);
}

TEST_F(WindowsMediaPlayerOnDesktop, MayBeEndedByItsOwnNotification) {
  player->playStateChange.listen([this](MediaPlayState) { player.reset(); });
  fire(DISPID_WMPCOREEVENT_PLAYSTATECHANGE, {3});
  EXPECT_TRUE(waitFor([this] { return !player; }));
}

TEST_F(WindowsMediaPlayerOnDesktop, TwentyRoundsLeaveNoHandlesBehind) {
  const auto round = [this] {
    make(kWindowsMediaPlayerControl);
    trace.clear();
    player->setUrl(media("tone.wav"));
    player->play();
    waitForTrace("state 3");
    player->stop();
    player.reset();
    watch(100);
  };
  for (int i = 0; i < 5; ++i) round();
  const int before = processHandles();
  for (int i = 0; i < 20; ++i) round();
  EXPECT_LE(processHandles(), before + 10);
}

}  // namespace
}  // namespace tessivo
