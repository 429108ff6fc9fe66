#include "platform/win32/Win32Processes.h"

#include <gtest/gtest.h>
#include <windows.h>

#include <algorithm>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "win32/ResourceCounts.h"
#include "win32/saver/StandInSavers.h"

namespace tessivo {
namespace {

class Win32ProcessesTest : public testing::Test {
 protected:
  std::vector<std::uint32_t> running() const {
    std::vector<std::uint32_t> identifiers(4096);
    const auto bytes = processes.enumerate(identifiers);
    identifiers.resize(bytes.value_or(0) / sizeof(std::uint32_t));
    return identifiers;
  }
  /// The process of that executable.
  std::optional<std::uint32_t> processOf(const std::string& program) const {
    for (const std::uint32_t identifier : running()) {
      const auto module = processes.firstModule(identifier);
      if (module && module->path == program) return identifier;
    }
    return std::nullopt;
  }

  StandInSavers savers;
  Win32Processes processes;
};

TEST_F(Win32ProcessesTest, ProgramGetsItsCommandLineToTheLetter) {
  const std::string arguments = R"(RUN##-1280##0 ##"a b"  泰思维 é ##%PATH%## )";
  const std::string program = savers.add("one");
  EXPECT_EQ(processes.start(program, arguments, WindowStyle::normal), 0U);
  ASSERT_TRUE(savers.waitForNotes("one", "end"));
  const std::string notes = savers.notes("one");
  EXPECT_NE(notes.find(": \"" + program + "\" " + arguments + "\n"), std::string::npos) << notes;
}

TEST_F(Win32ProcessesTest, WithoutArgumentsABlankIsLeft) {
  const std::string program = savers.add("one");
  EXPECT_EQ(processes.start(program, "", WindowStyle::normal), 0U);
  ASSERT_TRUE(savers.waitForNotes("one", "end"));
  EXPECT_NE(savers.notes("one").find(": \"" + program + "\" \n"), std::string::npos);
}

TEST_F(Win32ProcessesTest, StyleIsTheFirstWindows) {
  savers.add("settings");
  const std::string program = savers.path("settings");
  EXPECT_EQ(processes.start(program, "##", WindowStyle::normalNoFocus), 0U);
  EXPECT_TRUE(savers.waitForNotes("settings", "window"));
  EXPECT_EQ(savers.noted("settings", "start style 4 "), 1);
  EXPECT_EQ(savers.noted("settings", "window focus no"), 1);
  EXPECT_TRUE(savers.end("settings"));

  EXPECT_EQ(processes.start(program, "##", WindowStyle::normal), 0U);
  EXPECT_TRUE(savers.waitForNotes("settings", "window", 2));
  EXPECT_EQ(savers.noted("settings", "start style 1 "), 1);
  EXPECT_EQ(savers.noted("settings", "window focus yes"), 1);
  EXPECT_TRUE(savers.end("settings"));
}

/// A command line that is split at its blanks would lead to these, the shortest first.
TEST_F(Win32ProcessesTest, BlanksInThePathLeadToNoOtherProgram) {
  std::filesystem::create_directory(savers.folder.path() / "a b");
  const std::string program = savers.add("a b\\c 泰 d");
  for (const char* const decoy : {"a", "a b\\c", "a b\\c 泰"}) ASSERT_NE(savers.add(decoy), "");
  EXPECT_EQ(processes.start(program, "RUN", WindowStyle::normal), 0U);
  EXPECT_TRUE(savers.waitForNotes("a b\\c 泰 d", "end"));
  for (const char* const decoy : {"a", "a b\\c", "a b\\c 泰"}) EXPECT_EQ(savers.notes(decoy), "");
}

TEST_F(Win32ProcessesTest, WhatCannotBeStartedIsAnError) {
  const auto errorOf = [this](const std::string& program) {
    return processes.start(program, "RUN", WindowStyle::normal);
  };
  EXPECT_EQ(errorOf(savers.path("none")), ERROR_FILE_NOT_FOUND);
  EXPECT_EQ(errorOf(savers.path("no folder\\none")), ERROR_PATH_NOT_FOUND);
  EXPECT_EQ(errorOf(savers.addText("text")), ERROR_BAD_EXE_FORMAT);
  EXPECT_NE(errorOf(savers.folder.file("")), 0U);
  EXPECT_NE(errorOf(""), 0U);
}

TEST_F(Win32ProcessesTest, NulInThePathLeadsToNoOtherProgram) {
  const std::string program = savers.add("one");
  EXPECT_EQ(processes.start(program + '\0' + ".bak", "RUN", WindowStyle::normal),
            ERROR_INVALID_NAME);
  watch(300);
  EXPECT_EQ(savers.notes("one"), "");
}

TEST_F(Win32ProcessesTest, StartedProgramsLeaveNoHandles) {
  const std::string program = savers.add("one");
  processes.start(program, "", WindowStyle::normal);
  const int before = processHandles();
  for (int i = 0; i < 10; ++i) processes.start(program, "", WindowStyle::normal);
  for (int i = 0; i < 10; ++i) processes.start(savers.path("none"), "", WindowStyle::normal);
  EXPECT_EQ(processHandles(), before);
  EXPECT_TRUE(savers.waitForNotes("one", "end", 11));
}

TEST_F(Win32ProcessesTest, EnumerationFillsWhatRoomThereIs) {
  std::vector<std::uint32_t> room(2, 0);
  EXPECT_EQ(processes.enumerate(std::span(room).first(1)), sizeof(std::uint32_t));
  EXPECT_EQ(room[1], 0U);
  const auto all = running();
  EXPECT_LT(all.size(), 4096U);
  EXPECT_EQ(std::count(all.begin(), all.end(), GetCurrentProcessId()), 1);
}

TEST_F(Win32ProcessesTest, StartedProgramIsFoundUntilItHasEnded) {
  const std::string program = savers.add("stays");
  EXPECT_EQ(processOf(program), std::nullopt);
  ASSERT_EQ(processes.start(program, "RUN", WindowStyle::normal), 0U);
  ASSERT_TRUE(savers.waitForNotes("stays", "start"));
  const auto identifier = processOf(program);
  ASSERT_TRUE(identifier);
  EXPECT_EQ(processes.firstModule(*identifier)->baseName, "stays.exe");
  ASSERT_TRUE(savers.end("stays"));
  EXPECT_TRUE(waitFor([&] { return !processOf(program); }));
  EXPECT_TRUE(waitFor([&] { return !processes.firstModule(*identifier); }));
}

TEST_F(Win32ProcessesTest, FirstModuleIsTheExecutable) {
  const auto module = processes.firstModule(GetCurrentProcessId());
  ASSERT_TRUE(module);
  EXPECT_EQ(module->path, programPath());
  EXPECT_EQ(module->baseName, "win32_tests.exe");
  EXPECT_EQ(processes.firstModule(0), std::nullopt);
  EXPECT_EQ(processes.firstModule(0x7FFFFFF0), std::nullopt);
}

/// Each look opens the process.
TEST_F(Win32ProcessesTest, LookingAtAProcessLeavesNoHandle) {
  processes.firstModule(GetCurrentProcessId());
  const int before = processHandles();
  for (int i = 0; i < 10; ++i) processes.firstModule(GetCurrentProcessId());
  EXPECT_EQ(processHandles(), before);
}

}  // namespace
}  // namespace tessivo
