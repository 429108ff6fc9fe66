// The user's rights as the system has them: accounts, the process's token, a key's access list.
#include <gtest/gtest.h>
#include <windows.h>

#include <algorithm>

#include "config/CheckUserFigure.h"
#include "config/SetRegItemACL.h"
#include "config/SetRegPrivilege.h"
#include "fakes/FakeLog.h"
#include "platform/win32/Win32Accounts.h"
#include "platform/win32/Win32KeySecurity.h"
#include "platform/win32/Win32ProcessToken.h"
#include "platform/win32/WindowsText.h"

namespace tessivo {
namespace {

TEST(AccountsOnWindows, TheUsersNameComesWithItsNul) {
  wchar_t name[256];
  DWORD size = 256;
  ASSERT_TRUE(GetUserNameW(name, &size));
  EXPECT_EQ(Win32Accounts().currentUserName(), fromWide({name, size}));
  EXPECT_EQ(Win32Accounts().currentUserName().back(), '\0');
}

TEST(AccountsOnWindows, TheUserHasGroupsOnThisMachine) {
  std::vector<std::string> groups;
  const Win32Accounts accounts;
  EXPECT_EQ(accounts.localGroupsOf("", accounts.currentUserName(), groups), 0U);
  EXPECT_FALSE(groups.empty());
}

TEST(AccountsOnWindows, AMachineWithoutAProperNameIsAnErrorAndHasNoGroups) {
  std::vector<std::string> groups{"stale"};
  const Win32Accounts accounts;
  EXPECT_NE(accounts.localGroupsOf("\\\\", accounts.currentUserName(), groups), 0U);
  EXPECT_TRUE(groups.empty());
}

TEST(AccountsOnWindows, TheAnswerWhetherTheUserIsAnAdministratorIsTheGroups) {
  const Win32Accounts accounts;
  std::vector<std::string> groups;
  accounts.localGroupsOf("", accounts.currentUserName(), groups);
  FakeLog log;
  const bool belongs = CheckUserFigure(accounts, log).boolUserBlongToAdminsGroup();
  EXPECT_EQ(belongs, std::ranges::count(groups, "Administrators") == 1);
  ASSERT_EQ(log.lines.size(), 1U);
  EXPECT_TRUE(log.lines[0].starts_with(belongs ? "info the user is an administrator "
                                               : "info the user is no administrator "));
}

TEST(AccountsOnWindows, TheSystemTellsWhetherTheProcessIsElevated) {
  HANDLE token = nullptr;
  ASSERT_TRUE(OpenProcessToken(GetCurrentProcess(), TOKEN_QUERY, &token));
  TOKEN_ELEVATION_TYPE type{};
  DWORD size = 0;
  ASSERT_TRUE(GetTokenInformation(token, TokenElevationType, &type, sizeof type, &size));
  CloseHandle(token);
  const auto elevated = Win32Accounts().processIsElevated();
  ASSERT_TRUE(elevated.has_value());
  if (type != TokenElevationTypeDefault) {
    EXPECT_EQ(*elevated, type == TokenElevationTypeFull);
  }
}

/// The attributes of a privilege of this process; nothing when it has it not.
std::optional<DWORD> attributesOf(const wchar_t* privilege) {
  HANDLE token = nullptr;
  LUID wanted{};
  if (!OpenProcessToken(GetCurrentProcess(), TOKEN_QUERY, &token) ||
      !LookupPrivilegeValueW(nullptr, privilege, &wanted)) {
    return std::nullopt;
  }
  DWORD size = 0;
  GetTokenInformation(token, TokenPrivileges, nullptr, 0, &size);
  std::vector<BYTE> bytes(size);
  GetTokenInformation(token, TokenPrivileges, bytes.data(), size, &size);
  CloseHandle(token);
  const auto* all = reinterpret_cast<const TOKEN_PRIVILEGES*>(bytes.data());
  for (DWORD i = 0; i < all->PrivilegeCount; ++i) {
    const LUID_AND_ATTRIBUTES& one = all->Privileges[i];
    if (one.Luid.LowPart == wanted.LowPart && one.Luid.HighPart == wanted.HighPart) {
      return one.Attributes;
    }
  }
  return std::nullopt;
}

TEST(PrivilegesOnWindows, AreSwitchedOnAndDropped) {
  const wchar_t* const kDebug = L"SeDebugPrivilege";
  ASSERT_TRUE(attributesOf(kDebug)) << "this user has not that privilege";
  Win32ProcessToken token;
  SetRegPrivilege privileges(token);
  std::string text;
  ASSERT_TRUE(privileges.boolEnablePrivilege(text)) << text;
  EXPECT_TRUE(*attributesOf(kDebug) & SE_PRIVILEGE_ENABLED);
  EXPECT_TRUE(privileges.boolUnEnablePrivilege(text)) << text;
  EXPECT_FALSE(*attributesOf(kDebug) & SE_PRIVILEGE_ENABLED);
}

/// A key of the test's own whose list holds what a test puts in.
class KeySecurityOnWindows : public testing::Test {
 protected:
  void SetUp() override {
    ASSERT_EQ(RegCreateKeyExW(HKEY_CURRENT_USER, toWide(path).c_str(), 0, nullptr, 0,
                              KEY_ALL_ACCESS, nullptr, &key, nullptr),
              ERROR_SUCCESS);
  }
  void TearDown() override {
    RegCloseKey(key);
    RegDeleteTreeW(HKEY_CURRENT_USER, toWide(path).c_str());
  }
  std::optional<AccessList> list() {
    Bytes descriptor(4096);
    std::uint32_t needed = 0;
    std::optional<AccessList> found;
    EXPECT_EQ(security.readDescriptor(reinterpret_cast<KeySecurity::Key>(key), descriptor, needed),
              0U);
    EXPECT_EQ(security.listOf(descriptor, found), 0U);
    return found;
  }

