// The user's rights as the system has them: accounts, the process's token, a key's access list.
#include <gtest/gtest.h>
#include <windows.h>

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

TEST(AccountsOnWindows, AnUnknownUserHasNoGroups) {
  const Win32Accounts accounts;
  FakeLog log;
  const CheckUserFigure figure(accounts, log);
  EXPECT_EQ(figure.GetUserGroups("", "no such user here", true), std::vector<std::string>{""});
}

TEST(AccountsOnWindows, TheQuestionForTheAdministratorsIsAnsweredAndLogged) {
  const Win32Accounts accounts;
  FakeLog log;
  const bool belongs = CheckUserFigure(accounts, log).boolUserBlongToAdminsGroup();
  ASSERT_EQ(log.lines.size(), 1U);
  EXPECT_TRUE(log.lines[0].starts_with(belongs ? "info file associations are open"
                                               : "info file associations are locked"));
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
  EXPECT_NE(found->entries[0].bytes, Bytes{});
  const auto* entry = reinterpret_cast<const ACCESS_ALLOWED_ACE*>(found->entries[0].bytes.data());
  EXPECT_EQ(entry->Mask, ACCESS_MASK{KEY_READ});
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
}

}  // namespace
}  // namespace tessivo
