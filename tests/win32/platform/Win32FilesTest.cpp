#include "platform/win32/Win32Files.h"

#include <windows.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

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
  /// Below the test's own, its path longer than the old limit.
  std::wstring makeDeepFolder() const {
    std::wstring path = root();
    while (path.size() < 280) {
      path += L"\\" + std::wstring(40, L'd');
      CreateDirectoryW(path.c_str(), nullptr);
    }
    return path;
  }
  /// The files of the test's own folder, by the system.
  std::vector<std::string> namesAsFound() const {
    std::vector<std::string> names;
    WIN32_FIND_DATAW entry{};
    const HANDLE search = FindFirstFileW((root() + L"\\*").c_str(), &entry);
    do {
      const std::string name = fromWide(&entry.cFileName[0]);
      if (name != "." && name != "..") names.push_back(name);
    } while (FindNextFileW(search, &entry));
    FindClose(search);
    return names;
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
  const std::wstring path = makeDeepFolder() + L"\\" + std::wstring(30, L'f') + L".avi";
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

TEST_F(Win32FilesTest, AShareThatDoesNotAnswerIsBelievedToHaveTheFile) {
  const HANDLE answers = CreateEventW(nullptr, TRUE, FALSE, nullptr);
  const HANDLE asked = CreateSemaphoreW(nullptr, 0, 100, nullptr);
  {
    const Win32Files stalling([=](const std::wstring& path) {
      if (!path.starts_with(LR"(\\dead)")) return Win32Files::isFile(path);
      ReleaseSemaphore(asked, 1, nullptr);
      WaitForSingleObject(answers, INFINITE);
      return false;
    });
    const ULONGLONG start = GetTickCount64();
    EXPECT_TRUE(stalling.fileExists(R"(\\dead\share\a.avi)"));
    EXPECT_GE(GetTickCount64() - start, 90U);
    const ULONGLONG again = GetTickCount64();
    for (int i = 0; i < 1000; ++i) EXPECT_TRUE(stalling.fileExists(R"(\\DEAD/share\b.avi)"));
    EXPECT_LT(GetTickCount64() - again, 90U);
    EXPECT_EQ(WaitForSingleObject(asked, 0), WAIT_OBJECT_0);
    EXPECT_EQ(WaitForSingleObject(asked, 0), DWORD{WAIT_TIMEOUT});  // once
    EXPECT_FALSE(stalling.fileExists(plain(root()) + "\\none"));
  }
  SetEvent(answers);
}

TEST_F(Win32FilesTest, TheFirstFilesOfOneDriveAreAnsweredAtOnceInTheirOrder) {
  const HANDLE answers = CreateEventW(nullptr, TRUE, FALSE, nullptr);
  {
    const Win32Files stalling([=](const std::wstring& path) {
      if (path.starts_with(LR"(\\dead)")) WaitForSingleObject(answers, INFINITE);
      return path.ends_with(L"yes.avi");
    });
    const auto first = [&](std::vector<std::string> paths) {
      return stalling.firstFilesExist(std::move(paths));
    };
    using Answers = std::vector<bool>;
    EXPECT_EQ(first({R"(C:\yes.avi)", R"(c:\no.avi)", R"(C:\yes.avi)", R"(D:\yes.avi)"}),
              (Answers{true, false, true}));
    EXPECT_EQ(first({"", "", R"(C:\yes.avi)"}), (Answers{false, false}));
    EXPECT_EQ(first({R"(\\dead\share\no.avi)", R"(\\dead\share\no.avi)", R"(C:\no.avi)"}),
              (Answers{true, true}));
    EXPECT_EQ(first({R"(C:\no.avi)"}), (Answers{false}));
    EXPECT_TRUE(first({}).empty());
  }
  SetEvent(answers);
}

TEST_F(Win32FilesTest, ADriveThatIsSlowAndAliveAnswersOfAFewAndIsNotTakenForADeadOne) {
  const Win32Files slow([](const std::wstring&) {
    Sleep(8);
    return false;
  });
  for (int i = 0; i < 5; ++i) {
    const auto known = slow.firstFilesExist(std::vector<std::string>(64, "C:\\a.avi"));
    EXPECT_LT(known.size(), 10U);
    EXPECT_EQ(known, std::vector<bool>(known.size(), false));
  }
}

using Names = std::vector<std::string>;

TEST_F(Win32FilesTest, FilesOfAFolderInTheSystemsOrder) {
  for (const wchar_t* const name : {L"\\b.exe", L"\\A.exe", L"\\泰 思.txt", L"\\none"}) {
    ASSERT_TRUE(make(root() + name));
  }
  const auto names = files.filesIn(plain(root()));
  ASSERT_TRUE(names);
  EXPECT_EQ(*names, namesAsFound());
  EXPECT_THAT(*names, testing::UnorderedElementsAre("b.exe", "A.exe", "泰 思.txt", "none"));
  EXPECT_EQ(files.filesIn(plain(root()) + "\\"), names);
}

TEST_F(Win32FilesTest, FoldersAreNotAmongTheFiles) {
  ASSERT_TRUE(CreateDirectoryW((root() + L"\\folder.exe").c_str(), nullptr));
  ASSERT_TRUE(make(root() + L"\\folder.exe\\inner.exe"));
  EXPECT_EQ(files.filesIn(plain(root())), Names{});
  ASSERT_TRUE(make(root() + L"\\a.exe"));
  EXPECT_EQ(files.filesIn(plain(root())), Names{"a.exe"});
}

TEST_F(Win32FilesTest, HiddenAndSystemFilesAreAmongThem) {
  for (const DWORD attribute :
       {FILE_ATTRIBUTE_HIDDEN, FILE_ATTRIBUTE_SYSTEM, FILE_ATTRIBUTE_READONLY}) {
    const std::wstring path = root() + L"\\a.exe";
    ASSERT_TRUE(make(path));
    SetFileAttributesW(path.c_str(), attribute);
    EXPECT_EQ(files.filesIn(plain(root())), Names{"a.exe"}) << attribute;
    SetFileAttributesW(path.c_str(), FILE_ATTRIBUTE_NORMAL);
    DeleteFileW(path.c_str());
  }
}

TEST_F(Win32FilesTest, WhatIsNoFolderHasNoFiles) {
  ASSERT_TRUE(make(root() + L"\\a.exe"));
  EXPECT_EQ(files.filesIn(""), std::nullopt);
  EXPECT_EQ(files.filesIn(plain(root()) + "\\none"), std::nullopt);
  EXPECT_EQ(files.filesIn(plain(root()) + "\\a.exe"), std::nullopt);
  EXPECT_EQ(files.filesIn(plain(root()) + std::string("\0x", 2)), std::nullopt);
}

TEST_F(Win32FilesTest, FilesOfALongPath) {
  const std::wstring deep = makeDeepFolder();
  ASSERT_TRUE(make(deep + L"\\a.exe"));
  EXPECT_EQ(files.filesIn(plain(deep)), Names{"a.exe"});
}

/// The pattern, which is longer than the folder, must not be cut at the limit.
TEST_F(Win32FilesTest, FilesOfAPathJustBelowTheLimit) {
  for (const std::size_t length : {257U, 258U, 259U, 260U}) {
    std::wstring path = root() + L"\\";
    path += std::wstring(length + 4 - path.size() - 101, L'x') + L"\\" + std::wstring(100, L'y');
    ASSERT_TRUE(CreateDirectoryW(path.substr(0, path.rfind(L'\\')).c_str(), nullptr));
    ASSERT_TRUE(CreateDirectoryW(path.c_str(), nullptr));
    ASSERT_EQ(plain(path).size() - (fromWide(root()).size() - root().size()), length);
    ASSERT_TRUE(make(path + L"\\a.exe"));
    EXPECT_EQ(files.filesIn(plain(path)), Names{"a.exe"}) << length;
  }
}

}  // namespace
}  // namespace tessivo
