#include "config/CheckUserFigure.h"

#include <gtest/gtest.h>

#include "fakes/FakeAccounts.h"
#include "fakes/FakeLog.h"

namespace tessivo {
namespace {

using Names = std::vector<std::string>;

class CheckUserFigureTest : public testing::Test {
 protected:
  FakeAccounts accounts;
  FakeLog log;
  CheckUserFigure figure{accounts, log};
};

TEST_F(CheckUserFigureTest, AMemberOfAdministratorsBelongsToThemWhateverTheCase) {
  for (const char* const name : {"Administrators", "ADMINISTRATORS", "administrators"}) {
    accounts.local = {"Users", name};
    EXPECT_TRUE(figure.boolUserBlongToAdminsGroup()) << name;
  }
  EXPECT_EQ(accounts.asked.front(), std::string("local [] operator\0", 18));
}

TEST_F(CheckUserFigureTest, AGroupOfAnotherNameIsNotTheAdministrators) {
  for (const Names& groups : {Names{"Users"}, Names{"Administratoren"}, Names{"管理员"},
                              Names{"Administrators2", "My Administrators"}}) {
    accounts.local = groups;
    EXPECT_FALSE(figure.boolUserBlongToAdminsGroup());
  }
}

TEST_F(CheckUserFigureTest, WithoutGroupsNobodyBelongsToThem) {
  EXPECT_FALSE(figure.boolUserBlongToAdminsGroup());
  accounts.local = {"Administrators"};
  accounts.error = 2221;
  EXPECT_FALSE(figure.boolUserBlongToAdminsGroup());
  accounts.error = 0;
  accounts.local = {"", "Administrators"};
  EXPECT_FALSE(figure.boolUserBlongToAdminsGroup());
}

TEST_F(CheckUserFigureTest, TheLogSaysWhatDecided) {
  accounts.local = {"Users", "管理员"};
  figure.boolUserBlongToAdminsGroup();
  accounts.local = {"Administrators"};
  figure.boolUserBlongToAdminsGroup();
  accounts.local.clear();
  accounts.elevated = false;
  figure.boolUserBlongToAdminsGroup();
  accounts.error = 53;
  accounts.elevated = std::nullopt;
  figure.boolUserBlongToAdminsGroup();
  const std::string rule =
      " administrator (by membership in the local group \"Administrators\"): user \"operator\", "
      "groups ";
  EXPECT_EQ(
      log.lines,
      (Names{"info the user is no" + rule + "\"Users\", \"管理员\", status 0, process elevated",
             "info the user is an" + rule + "\"Administrators\", status 0, process elevated",
             "info the user is no" + rule + "none known, status 0, process not elevated",
             "info the user is no" + rule + "none known, status 53, process unknown"}));
}

TEST_F(CheckUserFigureTest, LocalGroupsAreAlwaysThisMachines) {
  accounts.local = {"a", "b"};
  EXPECT_EQ(figure.GetUserGroups("\\\\server", "me", true), (Names{"a", "b"}));
  EXPECT_EQ(accounts.asked, Names{"local [] me"});
}

TEST_F(CheckUserFigureTest, GlobalGroupsAreTheServers) {
  accounts.global = {"d"};
  EXPECT_EQ(figure.GetUserGroups("server", "me", false), Names{"d"});
  EXPECT_EQ(figure.GetUserGroups("\\\\server", "me", false), Names{"d"});
  EXPECT_EQ(accounts.asked, (Names{"global [\\\\server] me", "global [\\\\server] me"}));
}

TEST_F(CheckUserFigureTest, NoGroupsAreOneEmptyText) {
  EXPECT_EQ(figure.GetUserGroups("", "me", true), Names{""});
  accounts.local = {"a"};
  accounts.global = {"a"};
  accounts.error = 5;
  EXPECT_EQ(figure.GetUserGroups("", "nobody", true), Names{""});
  EXPECT_EQ(figure.GetUserGroups("s", "nobody", false), Names{""});
}

TEST_F(CheckUserFigureTest, TheUsersNameKeepsItsNul) {
  EXPECT_EQ(figure.getCurrentUserName(), std::string("operator\0", 9));
}

}  // namespace
}  // namespace tessivo
