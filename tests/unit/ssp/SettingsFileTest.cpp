#include "ssp/SettingsFile.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "base/IniText.h"
#include "fakes/SmallDisk.h"
#include "fakes/TempFolder.h"

namespace tessivo::ssp {
namespace {

struct SettingsFileTest : ::testing::Test {
  void write(const std::string& path, const std::string& text) const {
    std::ofstream(toFilePath(path), std::ios::binary) << text;
  }
  std::string textOf(const std::string& path) const { return readIniText(path).value_or("none"); }

  TempFolder programs;
  TempFolder users;
  std::string beside = programs.file("时钟.ini");
  std::string own = users.file("时钟.ini");
  SettingsFile file{beside, own};
};

TEST_F(SettingsFileTest, WithoutFilesThereIsNoText) {
  EXPECT_EQ(file.read(), "");
}

TEST_F(SettingsFileTest, WhatIsSavedLiesBesideTheProgramAlone) {
  EXPECT_TRUE(file.save("[A]\r\n"));
  EXPECT_EQ(textOf(beside), "[A]\r\n");
  EXPECT_EQ(programs.fileCount(), 1U);
  EXPECT_EQ(users.fileCount(), 0U);
  EXPECT_EQ(file.read(), "[A]\r\n");
}

TEST_F(SettingsFileTest, SavingReplacesAllThatWasThere) {
  write(beside, std::string(1000, 'x'));
  write(beside + ".new", "left over");
  EXPECT_TRUE(file.save("b"));
  EXPECT_EQ(textOf(beside), "b");
  EXPECT_EQ(programs.fileCount(), 1U);
}

TEST_F(SettingsFileTest, WhereTheProgramsFolderCannotBeWrittenItIsTheUsers) {
  const SettingsFile closed(programs.file("gone/时钟.ini"), own);
  EXPECT_TRUE(closed.save("c"));
  EXPECT_EQ(textOf(own), "c");
  EXPECT_EQ(closed.read(), "c");
}

TEST_F(SettingsFileTest, TheUsersFileCountsFirst) {
  write(beside, "of all");
  write(own, "of the user");
  EXPECT_EQ(file.read(), "of the user");
}

TEST_F(SettingsFileTest, SavedBesideTheProgramTheUsersFileGoes) {
  write(own, "old");
  EXPECT_TRUE(file.save("new"));
  EXPECT_EQ(file.read(), "new");
  EXPECT_EQ(users.fileCount(), 0U);
}

TEST_F(SettingsFileTest, WhereNothingCanBeWrittenSavingFails) {
  const SettingsFile nowhere(programs.file("gone/a.ini"), users.file("gone/a.ini"));
  EXPECT_FALSE(nowhere.save("d"));
  const SettingsFile noUser(programs.file("gone/a.ini"), "");
  EXPECT_FALSE(noUser.save("d"));
  EXPECT_EQ(noUser.read(), "");
}

TEST_F(SettingsFileTest, TextIsFlushedWholeBeforeItTakesTheOldOnesPlace) {
  write(beside, "old");
  std::vector<std::string> seen;
  const SettingsFile flushing(beside, own, [&](const std::string& path) {
    seen = {path, textOf(path), textOf(beside)};
    return true;
  });
  EXPECT_TRUE(flushing.save("new"));
  EXPECT_EQ(seen, (std::vector<std::string>{beside + ".new", "new", "old"}));
  EXPECT_EQ(textOf(beside), "new");
}

TEST_F(SettingsFileTest, ATextThatDoesNotReachTheDiskIsNotSaved) {
  write(beside, "old beside");
  write(own, "old of the user");
  const SettingsFile broken(beside, own, [](const std::string&) { return false; });
  EXPECT_FALSE(broken.save("new"));
  EXPECT_EQ(textOf(beside), "old beside");
  EXPECT_EQ(textOf(own), "old of the user");
  EXPECT_FALSE(std::filesystem::exists(beside + ".new"));
  EXPECT_FALSE(std::filesystem::exists(own + ".new"));
}

#ifndef _WIN32
TEST_F(SettingsFileTest, OnAFullDiskTheOldTextsStay) {
  write(beside, "old beside");
  write(own, "old of the user");
  {
    const SmallDisk full(100);
    EXPECT_FALSE(file.save(std::string(200, 'n')));
    EXPECT_FALSE(SettingsFile(beside, "").save(std::string(200, 'n')));
  }
  EXPECT_EQ(textOf(beside), "old beside");
  EXPECT_EQ(textOf(own), "old of the user");
  EXPECT_EQ(programs.fileCount() + users.fileCount(), 2U);
  EXPECT_TRUE(file.save(std::string(200, 'n')));
  EXPECT_EQ(file.read(), std::string(200, 'n'));
}
#endif

TEST_F(SettingsFileTest, AFolderInTheUsersPlaceDoesNotCount) {
  std::filesystem::create_directories(toFilePath(own) / "inside");
  EXPECT_TRUE(file.save("f"));
  EXPECT_EQ(file.read(), "f");
}

TEST_F(SettingsFileTest, AFolderInTheWayIsNotReplaced) {
  std::filesystem::create_directories(toFilePath(beside) / "inside");
  EXPECT_TRUE(file.save("e"));
  EXPECT_EQ(textOf(own), "e");
  EXPECT_EQ(programs.fileCount(), 1U);
}

TEST_F(SettingsFileTest, OfAHugeFileNoMoreIsReadThanShowsThatItIsTooLarge) {
  write(beside, std::string(1'000'000, 'x'));
  EXPECT_EQ(file.read().size(), kLargestIniText + 1);
}

}  // namespace
}  // namespace tessivo::ssp
