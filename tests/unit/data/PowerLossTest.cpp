// The power goes at each step of what the program does to its database; after the next start all of
// it is there or nothing.

#include "fakes/FaultyDisk.h"
#include "unit/data/StoredContent.h"

namespace tessivo {
namespace {

using Left = FaultyDisk::Left;

std::string nameOf(Left left) {
  return left == Left::all ? "All" : left == Left::nothing ? "Nothing" : "Sectors";
}

class PowerLossTest : public testing::TestWithParam<Left> {
 protected:
  /// Does `work` again and again, the power going at a later step each time, until it comes to its
  /// end before. `begin` makes what is there before, `check` looks at what is there after; it is
  /// told whether the work said that it was done.
  template <typename Begin, typename Work, typename Check>
  void loseEverywhere(Begin begin, Work work, Check check, int stride = 1) {
    int step = 1;
    for (bool happened = true; happened; step += stride) {
      begin();
      disk.losePowerAt(step, GetParam(), static_cast<unsigned>(step));
      const bool isDone = work();
      happened = disk.happened();
      disk.powerOn();
      SCOPED_TRACE("the power went at step " + std::to_string(step));
      check(isDone);
      if (HasFatalFailure() || HasNonfatalFailure()) return;
      ASSERT_EQ(isDone, !happened);
    }
    EXPECT_GT(step / stride, 4) << "too few moments";
  }

  void saveListEverywhere(StoredContent& lists, int oldCount, int newCount, int stride) {
    prepareDatabase(path, log);
    const auto before = lists.list("old", oldCount);
    const auto after = lists.list("new", newCount);
    const std::string asBefore = oldCount == 0 ? "none" : "old " + std::to_string(oldCount);
    const std::string asAfter = "new " + std::to_string(newCount);
    loseEverywhere([&] { ASSERT_TRUE(before->boolSavePlayListToPLDB()); },
                   [&] { return after->boolSavePlayListToPLDB(); },
                   [&](bool isDone) {
                     EXPECT_EQ(content.verdict(), "ok");
                     EXPECT_EQ(lists.storedList(), isDone ? asAfter : asBefore);
                     // A journal without a word in it may be left, which the next save takes.
                     EXPECT_TRUE(before->boolSavePlayListToPLDB());
                     EXPECT_EQ(folder.fileCount(), 1U);
                   },
                   stride);
  }

  TempFolder folder;
  const std::string path = folder.file("SysConfig");
  RecordingLog log;
  StoredContent content{path};
  FaultyDisk disk;
};

TEST_P(PowerLossTest, AListThatIsSavedOverAnother) {
  saveListEverywhere(content, 300, 200, 1);
}

TEST_P(PowerLossTest, AFirstList) {
  saveListEverywhere(content, 0, 300, 1);
}

/// Larger than the page cache: the file is written to long before the commit.
TEST_P(PowerLossTest, ALongList) {
  StoredContent longContent(path, 2500);
  saveListEverywhere(longContent, 1200, 1000, 97);
}

TEST_P(PowerLossTest, SettingsOverOthers) {
  prepareDatabase(path, log);
  loseEverywhere([&] { ASSERT_TRUE(content.settings(11).boolSaveData()); },
                 [&] { return content.settings(22).boolSaveData(); },
                 [&](bool isDone) {
                   EXPECT_EQ(content.verdict(), "ok");
                   EXPECT_EQ(content.storedSettings(), isDone ? "22" : "11");
                 });
}

TEST_P(PowerLossTest, TheFirstSettings) {
  loseEverywhere(
      [&] {
        std::filesystem::remove(toFilePath(path));
        prepareDatabase(path, log);
      },
      [&] { return content.settings(22).boolSaveData(); },
      [&](bool isDone) {
        EXPECT_EQ(content.verdict(), "ok");
        EXPECT_EQ(content.storedSettings(), isDone ? "22" : "none");
      });
}

/// The next start makes it, or makes the rest of it.
TEST_P(PowerLossTest, ADatabaseThatIsMade) {
  loseEverywhere(
      [&] {
        for (const std::string end : {"", "-journal"}) {
          std::filesystem::remove(toFilePath(path + end));
        }
      },
      [&] { return prepareDatabase(path, log) == DatabaseState::created; },
      [&](bool) {
        const auto state = prepareDatabase(path, log);
        EXPECT_TRUE(state == DatabaseState::created || state == DatabaseState::ready);
        EXPECT_EQ(content.verdict(), "ok");
        EXPECT_EQ(runSql(path, "select count(*) from file_association_config"),
                  std::vector<std::string>{"1"});
        EXPECT_EQ(content.storedList() + content.storedSettings(), "nonenone");
        EXPECT_EQ(folder.fileCount(), 1U);
      });
}

/// Of an older version, say: the rows that were there stay.
TEST_P(PowerLossTest, ADatabaseThatIsCompleted) {
  prepareDatabase(path, log);
  ASSERT_TRUE(content.list("old", 200)->boolSavePlayListToPLDB());
  loseEverywhere(
      [&] {
        runSql(path,
               "drop table sys; alter table play_list drop column flag_for_play_list;"
               "delete from file_association; delete from file_association_config");
      },
      [&] { return prepareDatabase(path, log) == DatabaseState::ready; },
      [&](bool) {
        EXPECT_EQ(content.verdict(), "ok");
        EXPECT_EQ(content.storedList(), "old 200");
        EXPECT_NE(runSql(path, "select count(*) from file_association"),
                  std::vector<std::string>{"0"});
      });
}

INSTANTIATE_TEST_SUITE_P(WhatIsLeftOfUnsyncedWrites, PowerLossTest,
                         testing::Values(Left::all, Left::nothing, Left::sectors),
                         [](const auto& each) { return nameOf(each.param); });

}  // namespace
}  // namespace tessivo
