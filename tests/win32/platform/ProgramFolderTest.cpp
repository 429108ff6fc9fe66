#include "platform/win32/ProgramFolder.h"

#include <windows.h>

#include <gtest/gtest.h>

#include "platform/win32/Win32Clock.h"
#include "platform/win32/WindowsText.h"

namespace tessivo {
namespace {

TEST(ProgramFolderTest, FolderHoldsTheProgram) {
  const std::string folder = programFolder();
  EXPECT_NE(folder.back(), '\\');
  EXPECT_EQ(programPath().substr(0, folder.size() + 1), folder + "\\");
  EXPECT_NE(GetFileAttributesW(toWide(folder + "\\win32_tests.exe").c_str()),
            INVALID_FILE_ATTRIBUTES);
}

TEST(ProgramFolderTest, ArgumentsAreTheEndOfTheCommandLine) {
  const std::string all = fromWide(GetCommandLineW());
  const std::string arguments = commandLineArguments();
  ASSERT_LE(arguments.size(), all.size());
  EXPECT_EQ(all.substr(all.size() - arguments.size()), arguments);
  EXPECT_EQ(arguments.find("win32_tests"), std::string::npos);
}

TEST(Win32ClockTest, TellsTheLocalTime) {
  SYSTEMTIME before{};
  GetLocalTime(&before);
  const LocalTime now = Win32Clock().now();
  EXPECT_EQ(now.year, before.wYear);
  EXPECT_EQ(now.month, before.wMonth);
  EXPECT_NEAR(now.msOfDay / 1000, (before.wHour * 60 + before.wMinute) * 60 + before.wSecond, 2);
}

TEST(Win32ClockTest, TicksGoOn) {
  const Win32Clock clock;
  const auto start = clock.ticksMs();
  while (clock.ticksMs() == start) Sleep(1);
  EXPECT_GT(clock.ticksMs(), start);
}

}  // namespace
}  // namespace tessivo
