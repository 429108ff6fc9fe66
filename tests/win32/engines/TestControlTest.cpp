// The test control's own promises, which tests of the whole program build upon.
#include <algorithm>
#include <memory>

#include "win32/engines/TestControlStage.h"

namespace tessivo {
namespace {

using Lines = std::vector<std::string>;

class TestControlTest : public TestControlStage {
 protected:
  HRESULT run(const char* function) {
    return library().function<HRESULT(STDAPICALLTYPE*)()>(function)();
  }
  static bool isCreatable() {
    ComPtr<IUnknown> object;
    return SUCCEEDED(CoCreateInstance(kRealPlayerControl, nullptr, CLSCTX_INPROC_SERVER,
                                      __uuidof(IUnknown), object.putVoid()));
  }
};

TEST_F(TestControlTest, IsCreatableWhileItIsRegistered) {
  withdrawControl();
  ASSERT_FALSE(isCreatable());
  EXPECT_EQ(run("DllRegisterServer"), S_OK);
  EXPECT_TRUE(isCreatable());
  EXPECT_EQ(run("DllUnregisterServer"), S_OK);
  EXPECT_FALSE(isCreatable());
  EXPECT_EQ(run("DllUnregisterServer"), S_OK) << "twice does no harm";
}

TEST_F(TestControlTest, RefusesAMemberInAFormItDoesNotHave) {
  RealPlayerControl player(stage, log);
  ComPtr<IUnknown> object;
  CoCreateInstance(kRealPlayerControl, nullptr, CLSCTX_INPROC_SERVER, __uuidof(IUnknown),
                   object.putVoid());
  ControlDispatch dispatch("it", object.get(), log);
  EXPECT_FALSE(dispatch.call(102, {Variant(std::wstring(L"a"))}));
  EXPECT_FALSE(dispatch.put(257, Variant(1)));
  EXPECT_FALSE(dispatch.call(227, {Variant(30)}));
  EXPECT_FALSE(dispatch.call(269));
  EXPECT_FALSE(dispatch.call(1));
}

/// The control playing a part by itself.
class TestControlScriptTest : public TestControlStage {
 protected:
  void TearDown() override {
    player.reset();
    _putenv("TESSIVO_TEST_CONTROL_SCRIPT=");
  }

  void follow(const std::string& script) {
    _putenv(("TESSIVO_TEST_CONTROL_SCRIPT=" + script).c_str());
    player = std::make_unique<RealPlayerControl>(stage, log);
    player->playStateChange.listen([this](RealPlayState from, RealPlayState to) {
      trace.push_back(std::to_string(static_cast<int>(from)) + "->" +
                      std::to_string(static_cast<int>(to)));
    });
    player->errorMessage.listen([this] { trace.push_back("error"); });
    player->positionChange.listen([this](std::int32_t now, std::int32_t) { position = now; });
  }
  bool waitForTrace(const std::string& event) {
    return waitFor([&] { return std::find(trace.begin(), trace.end(), event) != trace.end(); });
  }

  std::unique_ptr<RealPlayerControl> player;
  Lines trace;
  std::int32_t position = 0;
};

TEST_F(TestControlScriptTest, PlaysToTheEndWithPositions) {
  follow("play 700");
  player->play();
  EXPECT_TRUE(player->canStop());
  EXPECT_EQ(player->lengthMs(), 700);
  EXPECT_TRUE(waitForTrace("3->0"));
  EXPECT_EQ(trace, (Lines{"0->1", "1->3", "3->0"}));
  EXPECT_GE(position, 400);
  EXPECT_FALSE(player->canStop());
}

TEST_F(TestControlScriptTest, ShowsAPictureOnlyWhileItPlays) {
  follow("play 60000");
  EXPECT_EQ(control->picture(), nullptr);
  player->play();
  ASSERT_TRUE(waitForTrace("1->3"));
  EXPECT_NE(control->picture(), nullptr);
  player->stop();
  EXPECT_EQ(control->picture(), nullptr);
}

TEST_F(TestControlScriptTest, ObeysPausePositionAndStop) {
  follow("play 60000");
  player->play();
  ASSERT_TRUE(waitForTrace("1->3"));
  player->pause();
  player->setPositionMs(30000);
  player->play();
  EXPECT_TRUE(waitFor([this] { return position >= 30000; }));
  player->stop();
  EXPECT_TRUE(waitForTrace("3->0"));
  EXPECT_EQ(trace, (Lines{"0->1", "1->3", "3->4", "4->3", "3->0"}));
}

TEST_F(TestControlScriptTest, StopsEarly) {
  follow("early-stop");
  player->play();
  EXPECT_TRUE(waitForTrace("1->0"));
  EXPECT_EQ(trace, (Lines{"0->1", "1->0"}));
}

TEST_F(TestControlScriptTest, TellsAnError) {
  follow("error");
  player->play();
  EXPECT_TRUE(waitForTrace("error"));
  EXPECT_EQ(trace, (Lines{"0->1", "error"}));
  EXPECT_FALSE(player->canStop());
}

TEST_F(TestControlScriptTest, FailsEveryCall) {
  follow("fail");
  player->play();
  EXPECT_TRUE(waitForTrace("error"));
  EXPECT_EQ(trace, Lines{"error"});
}

TEST_F(TestControlScriptTest, StaysSilent) {
  follow("silent");
  player->play();
  EXPECT_FALSE(waitFor([this] { return !trace.empty(); }, 500));
  EXPECT_FALSE(player->canStop());
}

}  // namespace
}  // namespace tessivo
