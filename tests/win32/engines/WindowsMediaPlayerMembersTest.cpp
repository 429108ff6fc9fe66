// Which members of the Windows Media Player control the slot uses, with what: against a control
// that records them.
#include <gtest/gtest.h>
#include <objbase.h>
#include <windows.h>
#include <wmpids.h>

#include <algorithm>
#include <functional>
#include <memory>

#include "fakes/FakeLog.h"
#include "screen/engines/windows_media_player/WindowsMediaPlayerControl.h"
#include "win32/WaitFor.h"
#include "win32/engines/RecordingMediaPlayer.h"

namespace tessivo {
namespace {

using Lines = std::vector<std::string>;

class WindowsMediaPlayerMembers : public testing::Test {
 protected:
  static void SetUpTestSuite() {
    // For the life of the process, as in the program.
    static const HRESULT com = CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
    ASSERT_TRUE(SUCCEEDED(com));
  }

  WindowsMediaPlayerMembers() {
    stage = CreateWindowExW(0, L"STATIC", L"stage", WS_POPUP, 0, 0, 400, 300, nullptr, nullptr,
                            nullptr, nullptr);
    make();
  }
  ~WindowsMediaPlayerMembers() override {
    player.reset();
    DestroyWindow(stage);
  }

  void make() {
    player.reset();
    control.takeCalls();
    player = std::make_unique<WindowsMediaPlayerControl>(stage, log, RecordingMediaPlayer::kClass);
    whileMaking = control.takeCalls();
    log.lines.clear();  // it has no events
    player->playStateChange.listen([this](MediaPlayState state) {
      trace.push_back("state " + std::to_string(static_cast<int>(state)));
    });
    player->mediaError.listen([this] { trace.push_back("error"); });
  }

  /// As if the control had told its play state, which it has from now on.
  void enter(WMPPlayState state) {
    control.script.playState = state;
    player->host().announce(DISPID_WMPCOREEVENT_PLAYSTATECHANGE,
                            {Variant(static_cast<std::int32_t>(state))});
    serve();
  }