  const std::string path = "Software\\Tessivo rights " + std::to_string(GetCurrentProcessId());
  HKEY key = nullptr;
  Win32KeySecurity security;
};

TEST_F(KeySecurityOnWindows, AnAccountHasAnIdentifierAndAnUnknownOneAnError) {
  Bytes identifier;
  EXPECT_EQ(security.accountIdentifierOf("Everyone", identifier), 0U);
  ASSERT_FALSE(identifier.empty());
  EXPECT_TRUE(IsValidSid(identifier.data()));
  EXPECT_NE(security.accountIdentifierOf("no such account here", identifier), 0U);
}

TEST_F(KeySecurityOnWindows, AListIsMadeGivenToTheKeyAndReadBack) {
  Bytes everyone;
  ASSERT_EQ(security.accountIdentifierOf("Everyone", everyone), 0U);
  Bytes made;
  ASSERT_EQ(security.makeList(200, {}, KEY_ALL_ACCESS, everyone, made), 0U);
  ASSERT_EQ(security.writeList(reinterpret_cast<KeySecurity::Key>(key), made), 0U);
  const auto found = list();
  ASSERT_TRUE(found);
  ASSERT_EQ(found->entries.size(), 1U);
  EXPECT_EQ(found->entries[0].accountIdentifier, everyone);
}

TEST_F(KeySecurityOnWindows, TheAccountsNewEntryTakesThePlaceOfItsOldOne) {
  Bytes everyone;
  ASSERT_EQ(security.accountIdentifierOf("Everyone", everyone), 0U);
  Bytes made;
  ASSERT_EQ(security.makeList(200, {}, KEY_ALL_ACCESS, everyone, made), 0U);
  ASSERT_EQ(security.writeList(reinterpret_cast<KeySecurity::Key>(key), made), 0U);
  SetRegItemACL access(security);
  bool result = false;
  access.pSetKeyAccess(RegistryRoot::currentUser, path, "Everyone", KEY_READ, result);
  EXPECT_TRUE(result) << access.strDiagnostic();
  const auto found = list();
  ASSERT_TRUE(found);
  ASSERT_EQ(found->entries.size(), 1U);
  EXPECT_EQ(found->entries[0].accountIdentifier, everyone);
  ASSERT_GE(found->entries[0].bytes.size(), sizeof(ACCESS_ALLOWED_ACE));
  const auto* entry = reinterpret_cast<const ACCESS_ALLOWED_ACE*>(found->entries[0].bytes.data());
  EXPECT_EQ(entry->Mask, ACCESS_MASK{KEY_READ});
}

TEST_F(KeySecurityOnWindows, WhatTheAccountWasGivenIsWhatTheSystemThenAllows) {
  const auto openFor = [this](REGSAM rights) {
    HKEY opened = nullptr;
    const LSTATUS status =
        RegOpenKeyExW(HKEY_CURRENT_USER, toWide(path).c_str(), 0, rights, &opened);
    if (opened) RegCloseKey(opened);
    return status;
  };
  Bytes everyone;
  Bytes made;
  ASSERT_EQ(security.accountIdentifierOf("Everyone", everyone), 0U);
  ASSERT_EQ(security.makeList(200, {}, KEY_ALL_ACCESS, everyone, made), 0U);
  ASSERT_EQ(security.writeList(reinterpret_cast<KeySecurity::Key>(key), made), 0U);
  EXPECT_EQ(openFor(KEY_SET_VALUE), ERROR_SUCCESS);
  SetRegItemACL access(security);
  bool result = false;
  access.pSetKeyAccess(RegistryRoot::currentUser, path, "Everyone", KEY_READ, result);
  EXPECT_TRUE(result);
  EXPECT_EQ(openFor(KEY_READ), ERROR_SUCCESS);
  EXPECT_EQ(openFor(KEY_SET_VALUE), ERROR_ACCESS_DENIED);
  // Who may do less with a key than everything cannot be given more this way.
  access.pSetKeyAccess(RegistryRoot::currentUser, path, "Everyone", KEY_ALL_ACCESS, result);
  EXPECT_FALSE(result);
  EXPECT_EQ(openFor(KEY_SET_VALUE), ERROR_ACCESS_DENIED);
}

TEST_F(KeySecurityOnWindows, AMissingKeyIsAFailure) {
  SetRegItemACL access(security);
  bool result = true;
  access.pSetKeyAccess(RegistryRoot::currentUser, path + "\\none", "Everyone", KEY_READ, result);
  EXPECT_FALSE(result);
}

TEST_F(KeySecurityOnWindows, TheSystemHasWordsForAnError) {
  EXPECT_NE(security.messageOf(ERROR_ACCESS_DENIED), "");
  EXPECT_EQ(security.messageOf(0x2FFFFFFF), "");
  // Words that leave a place for a name keep it.
  EXPECT_NE(security.messageOf(ERROR_BAD_EXE_FORMAT).find("%1"), std::string::npos);
}

}  // namespace
}  // namespace tessivo
