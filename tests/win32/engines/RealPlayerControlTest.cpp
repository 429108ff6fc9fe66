// The RealPlayer control's adapter against the test control.
#include "screen/engines/real_player/RealPlayerControl.h"

#include <memory>

#include "win32/engines/TestControlStage.h"

namespace tessivo {
namespace {

using Lines = std::vector<std::string>;
using Setting = RealPlayerSlot::Setting;

class RealPlayerControlTest : public TestControlStage {
 protected:
  void SetUp() override {
    TestControlStage::SetUp();
    if (!HasFatalFailure()) makePlayer();
  }
  void TearDown() override { player.reset(); }

  /// The record begins behind what making it asks of the control.
  void makePlayer() {
    player.reset();
    player = std::make_unique<RealPlayerControl>(stage, log);
    whileMaking = takeRecord();
    player->playStateChange.listen([this](RealPlayState from, RealPlayState to) {
      trace.push_back(std::to_string(static_cast<int>(from)) + "->" +
                      std::to_string(static_cast<int>(to)));
    });
    player->errorMessage.listen([this] { trace.push_back("error"); });
    player->positionChange.listen([this](std::int32_t position, std::int32_t length) {
      trace.push_back(std::to_string(position) + " of " + std::to_string(length));
    });
    player->mousePoint.listen([this](Point point) {
      trace.push_back("mouse " + std::to_string(point.x) + "," + std::to_string(point.y));
    });
    player->pictureMouse.listen([this](PictureMouse) { trace.push_back("picture mouse"); });
  }

  /// Acts inside every call of the control.
  void insideACall(std::function<void(DISPID)> act) {
    inside = std::move(act);
    control->during(
        [](void* self, DISPID member) {
          static_cast<RealPlayerControlTest*>(self)->inside(member);
        },
        this);
  }

  Lines heard() {
    serve();
    return std::exchange(trace, {});
  }

  void callEachMember() {
    player->setSource("C:\\a.mp3");
    player->play();
    player->pause();
    player->stop();
    player->canStop();
    player->lengthMs();
    player->setPositionMs(0);
    player->setVolume(30);
    player->setMute(true);
    for (const int setting : {277, 353, 295, 338, 326, 307, 225}) {
      player->setSetting(static_cast<Setting>(setting), true);
    }
  }
  static constexpr std::size_t kMembers = 16;

