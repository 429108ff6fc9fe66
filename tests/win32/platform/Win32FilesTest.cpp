#include "platform/win32/Win32Files.h"

#include <windows.h>

#include <gtest/gtest.h>

#include "fakes/TempFolder.h"
#include "platform/win32/WindowsText.h"

namespace tessivo {
namespace {

class Win32FilesTest : public testing::Test {
 protected:
  std::wstring root() const { return LR"(\\?\)" + folder.path().wstring(); }
  static bool make(const std::wstring& path) {
    const HANDLE file =
        CreateFileW(path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW, 0, nullptr);
    if (file == INVALID_HANDLE_VALUE) return false;
    CloseHandle(file);
    return true;
  }
  /// The path as the program has it: without the prefix that lifts the limits.
  static std::string plain(const std::wstring& path) { return fromWide(path.substr(4)); }

  TempFolder folder;
  Win32Files files;
};

TEST_F(Win32FilesTest, FileExistsAndFolderIsNone) {
  const std::wstring path = root() + L"\\a.avi";
  ASSERT_TRUE(make(path));
  EXPECT_TRUE(files.fileExists(plain(path)));
  EXPECT_FALSE(files.fileExists(plain(root())));
  EXPECT_FALSE(files.fileExists(plain(root() + L"\\b.avi")));
}

TEST_F(Win32FilesTest, NamesOutsideTheCodePage) {
  const std::wstring path = root() + L"\\泰思维 \xD83C\xDFAC é.rmvb";
  ASSERT_TRUE(make(path));
  EXPECT_TRUE(files.fileExists(plain(path)));
}

TEST_F(Win32FilesTest, PathOfThreeHundredCharacters) {
  std::wstring path = root();
  while (path.size() < 280) {
    path += L"\\" + std::wstring(40, L'd');
    ASSERT_TRUE(CreateDirectoryW(path.c_str(), nullptr));
  }
  path += L"\\" + std::wstring(30, L'f') + L".avi";
  ASSERT_TRUE(make(path));
  ASSERT_GT(plain(path).size(), 300U);
  EXPECT_TRUE(files.fileExists(plain(path)));
  EXPECT_FALSE(files.fileExists(plain(path) + "x"));
}

TEST_F(Win32FilesTest, OpenFileThatNobodyMayShareExists) {
  const std::wstring path = root() + L"\\locked.avi";
  const HANDLE file = CreateFileW(path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW, 0, nullptr);
  ASSERT_NE(file, INVALID_HANDLE_VALUE);
  EXPECT_TRUE(files.fileExists(plain(path)));
  CloseHandle(file);
}

TEST_F(Win32FilesTest, LoneSurrogateIsNoTrouble) {
  const std::wstring path = root() + L"\\\xD800.avi";
  const bool made = make(path);
  EXPECT_EQ(files.fileExists(plain(path)), made);
}

TEST_F(Win32FilesTest, WhatIsNoPathIsNoFile) {
  const std::wstring path = root() + L"\\a.avi";
  ASSERT_TRUE(make(path));
  EXPECT_FALSE(files.fileExists(""));
  EXPECT_FALSE(files.fileExists(plain(path) + std::string("\0.txt", 5)));
  EXPECT_FALSE(files.fileExists(plain(root()) + "\\*.avi"));
  EXPECT_FALSE(files.fileExists("\"" + plain(path) + "\""));
  EXPECT_FALSE(files.fileExists(plain(path) + "\\"));
}

}  // namespace
}  // namespace tessivo
