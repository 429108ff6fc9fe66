#include "screen/engines/control/ControlDispatch.h"

#include <stdexcept>

#include "win32/engines/TestControlStage.h"

namespace tessivo {
namespace {

using Lines = std::vector<std::string>;

class ControlDispatchTest : public TestControlStage {
 protected:
  void SetUp() override {
    TestControlStage::SetUp();
    ASSERT_EQ(CoCreateInstance(kRealPlayerControl, nullptr, CLSCTX_INPROC_SERVER,
                               __uuidof(IUnknown), object.putVoid()),
              S_OK);
  }
  void TearDown() override { object.reset(); }

  ComPtr<IUnknown> object;
};

TEST_F(ControlDispatchTest, CallsAMethodWithItsArgumentsInTheOrderOfDeclaration) {
  ControlDispatch dispatch("it", object.get(), log);
  dispatch.call(7, {Variant(1), Variant(std::wstring(L"二")), Variant(true)});
  EXPECT_EQ(takeRecord(), (Lines{"7 call I4 1 BSTR 二 BOOL true"}));
}

TEST_F(ControlDispatchTest, SaysWhetherACallSucceeded) {
  ControlDispatch dispatch("it", object.get(), log);
  EXPECT_TRUE(dispatch.call(257));
  EXPECT_FALSE(dispatch.call(9999));
}

TEST_F(ControlDispatchTest, ACallThatThrowsHasFailed) {
  control->during([](void*, DISPID) { throw std::runtime_error("a control"); }, nullptr);
  ControlDispatch dispatch("it", object.get(), log);
  EXPECT_FALSE(dispatch.call(257));
  EXPECT_EQ(dispatch.get(261).type(), VT_EMPTY);
  EXPECT_FALSE(dispatch.put(102, Variant(std::wstring(L"C:\\a.mp3"))));
}

TEST_F(ControlDispatchTest, SetsAPropertyAsAProperty) {
  ControlDispatch dispatch("it", object.get(), log);
  EXPECT_TRUE(dispatch.put(102, Variant(std::wstring(L"C:\\a.mp3"))));
  EXPECT_EQ(takeRecord(), (Lines{"102 put BSTR C:\\a.mp3"}));
}

TEST_F(ControlDispatchTest, ReadsAValueAsAPropertyOrAMethod) {
  control->answer(261, 83000);
  ControlDispatch dispatch("it", object.get(), log);
  EXPECT_EQ(dispatch.get(261).number(), 83000);
  EXPECT_EQ(takeRecord(), (Lines{"261 read"}));
}

TEST_F(ControlDispatchTest, AReferenceGivesTheCalleeTheCallersVariable) {
  control->writeBack(17);
  ControlDispatch dispatch("it", object.get(), log);
  std::int16_t volume = 30;
  EXPECT_TRUE(dispatch.call(227, {Variant::numberByReference(volume)}));
  EXPECT_EQ(volume, 17);
}

TEST_F(ControlDispatchTest, AFailedReadIsEmpty) {
  control->failCalls(RPC_E_DISCONNECTED);
  ControlDispatch dispatch("it", object.get(), log);
  EXPECT_EQ(dispatch.get(261).type(), VT_EMPTY);
}

TEST_F(ControlDispatchTest, LogsTheFirstFailureOfEachMember) {
  control->failCalls(DISP_E_MEMBERNOTFOUND);
  ControlDispatch dispatch("it", object.get(), log);
  for (int round = 0; round < 3; ++round) {
    dispatch.call(227);
    dispatch.get(261);
  }
  ASSERT_EQ(log.lines.size(), 2U);
  EXPECT_EQ(log.lines[0], "error it: member 227 failed: 0x80020003, said once");
  EXPECT_EQ(log.lines[1], "error it: member 261 failed: 0x80020003, said once");
}

TEST_F(ControlDispatchTest, WithoutAControlEverythingFailsWithoutALine) {
  ControlDispatch dispatch("it", nullptr, log);
  EXPECT_FALSE(dispatch.call(257));
  EXPECT_FALSE(dispatch.put(102, Variant(1)));
  EXPECT_EQ(dispatch.get(261).type(), VT_EMPTY);
  EXPECT_TRUE(log.lines.empty());
}

}  // namespace
}  // namespace tessivo
