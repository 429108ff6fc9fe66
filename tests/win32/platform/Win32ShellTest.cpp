#include "platform/win32/Win32Shell.h"

#include <gtest/gtest.h>
#include <windows.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <set>

#include "fakes/FakeLog.h"
#include "fakes/TempFolder.h"
#include "platform/PageAnchor.h"
#include "platform/win32/ProgramFolder.h"
#include "win32/WaitFor.h"
#include "win32/platform/ThreadDialogs.h"

namespace tessivo {
namespace {

/// For this process the registry's classes are the test's own: nothing opens anything unless it is
/// said here.
class OwnClasses {
 public:
  OwnClasses() {
    RegDeleteTreeW(HKEY_CURRENT_USER, kPath);
    RegCreateKeyExW(HKEY_CURRENT_USER, kPath, 0, nullptr, 0, KEY_ALL_ACCESS, nullptr, &key_,
                    nullptr);
    RegOverridePredefKey(HKEY_CLASSES_ROOT, key_);
  }
  ~OwnClasses() {
    RegOverridePredefKey(HKEY_CLASSES_ROOT, nullptr);
    RegCloseKey(key_);
    RegDeleteTreeW(HKEY_CURRENT_USER, kPath);
  }
  OwnClasses(const OwnClasses&) = delete;
  OwnClasses& operator=(const OwnClasses&) = delete;

  void openPagesWith(const std::string& program) {
    set(L".htm", nullptr, L"OwnPage");
    set(LR"(OwnPage\shell\open\command)", nullptr, command(program));
  }
  void openAddressesWith(const std::string& program) {
    set(L"http", L"URL Protocol", L"");
    set(LR"(http\shell\open\command)", nullptr, command(program));
  }

 private:
  static constexpr const wchar_t* kPath = L"Software\\Tessivo tests\\shell classes";

  static std::wstring command(const std::string& program) {
    return toWide('"' + program + "\" -page \"%1\"");
  }
  void set(const wchar_t* key, const wchar_t* name, const std::wstring& text) {
    RegSetKeyValueW(key_, key, name, REG_SZ, text.c_str(),
                    static_cast<DWORD>((text.size() + 1) * sizeof(wchar_t)));
  }

  HKEY key_ = nullptr;
};

class Win32ShellTest : public testing::Test {
 protected:
  /// The command line that the note-taking program has written; empty while there is none.
  std::string noted() const {
    std::ifstream file(folder.path() / "note.txt", std::ios::binary);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
  }
  /// Opens it and counts the boxes that it shows, which are closed at once.
  int boxesOfOpening(const std::string& file) {
    std::set<HWND> boxes;
    const Ticks closing([&] {
      for (HWND box : dialogsOfThisThread()) boxes.insert(box);
      cancelDialogsOfThisThread();
    });
    shell.open(0, file, "");
    return static_cast<int>(boxes.size());
  }