  std::unique_ptr<RealPlayerControl> player;
  Lines whileMaking;
  Lines trace;
  std::function<void(DISPID)> inside;
};

TEST_F(RealPlayerControlTest, IsMadeQuietWithoutALogoAndWithNothingButThePicture) {
  EXPECT_EQ(whileMaking, (Lines{"site", "property AUTOSTART=0", "property CONTROLS=ImageWindow",
                                "property NOLOGO=1", "advise", "activate"}));
  EXPECT_TRUE(player->created());
  EXPECT_TRUE(log.lines.empty());
}

struct MemberCase {
  const char* name;
  std::function<void(RealPlayerControl&)> act;
  const char* expected;
};
void PrintTo(const MemberCase& member, std::ostream* out) {
  *out << member.name;
}

class RealPlayerMemberTest : public RealPlayerControlTest,
                             public testing::WithParamInterface<MemberCase> {};

TEST_P(RealPlayerMemberTest, IsCalledByItsIdentifierWithTheStatedArguments) {
  GetParam().act(*player);
  EXPECT_EQ(takeRecord(), Lines{GetParam().expected});
  EXPECT_TRUE(log.lines.empty()) << "the control refused it: " << log.lines[0];
}

MemberCase settingCase(const char* name, int id, bool value, const char* expected) {
  return {name, [=](auto& player) { player.setSetting(static_cast<Setting>(id), value); },
          expected};
}

const auto kEachMember = testing::Values(
    MemberCase{"source", [](auto& p) { p.setSource("D:\\影片\\a b.rm"); },
               "102 put BSTR D:\\影片\\a b.rm"},
    MemberCase{"noSource", [](auto& p) { p.setSource(""); }, "102 put BSTR "},
    MemberCase{"play", [](auto& p) { p.play(); }, "257 call"},
    MemberCase{"pause", [](auto& p) { p.pause(); }, "258 call"},
    MemberCase{"stop", [](auto& p) { p.stop(); }, "202 call"},
    MemberCase{"canStop", [](auto& p) { p.canStop(); }, "260 read"},
    MemberCase{"length", [](auto& p) { p.lengthMs(); }, "261 read"},
    MemberCase{"position", [](auto& p) { p.setPositionMs(2147483000); }, "269 call I4 2147483000"},
    MemberCase{"volume", [](auto& p) { p.setVolume(30); }, "227 call I2& 30"},
    MemberCase{"silence", [](auto& p) { p.setVolume(0); }, "227 call I2& 0"},
    MemberCase{"mute", [](auto& p) { p.setMute(true); }, "229 call BOOL& true"},
    MemberCase{"sound", [](auto& p) { p.setMute(false); }, "229 call BOOL& false"},
    settingCase("s277", 277, true, "277 call BOOL true"),
    settingCase("s353", 353, false, "353 call BOOL false"),
    settingCase("s295", 295, false, "295 call BOOL false"),
    settingCase("s338", 338, false, "338 call BOOL false"),
    settingCase("s326", 326, true, "326 call BOOL true"),
    settingCase("s307", 307, true, "307 call BOOL true"),
    settingCase("s225", 225, false, "225 call BOOL false"));

std::string nameOf(const testing::TestParamInfo<MemberCase>& member) {
  return member.param.name;
}

INSTANTIATE_TEST_SUITE_P(Members, RealPlayerMemberTest, kEachMember, nameOf);

class RealPlayerGoneInsideTest : public RealPlayerMemberTest {
 protected:
  /// Ends the player inside the member, from a message loop that the control runs there.
  void callAndEndInside() {
    control->answer(260, 1);
    insideACall([this](DISPID) {
      control->sendPlayState(1, 3);
      control->sendError();
      serve();
      player.reset();
      serve();
    });
    GetParam().act(*player);
    EXPECT_EQ(player, nullptr);
    EXPECT_EQ(control->instances(), 0);
    EXPECT_EQ(heard(), Lines{});
  }
};

TEST_P(RealPlayerGoneInsideTest, AMemberThatSucceedsNotifiesNobody) {
  callAndEndInside();
  EXPECT_TRUE(log.lines.empty());
}

TEST_P(RealPlayerGoneInsideTest, AMemberThatFailsNotifiesNobodyEither) {
  control->failCalls(E_FAIL);
  callAndEndInside();
}

INSTANTIATE_TEST_SUITE_P(Members, RealPlayerGoneInsideTest, kEachMember, nameOf);

TEST_F(RealPlayerControlTest, AnswersWhatTheControlAnswers) {
  EXPECT_FALSE(player->canStop());
  EXPECT_EQ(player->lengthMs(), 0);
  control->answer(260, 1);
  control->answer(261, 200499);
  EXPECT_TRUE(player->canStop());
  EXPECT_EQ(player->lengthMs(), 200499);
}

TEST_F(RealPlayerControlTest, WhatTheControlWritesIntoAnArgumentReachesNobody) {
  control->writeBack(99);
  player->setVolume(30);
  player->setMute(true);
  player->setVolume(30);
  player->setMute(true);
  EXPECT_EQ(takeRecord(), (Lines{"227 call I2& 30", "229 call BOOL& true", "227 call I2& 30",
                                 "229 call BOOL& true"}));
}

TEST_F(RealPlayerControlTest, ANotificationArrivesFromTheMessageLoop) {
  control->sendPlayState(1, 3);
  EXPECT_EQ(trace, Lines{});
  EXPECT_EQ(heard(), Lines{"1->3"});
}

TEST_F(RealPlayerControlTest, NotificationsArriveOnceEachInTheirOrder) {
  control->sendPlayState(0, 1);
  control->sendPosition(1234, 200000);
  control->sendError();
  control->sendPlayState(1, 0);
  EXPECT_EQ(heard(), (Lines{"0->1", "1234 of 200000", "error", "1->0"}));
  EXPECT_EQ(heard(), Lines{});
}

TEST_F(RealPlayerControlTest, OtherEventsAreTakenForNothing) {
  control->sendPreSeek(3, 0);
  control->sendBuffering(0, 3);
  EXPECT_EQ(heard(), Lines{});
}

TEST_F(RealPlayerControlTest, AnEventWithAPointTellsThePoint) {
  control->sendMouseMove(12, 34);
  control->sendButtonDown(399, -1);
  EXPECT_EQ(heard(), (Lines{"mouse 12,34", "mouse 399,-1"}));
}

TEST_F(RealPlayerControlTest, TheMouseOnThePictureIsNotItsBusiness) {
  SendMessageW(control->picture(), WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(5, 6));
  SendMessageW(control->picture(), WM_LBUTTONUP, 0, MAKELPARAM(5, 6));
  EXPECT_EQ(heard(), Lines{"mouse 5,6"});
}

TEST_F(RealPlayerControlTest, WhatTheControlTellsInsideACallArrivesAfterIt) {
  insideACall([this](DISPID) {
    control->sendPlayState(0, 1);
    control->sendPlayState(1, 3);
  });
  player->play();
  EXPECT_EQ(trace, Lines{});
  EXPECT_EQ(heard(), (Lines{"0->1", "1->3"}));
}

TEST_F(RealPlayerControlTest, ALoopInsideACallHandsNothingOn) {
  insideACall([this](DISPID) {
    control->sendPlayState(0, 1);
    serve();
    EXPECT_EQ(trace, Lines{});
  });
  player->play();
  EXPECT_EQ(trace, Lines{});
  EXPECT_EQ(heard(), Lines{"0->1"});
}

TEST_F(RealPlayerControlTest, WhatWaitedBeforeACallWaitsForItsEndThoughALoopRunsInside) {
  control->sendPlayState(0, 1);
  insideACall([this](DISPID) {
    serve();
    EXPECT_EQ(trace, Lines{});
  });
  player->lengthMs();
  EXPECT_EQ(heard(), Lines{"0->1"});
}

TEST_F(RealPlayerControlTest, ARefusedPlayIsNoErrorOfASourceThatWasSetInsideIt) {
  control->failCalls(E_FAIL);
  insideACall([this](DISPID member) {
    if (member != 257) return;
    control->failCalls(S_OK);  // this play fails all the same
    player->setSource("C:\\b.mp3");
    serve();
  });
  player->play();
  EXPECT_EQ(heard(), Lines{});
}

TEST_F(RealPlayerControlTest, AQueryInsideANotificationIsAnswered) {
  control->answer(261, 5000);
  std::int32_t length = 0;
  player->playStateChange.listen(
      [&](RealPlayState, RealPlayState) { length = player->lengthMs(); });
  control->sendPlayState(1, 3);
  serve();
  EXPECT_EQ(length, 5000);
}

TEST_F(RealPlayerControlTest, ASourceSetDropsWhatIsToldOfTheOneBefore) {
  control->sendPlayState(3, 0);
  control->sendError();
  player->setSource("C:\\b.mp3");
  EXPECT_EQ(heard(), Lines{});
}

TEST_F(RealPlayerControlTest, ASourceSetDropsAlsoWhatIsToldInsideTheCall) {
  insideACall([this](DISPID) { control->sendPlayState(3, 0); });
  player->setSource("C:\\b.mp3");
  EXPECT_EQ(heard(), Lines{});
}

TEST_F(RealPlayerControlTest, WhatIsToldAfterASourceIsSetArrives) {
  control->sendPlayState(3, 0);
  player->setSource("C:\\b.mp3");
  control->sendPlayState(0, 1);
  EXPECT_EQ(heard(), Lines{"0->1"});
}

TEST_F(RealPlayerControlTest, AStopDropsWhatWaitsAndIsReportedItself) {
  control->sendPlayState(1, 3);
  control->sendPosition(1000, 2000);
  insideACall([this](DISPID) { control->sendPlayState(3, 0); });
  player->stop();
  EXPECT_EQ(heard(), Lines{"3->0"});
}

TEST_F(RealPlayerControlTest, APlayThatTheControlRefusesIsAnErrorFromTheMessageLoop) {
  control->failCalls(E_FAIL);
  player->play();
  EXPECT_EQ(trace, Lines{});
  EXPECT_EQ(heard(), Lines{"error"});
}

TEST_F(RealPlayerControlTest, ARefusedPlayIsForgottenWithItsSource) {
  control->failCalls(E_FAIL);
  player->play();
  player->setSource("C:\\b.mp3");
  EXPECT_EQ(heard(), Lines{});
}

class RealPlayerFailureTest : public RealPlayerControlTest,
                              public testing::WithParamInterface<HRESULT> {};

TEST_P(RealPlayerFailureTest, OfEveryMemberIsAbsorbedAndLoggedOnce) {
  control->failCalls(GetParam());
  callEachMember();
  callEachMember();
  EXPECT_FALSE(player->canStop());
  EXPECT_EQ(player->lengthMs(), 0);
  EXPECT_EQ(log.lines.size(), kMembers);
}

INSTANTIATE_TEST_SUITE_P(Results, RealPlayerFailureTest,
                         testing::Values(E_FAIL, RPC_E_DISCONNECTED, DISP_E_MEMBERNOTFOUND,
                                         DISP_E_EXCEPTION));

TEST_F(RealPlayerControlTest, WithoutTheControlEveryPlayIsAnErrorAndTheLogSaysSoOnce) {
  player.reset();
  withdrawControl();
  makePlayer();
  EXPECT_FALSE(player->created());
  for (int round = 0; round < 2; ++round) {
    callEachMember();
    serve();
    player->play();
    EXPECT_EQ(trace, Lines{});
    EXPECT_EQ(heard(), Lines{"error"});
  }
  EXPECT_FALSE(player->canStop());
  EXPECT_EQ(player->lengthMs(), 0);
  ASSERT_EQ(log.lines.size(), 1U);
  EXPECT_NE(log.lines[0].find("RealPlayer"), std::string::npos);
}

TEST_F(RealPlayerControlTest, WithoutTheControlThereIsAWindowToShowAndPlace) {
  player.reset();
  withdrawControl();
  makePlayer();
  player->move({10, 20, 30, 40});
  player->setVisible(true);
  EXPECT_TRUE(player->visible());
  RECT area{};
  GetClientRect(GetWindow(stage, GW_CHILD), &area);
  EXPECT_EQ(area.right, 30);
  EXPECT_EQ(area.bottom, 40);
}

TEST_F(RealPlayerControlTest, AControlThatCannotBeActivatedIsAsGoodAsMissing) {
  control->refuseActivation(E_FAIL);
  makePlayer();
  EXPECT_FALSE(player->created());
  EXPECT_EQ(control->instances(), 0);
  player->play();
  EXPECT_EQ(heard(), Lines{"error"});
}

TEST_F(RealPlayerControlTest, AControlThatCannotBeMadeIsMissing) {
  control->refuseCreation(E_OUTOFMEMORY);
  makePlayer();
  EXPECT_FALSE(player->created());
  player->play();
  EXPECT_EQ(heard(), Lines{"error"});
}

TEST_F(RealPlayerControlTest, WithoutADescriptionTheErrorMessageAloneIsKnownAndTheLogSaysSo) {
  control->hideTypeInformation(true);
  makePlayer();
  ASSERT_EQ(log.lines.size(), 1U);
  control->sendPlayState(1, 3);
  control->sendPosition(1000, 2000);
  control->sendMouseMove(1, 2);
  control->sendError();
  EXPECT_EQ(heard(), Lines{"error"});
  EXPECT_EQ(log.lines.size(), 1U);
}

TEST_F(RealPlayerControlTest, OfTwoEventsOfOneShapeTheOneWithTheNameCountsAndTheLogSaysSoOnce) {
  control->describeMoreEvents(true);
  makePlayer();
  EXPECT_EQ(log.lines, (Lines{"info the RealPlayer control describes several events like "
                              "PlayState, one of them counts",
                              "info the RealPlayer control describes several events like "
                              "PositionChange, one of them counts"}));
  control->sendStationChange(1, 0);
  control->sendScroll(7, 9);
  control->sendPlayState(1, 3);
  control->sendPosition(1000, 2000);
  EXPECT_EQ(heard(), (Lines{"1->3", "1000 of 2000"}));
  EXPECT_EQ(log.lines.size(), 2U);
}

TEST_F(RealPlayerControlTest, NothingArrivesFromOneThatIsGone) {
  control->sendPlayState(1, 3);
  control->sendError();
  player.reset();
  EXPECT_EQ(heard(), Lines{});
}

TEST_F(RealPlayerControlTest, MayBeDestroyedByAListener) {
  player->playStateChange.listen([this](RealPlayState, RealPlayState) { player.reset(); });
  control->sendPlayState(3, 0);
  control->sendError();
  EXPECT_EQ(heard(), Lines{"3->0"});
  EXPECT_EQ(player, nullptr);
}

TEST_F(RealPlayerControlTest, IsStoppedBeforeItGoesWhenItIsActive) {
  control->answer(260, 1);
  player.reset();
  EXPECT_EQ(takeRecord(),
            (Lines{"260 read", "202 call", "unadvise", "deactivate", "close", "no site"}));
}

TEST_F(RealPlayerControlTest, IsNotStoppedBeforeItGoesWhenItIsIdle) {
  player.reset();
  EXPECT_EQ(takeRecord(), (Lines{"260 read", "unadvise", "deactivate", "close", "no site"}));
}

TEST_F(RealPlayerControlTest, WhatTheControlTellsWhileItGoesReachesNobody) {
  control->answer(260, 1);
  insideACall([this](DISPID) { control->sendPlayState(3, 0); });
  player.reset();
  EXPECT_EQ(heard(), Lines{});
}

TEST_F(RealPlayerControlTest, TheControlFillsTheWindowThatIsPlaced) {
  player->move({15, 25, 320, 180});
  RECT window{};
  GetWindowRect(control->window(), &window);
  MapWindowPoints(nullptr, stage, reinterpret_cast<POINT*>(&window), 2);
  EXPECT_EQ(window.left, 15);
  EXPECT_EQ(window.top, 25);
  EXPECT_EQ(window.right, 335);
  EXPECT_EQ(window.bottom, 205);
  RECT picture{};
  GetWindowRect(control->picture(), &picture);
  EXPECT_EQ(picture.right - picture.left, 320);
  EXPECT_EQ(picture.bottom - picture.top, 180);
}

TEST_F(RealPlayerControlTest, ThePictureIsShownAndHiddenWithTheSlot) {
  player->setVisible(true);
  EXPECT_TRUE(player->visible());
  EXPECT_TRUE(IsWindowVisible(control->picture()));
  player->setVisible(false);
  EXPECT_FALSE(player->visible());
  EXPECT_FALSE(IsWindowVisible(control->picture()));
}

TEST_F(RealPlayerControlTest, APictureThatComesLateFillsTheWindowToo) {
  control->startWithoutPicture(true);
  makePlayer();
  player->move({0, 0, 200, 100});
  ASSERT_EQ(control->picture(), nullptr);
  control->makePicture();
  RECT picture{};
  GetClientRect(control->picture(), &picture);
  EXPECT_EQ(picture.right, 200);
  EXPECT_EQ(picture.bottom, 100);
}

TEST_F(RealPlayerControlTest, FiftyRoundsLeaveNothingBehind) {
  for (int round = 0; round < 50; ++round) {
    makePlayer();
    player->move({0, 0, 100 + round, 100});
    player->setVisible(true);
    callEachMember();
    control->sendPlayState(1, 3);
    if (round % 2 == 0) serve();
    const HWND window = control->window();
    ASSERT_EQ(control->instances(), 1);
    player.reset();
    ASSERT_EQ(control->instances(), 0);
    ASSERT_FALSE(IsWindow(window));
    ASSERT_EQ(GetWindow(stage, GW_CHILD), nullptr);
  }
}

}  // namespace
}  // namespace tessivo
