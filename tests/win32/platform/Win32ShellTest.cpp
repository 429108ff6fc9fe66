#include "platform/win32/Win32Shell.h"

#include <gtest/gtest.h>
#include <windows.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <set>

#include "fakes/FakeLog.h"
#include "fakes/TempFolder.h"
#include "platform/win32/ProgramFolder.h"
#include "win32/WaitFor.h"
#include "win32/platform/ThreadDialogs.h"

namespace tessivo {
namespace {

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
  shell.open(0, programFolder() + R"(\note_arguments.exe)", parameters);
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

TEST_F(Win32ShellTest, MissingProgramIsLoggedAndShowsNothing) {
  EXPECT_EQ(boxesOfOpening("no_such_browser"), 0);
  ASSERT_EQ(log.lines.size(), 1U);
  EXPECT_EQ(log.lines[0], "error cannot open no_such_browser, shell code 2, error 2");
}

TEST_F(Win32ShellTest, AddressThatNobodyOpensIsLoggedAndShowsNothing) {
  EXPECT_EQ(boxesOfOpening("no-such-scheme:a@b.c"), 0);
  ASSERT_EQ(log.lines.size(), 1U);
  EXPECT_TRUE(log.lines[0].starts_with("error cannot open no-such-scheme:a@b.c, shell code "));
}

}  // namespace
}  // namespace tessivo
