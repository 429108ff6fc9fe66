#include <gtest/gtest.h>
#include <windows.h>

#include <fstream>

#include "fakes/TempFolder.h"
#include "platform/win32/WindowsText.h"
#include "ssp/SettingsFile.h"

namespace tessivo::ssp {
namespace {

/// The user's file, old, which another program has open and nobody can delete.
struct SettingsFileInUseTest : testing::Test {
  SettingsFileInUseTest() { std::ofstream(toFilePath(own)) << "old"; }
  ~SettingsFileInUseTest() override { CloseHandle(handle); }

  void openOther(DWORD share) {
    handle =
        CreateFileW(toWide(own).c_str(), GENERIC_READ, share, nullptr, OPEN_EXISTING, 0, nullptr);
    ASSERT_NE(handle, INVALID_HANDLE_VALUE);
  }

  TempFolder programs;
  TempFolder users;
  std::string own = users.file("a.ini");
  SettingsFile file{programs.file("a.ini"), own};
  HANDLE handle = INVALID_HANDLE_VALUE;
};

TEST_F(SettingsFileInUseTest, IsWrittenWhereItMayBe) {
  openOther(FILE_SHARE_READ | FILE_SHARE_WRITE);
  EXPECT_TRUE(file.save("new"));
  EXPECT_EQ(file.read(), "new");
}

TEST_F(SettingsFileInUseTest, OtherwiseSavingFails) {
  openOther(FILE_SHARE_READ);
  EXPECT_FALSE(file.save("new"));
  EXPECT_EQ(file.read(), "old");
}

}  // namespace
}  // namespace tessivo::ssp
