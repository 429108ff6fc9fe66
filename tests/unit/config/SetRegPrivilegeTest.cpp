#include "config/SetRegPrivilege.h"

#include <gtest/gtest.h>

#include "fakes/FakeAccounts.h"

namespace tessivo {
namespace {

class SetRegPrivilegeTest : public testing::Test {
 protected:
  FakeProcessToken token;
  std::string text = "before";
};

TEST_F(SetRegPrivilegeTest, OpensTheTokenOnceWithAllAccess) {
  SetRegPrivilege privileges(token);
  privileges.boolEnablePrivilege(text);
  privileges.boolUnEnablePrivilege(text);
  EXPECT_EQ(token.openedWith, std::vector<std::uint32_t>{0xF00FF});
}

TEST_F(SetRegPrivilegeTest, TheTableHasThirtyNamesInTheirOrder) {
  const std::vector<std::string> names(SetRegPrivilege::names().begin(),
                                       SetRegPrivilege::names().end());
  EXPECT_EQ(names, (std::vector<std::string>{"SeAssignPrimaryTokenPrivilege",
                                             "SeAuditPrivilege",
                                             "SeBackupPrivilege",
                                             "SeChangeNotifyPrivilege",
                                             "SeCreateGlobalPrivilege",
                                             "SeCreatePagefilePrivilege",
                                             "SeCreatePermanentPrivilege",
                                             "SeCreateTokenPrivilege",
                                             "SeDebugPrivilege",
                                             "SeEnableDelegationPrivilege",
                                             "SeImpersonatePrivilege",
                                             "SeIncreaseBasePriorityPrivilege",
                                             "SeIncreaseQuotaPrivilege",
                                             "SeLoadDriverPrivilege",
                                             "SeLockMemoryPrivilege",
                                             "SeMachineAccountPrivilege",
                                             "SeManageVolumePrivilege",
                                             "SeProfileSingleProcessPrivilege",
                                             "SeRemoteShutdownPrivilege",
                                             "SeRestorePrivilege",
                                             "SeSecurityPrivilege",
                                             "SeShutdownPrivilege",
                                             "SeSyncAgentPrivilege",
                                             "SeSystemEnvironment",
                                             "SeSystemProfilePrivilege",
                                             "SeSystemtimePrivilege",
                                             "SeTakeOwnershipPrivilege",
                                             "SeTcbPrivilege",
                                             "SeUndockPrivilege",
                                             "SeUnsolicitedInputPrivilege"}));
}

TEST_F(SetRegPrivilegeTest, SwitchesEachPrivilegeOnButTheTwoThatNoSystemKnows) {
  SetRegPrivilege privileges(token);
  EXPECT_TRUE(privileges.boolEnablePrivilege(text));
  EXPECT_EQ(text, "before");
  std::vector<std::string> expected(SetRegPrivilege::names().begin(),
                                    SetRegPrivilege::names().end());
  std::erase(expected, "SeSystemEnvironment");
  std::erase(expected, "SeUnsolicitedInputPrivilege");
  EXPECT_EQ(token.lookedUp, expected);
  ASSERT_EQ(token.adjusted.size(), 28U);
  for (std::size_t i = 0; i < expected.size(); ++i) {
    const auto& [all, privilege] = token.adjusted[i];
    EXPECT_FALSE(all);
    EXPECT_EQ(privilege.count, 1U);
    EXPECT_EQ(privilege.identifier, expected[i].size());
    EXPECT_EQ(privilege.attributes, 2U);
  }
}

TEST_F(SetRegPrivilegeTest, AnUnknownPrivilegeIsPassedOverAndNamed) {
  token.unknown = "SeTcbPrivilege";
  SetRegPrivilege privileges(token);
  EXPECT_TRUE(privileges.boolEnablePrivilege(text));
  EXPECT_EQ(text, "LookupPrivilegeValue(SeTcbPrivilege):1313");
  EXPECT_EQ(token.adjusted.size(), 27U);
}

TEST_F(SetRegPrivilegeTest, OfSeveralRefusedOnesTheLastIsNamed) {
  token.refuseAll = true;
  SetRegPrivilege privileges(token);
  EXPECT_TRUE(privileges.boolEnablePrivilege(text));
  EXPECT_EQ(text, "AdjustTokenPrivileges--(SeUndockPrivilege):6");
  EXPECT_EQ(token.adjusted.size(), 28U);
}

TEST_F(SetRegPrivilegeTest, WithoutTheTokenNothingIsSwitchedOn) {
  token.openError = 5;
  SetRegPrivilege privileges(token);
  EXPECT_FALSE(privileges.boolEnablePrivilege(text));
  EXPECT_EQ(text, "OpenProcessToken:5");
  EXPECT_TRUE(token.lookedUp.empty());
}

TEST_F(SetRegPrivilegeTest, TheEndDropsAll) {
  SetRegPrivilege privileges(token);
  EXPECT_TRUE(privileges.boolUnEnablePrivilege(text));
  EXPECT_EQ(text, "before");
  ASSERT_EQ(token.adjusted.size(), 1U);
  EXPECT_TRUE(token.adjusted[0].first);
}

TEST_F(SetRegPrivilegeTest, AnEndThatIsRefusedSaysWhy) {
  token.refuseAll = true;
  SetRegPrivilege privileges(token);
  EXPECT_FALSE(privileges.boolUnEnablePrivilege(text));
  EXPECT_EQ(text, "AdjustTokenPrivileges: 6");
}

}  // namespace
}  // namespace tessivo