  TempFolder folder;
  FakeLog log;
  Win32Shell shell{log};
};

TEST_F(Win32ShellTest, ProgramGetsItsParametersAsTheyAre) {
  const std::string parameters = '"' + folder.file("note.txt") + R"(" 泰思维  é "a b" c)";
  EXPECT_TRUE(shell.open(0, programFolder() + R"(\note_arguments.exe)", parameters));
  EXPECT_TRUE(waitFor([&] { return !noted().empty(); }));
  EXPECT_TRUE(noted().ends_with(parameters)) << noted();
  EXPECT_TRUE(log.lines.empty());
}

TEST_F(Win32ShellTest, PathWithBlanksIsOneProgram) {
  const std::string copy = folder.file("a b 泰.exe");
  ASSERT_TRUE(CopyFileW(toWide(programFolder() + R"(\note_arguments.exe)").c_str(),
                        toWide(copy).c_str(), TRUE));
  shell.open(0, copy, '"' + folder.file("note.txt") + '"');
  EXPECT_TRUE(waitFor([&] { return !noted().empty(); }));
}

TEST_F(Win32ShellTest, AProgramNamedLikeTheBeginningOfAPathIsNotTakenForIt) {
  const std::wstring program = toWide(programFolder() + R"(\note_arguments.exe)");
  for (const char* const name : {"a.exe", "a b.exe"}) {
    ASSERT_TRUE(CopyFileW(program.c_str(), toWide(folder.file(name)).c_str(), TRUE));
  }
  shell.open(0, folder.file("a b.exe"), '"' + folder.file("note.txt") + '"');
  EXPECT_TRUE(waitFor([&] { return !noted().empty(); }));
  EXPECT_NE(noted().find("a b.exe"), std::string::npos) << noted();
}

TEST_F(Win32ShellTest, MissingProgramIsLoggedAndShowsNothing) {
  EXPECT_EQ(boxesOfOpening("no_such_browser"), 0);
  ASSERT_EQ(log.lines.size(), 1U);
  EXPECT_EQ(log.lines[0], "error cannot open no_such_browser, shell code 2, error 2");
  EXPECT_FALSE(shell.open(0, "no_such_browser", ""));
}

TEST_F(Win32ShellTest, AddressThatNobodyOpensIsLoggedAndShowsNothing) {
  EXPECT_EQ(boxesOfOpening("no-such-scheme:a@b.c"), 0);
  ASSERT_EQ(log.lines.size(), 1U);
  EXPECT_TRUE(log.lines[0].starts_with("error cannot open no-such-scheme:a@b.c, shell code "));
}

class Win32ShellPageTest : public Win32ShellTest {
 protected:
  Win32ShellPageTest() : page(folder.file("a b 泰.htm")) {
    std::ofstream(folder.path() / L"a b 泰.htm");
  }
  /// A program that notes how it was started.
  std::string program(const std::string& name) const {
    const std::string copy = folder.file(name + ".exe");
    CopyFileW(toWide(programFolder() + R"(\stand_in_saver.exe)").c_str(), toWide(copy).c_str(),
              TRUE);
    return copy;
  }
  /// What the program of that name got after its own path; empty when it was not started.
  std::string got(const std::string& name) const {
    std::string line;
    waitFor([&] {
      std::ifstream file(folder.path() / (name + ".txt"), std::ios::binary);
      return static_cast<bool>(std::getline(file, line));
    });
    const auto end = line.find(".exe\"");
    return end == std::string::npos ? line : line.substr(end + 5);
  }
  OwnClasses classes;
  std::string page;
};

TEST_F(Win32ShellPageTest, PageIsOpenedWithItsProgram) {
  classes.openPagesWith(program("reader"));
  shell.open(0, page, "");
  EXPECT_EQ(got("reader"), " -page \"" + page + '"');
}

TEST_F(Win32ShellPageTest, BrowserGetsThePageWithItsAnchorAsAnAddress) {
  classes.openPagesWith(program("browser"));
  classes.openAddressesWith(folder.file("browser.exe"));
  shell.open(0, page + "#Item3", "");
  EXPECT_EQ(got("browser"), " \"" + addressOf({page, "Item3"}) + '"');
  EXPECT_TRUE(log.lines.empty());
}

TEST_F(Win32ShellPageTest, OtherProgramGetsThePageWithoutTheAnchor) {
  classes.openPagesWith(program("editor"));
  classes.openAddressesWith(program("browser"));
  shell.open(0, page + "#Item3", "");
  EXPECT_EQ(got("editor"), " -page \"" + page + '"');
  EXPECT_TRUE(log.lines.empty());
}

TEST_F(Win32ShellPageTest, PageThatNobodyOpensIsLoggedWithItsAnchor) {
  EXPECT_EQ(boxesOfOpening(page + "#Item3"), 0);
  ASSERT_EQ(log.lines.size(), 1U);
  EXPECT_TRUE(log.lines[0].starts_with("error cannot open " + page + "#Item3, shell code "));
}

TEST_F(Win32ShellPageTest, MissingPageIsLogged) {
  classes.openPagesWith(program("browser"));
  classes.openAddressesWith(folder.file("browser.exe"));
  EXPECT_EQ(boxesOfOpening(folder.file("none.htm") + "#Item3"), 0);
  ASSERT_EQ(log.lines.size(), 1U);
}

}  // namespace
}  // namespace tessivo