  RecordingMediaPlayer control;
  FakeLog log;
  HWND stage = nullptr;
  std::unique_ptr<WindowsMediaPlayerControl> player;
  Lines whileMaking;
  Lines trace;
};

TEST_F(WindowsMediaPlayerMembers, IsMadeWithoutStartingByItselfWithThePictureAloneThatFills) {
  EXPECT_TRUE(player->created());
  EXPECT_EQ(whileMaking, (Lines{"controls", "settings", "settings.autoStart=false", "uiMode=none",
                                "stretchToFit=true"}));
}

TEST_F(WindowsMediaPlayerMembers, IsStoppedAndClosedBeforeItGoes) {
  player.reset();
  EXPECT_EQ(control.takeCalls(), (Lines{"controls.stop", "close"}));
}

struct MediaMemberCase {
  const char* name;
  std::function<void(MediaPlayerSlot&)> act;
  Lines expected;
};
void PrintTo(const MediaMemberCase& member, std::ostream* out) {
  *out << member.name;
}
std::string nameOf(const testing::TestParamInfo<MediaMemberCase>& member) {
  return member.param.name;
}

class WindowsMediaPlayerMember : public WindowsMediaPlayerMembers,
                                 public testing::WithParamInterface<MediaMemberCase> {};

TEST_P(WindowsMediaPlayerMember, IsCalledWithItsValue) {
  GetParam().act(*player);
  EXPECT_EQ(control.takeCalls(), GetParam().expected);
  EXPECT_TRUE(log.lines.empty());
}

/// The name of what was asked, without the value.
std::string memberIn(const std::string& call) {
  return call.substr(0, call.find('='));
}

TEST_P(WindowsMediaPlayerMember, ThatFailsIsAbsorbedAndLoggedOnce) {
  const std::string failing = memberIn(GetParam().expected.back());
  control.script.failing = {failing};
  GetParam().act(*player);
  GetParam().act(*player);
  EXPECT_EQ(log.lines.size(), 1U);
}

INSTANTIATE_TEST_SUITE_P(
    Members, WindowsMediaPlayerMember,
    testing::Values(
        MediaMemberCase{
            "url", [](auto& p) { p.setUrl("D:\\影片\\a b.wmv"); }, {"URL=D:\\影片\\a b.wmv"}},
        MediaMemberCase{"noUrl", [](auto& p) { p.setUrl(""); }, {"URL="}},
        MediaMemberCase{"play", [](auto& p) { p.play(); }, {"controls.play"}},
        MediaMemberCase{"pause", [](auto& p) { p.pause(); }, {"controls.pause"}},
        MediaMemberCase{"stop", [](auto& p) { p.stop(); }, {"controls.stop"}},
        MediaMemberCase{
            "position", [](auto& p) { p.currentPosition(); }, {"controls.currentPosition"}},
        MediaMemberCase{"seek",
                        [](auto& p) { p.setCurrentPosition(12.5); },
                        {"playState", "controls.currentPosition=12.500000"}},
        MediaMemberCase{"playState", [](auto& p) { p.playState(); }, {"playState"}},
        MediaMemberCase{"duration",
                        [](auto& p) { p.currentMediaDuration(); },
                        {"currentMedia", "currentMedia.duration"}},
        MediaMemberCase{"volume", [](auto& p) { p.setVolume(30); }, {"settings.volume=30"}},
        MediaMemberCase{"silence", [](auto& p) { p.setVolume(0); }, {"settings.volume=0"}},
        MediaMemberCase{"mute", [](auto& p) { p.setMute(true); }, {"settings.mute=true"}},
        MediaMemberCase{"sound", [](auto& p) { p.setMute(false); }, {"settings.mute=false"}},
        MediaMemberCase{"errorDialogs",
                        [](auto& p) { p.setEnableErrorDialogs(true); },
                        {"settings.enableErrorDialogs=true"}},
        MediaMemberCase{"noErrorDialogs",
                        [](auto& p) { p.setEnableErrorDialogs(false); },
                        {"settings.enableErrorDialogs=false"}},
        MediaMemberCase{
            "invokeUrls", [](auto& p) { p.setInvokeUrls(true); }, {"settings.invokeURLs=true"}},
        MediaMemberCase{
            "noInvokeUrls", [](auto& p) { p.setInvokeUrls(false); }, {"settings.invokeURLs=false"}},
        MediaMemberCase{"contextMenu",
                        [](auto& p) { p.setEnableContextMenu(true); },
                        {"enableContextMenu=true"}},
        MediaMemberCase{"noContextMenu",
                        [](auto& p) { p.setEnableContextMenu(false); },
                        {"enableContextMenu=false"}},
        MediaMemberCase{"fullScreen", [](auto& p) { p.fullScreen(); }, {"fullScreen"}},
        MediaMemberCase{"fill", [](auto& p) { p.setFullScreen(true); }, {"fullScreen=true"}},
        MediaMemberCase{
            "leaveFullScreen", [](auto& p) { p.setFullScreen(false); }, {"fullScreen=false"}},
        MediaMemberCase{"clearErrors",
                        [](auto& p) { p.clearErrorQueue(); },
                        {"Error", "Error.clearErrorQueue"}}),
    nameOf);

TEST_F(WindowsMediaPlayerMembers, AnswersWhatTheControlAnswers) {
  control.script.position = 12.25;
  control.script.duration = 200.5;
  control.script.playState = wmppsPaused;
  control.script.fullScreen = true;
  EXPECT_EQ(player->currentPosition(), 12.25);
  EXPECT_EQ(player->currentMediaDuration(), 200.5);
  EXPECT_EQ(player->playState(), MediaPlayState::paused);
  EXPECT_TRUE(player->fullScreen());
  control.script.fullScreen = false;
  EXPECT_FALSE(player->fullScreen());
}

TEST_F(WindowsMediaPlayerMembers, WithoutMediaThereIsNoDuration) {
  control.script.hasMedia = false;
  EXPECT_EQ(player->currentMediaDuration(), std::nullopt);
  EXPECT_TRUE(log.lines.empty());
}

TEST_F(WindowsMediaPlayerMembers, MediaThatDoNotKnowTheirDurationHaveNone) {
  control.script.failing = {"currentMedia.duration"};
  EXPECT_EQ(player->currentMediaDuration(), std::nullopt);
}

TEST_F(WindowsMediaPlayerMembers, WhereThePlayStateFailsItIsAsNotifiedLast) {
  control.script.failing = {"playState"};
  enter(wmppsPlaying);
  EXPECT_EQ(player->playState(), MediaPlayState::playing);
}

TEST_F(WindowsMediaPlayerMembers, WithoutAnErrorQueueThereIsNothingToClear) {
  control.script.failing = {"Error"};
  player->clearErrorQueue();
  EXPECT_EQ(control.takeCalls(), Lines{"Error"});
}

TEST_F(WindowsMediaPlayerMembers, APlayThatFailsIsAnErrorFromTheMessageLoop) {
  control.script.failing = {"controls.play"};
  player->play();
  EXPECT_EQ(trace, Lines{});
  serve();
  EXPECT_EQ(trace, Lines{"error"});
}

TEST_F(WindowsMediaPlayerMembers, AControlWithoutControlsOrSettingsIsNone) {
  for (const char* missing : {"controls", "settings"}) {
    control.script.failing = {missing};
    make();
    EXPECT_FALSE(player->created()) << missing;
    player->play();
    serve();
    EXPECT_EQ(std::exchange(trace, {}), Lines{"error"}) << missing;
  }
}

TEST_F(WindowsMediaPlayerMembers, SeeksWhileItPlays) {
  enter(wmppsPlaying);
  player->setCurrentPosition(40);
  EXPECT_EQ(control.takeCalls(), (Lines{"playState", "controls.currentPosition=40.000000"}));
  control.script.position = 41;
  EXPECT_EQ(player->currentPosition(), 41);
}

TEST_F(WindowsMediaPlayerMembers, APositionBeforeThePlayIsPutAgainWhenThatBeginsElsewhere) {
  player->setCurrentPosition(40);
  player->play();
  control.takeCalls();
  control.script.position = 38.5;
  enter(wmppsPlaying);
  EXPECT_EQ(control.takeCalls(),
            (Lines{"controls.currentPosition", "controls.currentPosition=40.000000"}));
  EXPECT_EQ(trace, Lines{"state 3"});
}

TEST_F(WindowsMediaPlayerMembers, APositionThatThePlayBeginsWithinASecondOfIsLeft) {
  player->setCurrentPosition(40);
  player->play();
  control.takeCalls();
  control.script.position = 40.9;
  enter(wmppsPlaying);
  EXPECT_EQ(control.takeCalls(), Lines{"controls.currentPosition"});
  EXPECT_EQ(player->currentPosition(), 40.9);
}

TEST_F(WindowsMediaPlayerMembers, APositionIsPutAgainForOnePlayOnly) {
  player->setCurrentPosition(40);
  player->play();
  enter(wmppsPlaying);
  enter(wmppsPaused);
  control.takeCalls();
  enter(wmppsPlaying);
  EXPECT_EQ(control.takeCalls(), Lines{});
}

TEST_F(WindowsMediaPlayerMembers, AStopOrANewSourceForgetsThePositionBeforeThePlay) {
  const std::vector<std::function<void()>> forgets{[this] { player->stop(); },
                                                   [this] { player->setUrl("b.wmv"); }};
  for (const auto& forget : forgets) {
    control.script.playState = wmppsStopped;
    player->setCurrentPosition(40);
    forget();
    control.takeCalls();
    enter(wmppsPlaying);
    EXPECT_EQ(control.takeCalls(), Lines{});
  }
}

}  // namespace
}  // namespace tessivo
