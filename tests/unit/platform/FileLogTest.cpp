#include "platform/FileLog.h"

#include <gtest/gtest.h>

#include <iterator>

#include "fakes/SmallDisk.h"
#include "fakes/TempFolder.h"
#include "fakes/VirtualTime.h"

namespace tessivo {
namespace {

class FileLogTest : public testing::Test {
 protected:
  void SetUp() override { time.setDate({2026, 1, 31, 86'399'123}); }

  static std::string textOf(const std::string& path) {
    std::ifstream file(toFilePath(path), std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
  }
  std::string path() const { return folder.file("Tessivo.log"); }

  TempFolder folder;
  VirtualTime time;
};

TEST_F(FileLogTest, LineHasDateTimeLevelAndText) {
  FileLog log(path(), time);
  log.info("开始 start");
  log.error("no file");
  EXPECT_EQ(textOf(path()),
            "2026-01-31 23:59:59.123 info 开始 start\r\n2026-01-31 23:59:59.123 error no file\r\n");
}

TEST_F(FileLogTest, WhenTheClockIsSetBackTheLinesStayInTheOrderOfWriting) {
  FileLog log(path(), time);
  log.info("a");
  time.setDate({2025, 12, 31, 0});
  log.info("b");
  EXPECT_EQ(textOf(path()), "2026-01-31 23:59:59.123 info a\r\n2025-12-31 00:00:00.000 info b\r\n");
}

TEST_F(FileLogTest, LineBreaksInTheTextBecomeBlanks) {
  FileLog log(path(), time);
  log.info("a\r\nb\nc");
  EXPECT_EQ(textOf(path()), "2026-01-31 23:59:59.123 info a  b c\r\n");
}

TEST_F(FileLogTest, ATextThatIsTooLongIsCutBetweenCharacters) {
  FileLog log(path(), time);
  log.info("a" + std::string(8191, 'x') + "y");
  log.info(std::string(8191, 'x') + "中");
  EXPECT_EQ(textOf(path()), "2026-01-31 23:59:59.123 info a" + std::string(8191, 'x') +
                                "\r\n2026-01-31 23:59:59.123 info " + std::string(8191, 'x') +
                                "\r\n");
}

TEST_F(FileLogTest, EarlierEntriesAreContinued) {
  { FileLog(path(), time).info("first"); }
  { FileLog(path(), time).info("second"); }
  const std::string text = textOf(path());
  EXPECT_NE(text.find("first"), std::string::npos);
  EXPECT_NE(text.find("second"), std::string::npos);
}

TEST_F(FileLogTest, FullFileIsKeptAsideAndANewOneBegins) {
  FileLog log(path(), time, 100);
  log.info(std::string(100, 'a'));
  log.info("b");
  EXPECT_EQ(textOf(path()), "2026-01-31 23:59:59.123 info b\r\n");
  EXPECT_NE(textOf(path() + ".1").find("aaaa"), std::string::npos);
}

TEST_F(FileLogTest, SecondFullFileTakesThePlaceOfTheFirst) {
  FileLog log(path(), time, 100);
  for (const char c : {'a', 'b', 'c'}) log.info(std::string(100, c));
  EXPECT_NE(textOf(path()).find("ccc"), std::string::npos);
  EXPECT_NE(textOf(path() + ".1").find("bbb"), std::string::npos);
  EXPECT_EQ(textOf(path() + ".1").find("aaa"), std::string::npos);
}

TEST_F(FileLogTest, FullFileOfAnEarlierRunIsKeptAsideToo) {
  { FileLog(path(), time, 10).info("old entry"); }
  FileLog(path(), time, 10).info("new entry");
  EXPECT_EQ(textOf(path()), "2026-01-31 23:59:59.123 info new entry\r\n");
}

#ifndef _WIN32
TEST_F(FileLogTest, OnAFullDiskTheLogWaitsAndGoesOn) {
  FileLog log(path(), time);
  log.info("before");
  const std::string before = textOf(path());
  {
    const SmallDisk full(100);
    for (int i = 0; i < 1000; ++i) log.error("while the disk is full " + std::to_string(i));
  }
  EXPECT_EQ(textOf(path()).size(), 100U);
  log.info("after");
  log.info("and later");
  const std::string text = textOf(path());
  EXPECT_TRUE(text.starts_with(before));
  EXPECT_TRUE(text.ends_with("info after\r\n2026-01-31 23:59:59.123 info and later\r\n"));
}
#endif

TEST_F(FileLogTest, AFolderInTheOldFilesPlaceLeavesTheFullOne) {
  std::filesystem::create_directories(toFilePath(path() + ".1") / "inside");
  FileLog log(path(), time, 10);
  log.info("first");
  log.info("second");
  EXPECT_NE(textOf(path()).find("first"), std::string::npos);
  EXPECT_NE(textOf(path()).find("second"), std::string::npos);
}

TEST_F(FileLogTest, PathThatCannotBeWrittenIsReportedAndHarmless) {
  FileLog log(path() + "/no such folder/x.log", time);
  EXPECT_FALSE(log.isOpen());
  log.error("lost");
  EXPECT_TRUE(FileLog(path(), time).isOpen());
}

}  // namespace
}  // namespace tessivo
