// Each step of what the program does to its database fails, without the program ending: the disk is
// full or does not do as it is told. What fails says so, nothing that is stored is lost, nothing in
// memory changes, and when the disk is well again the next save works.

#include "fakes/FaultyDisk.h"
#include "unit/data/StoredContent.h"

namespace tessivo {
namespace {

using Error = FaultyDisk::Error;
using Lasts = FaultyDisk::Lasts;
using Fault = std::pair<Error, Lasts>;

std::string nameOf(const Fault& fault) {
  return std::string(fault.first == Error::full ? "Full" : "InputOutput") +
         (fault.second == Lasts::once ? "Once" : "UntilMended");
}

class DiskFaultTest : public testing::TestWithParam<Fault> {
 protected:
  /// Does `work` again and again, another step failing each time, until none is left. `check` is
  /// told whether the work said that it was done; the disk is well by then.
  template <typename Begin, typename Work, typename Check>
  void failEverywhere(Begin begin, Work work, Check check, int stride = 1) {
    int step = 1;
    for (bool happened = true; happened; step += stride) {
      begin();
      disk.failAt(step, GetParam().first, GetParam().second);
      const bool isDone = work();
      happened = disk.happened();
      disk.mend();
      SCOPED_TRACE("step " + std::to_string(step) + " failed");
      check(isDone);
      if (HasFatalFailure() || HasNonfatalFailure()) return;
      ASSERT_TRUE(happened || isDone);
    }
    EXPECT_GT(step / stride, 4) << "too few moments";
  }

  TempFolder folder;
  const std::string path = folder.file("SysConfig");
  RecordingLog log;
  StoredContent content{path};
  FaultyDisk disk;
};

TEST_P(DiskFaultTest, AListThatIsNotSavedStaysInMemoryAndIsSavedNextTime) {
  prepareDatabase(path, log);
  const auto before = content.list("old", 300);
  const auto after = content.list("new", 200);
  failEverywhere([&] { ASSERT_TRUE(before->boolSavePlayListToPLDB()); },
                 [&] { return after->boolSavePlayListToPLDB(); },
                 [&](bool isDone) {
                   EXPECT_EQ(after->strReport().empty(), isDone);
                   EXPECT_EQ(content.verdict(), "ok");
                   EXPECT_EQ(content.storedList(), isDone ? "new 200" : "old 300");
                   EXPECT_EQ(after->lngListCount(), 200);
                   EXPECT_TRUE(after->boolSavePlayListToPLDB()) << after->strReport();
                   EXPECT_EQ(content.storedList(), "new 200");
                   EXPECT_EQ(folder.fileCount(), 1U);
                 });
}

TEST_P(DiskFaultTest, ALongListIsNotSavedEither) {
  prepareDatabase(path, log);
  StoredContent longContent(path, 2500);
  const auto before = longContent.list("old", 1200);
  const auto after = longContent.list("new", 1000);
  failEverywhere([&] { ASSERT_TRUE(before->boolSavePlayListToPLDB()); },
                 [&] { return after->boolSavePlayListToPLDB(); },
                 [&](bool isDone) {
                   EXPECT_EQ(content.verdict(), "ok");
                   EXPECT_EQ(longContent.storedList(), isDone ? "new 1000" : "old 1200");
                 },
                 97);
}

TEST_P(DiskFaultTest, SettingsThatAreNotSavedStayInMemoryAndAreSavedNextTime) {
  prepareDatabase(path, log);
  SysConfig after;
  failEverywhere(
      [&] {
        ASSERT_TRUE(content.settings(11).boolSaveData());
        after = content.settings(22);
      },
      [&] { return after.boolSaveData(); },
      [&](bool isDone) {
        EXPECT_EQ(after.strReport().empty(), isDone);
        EXPECT_EQ(content.verdict(), "ok");
        EXPECT_EQ(content.storedSettings(), isDone ? "22" : "11");
        EXPECT_EQ(after.intVolumeValue(), 22);
        EXPECT_TRUE(after.boolSaveData()) << after.strReport();
        EXPECT_EQ(content.storedSettings(), "22");
      });
}

TEST_P(DiskFaultTest, ADatabaseThatCannotBeMadeIsMadeByTheNextStart) {
  DatabaseState state{};
  failEverywhere(
      [&] {
        for (const std::string end : {"", "-journal"}) {
          std::filesystem::remove(toFilePath(path + end));
        }
        log = {};
      },
      [&] {
        state = prepareDatabase(path, log);
        return state == DatabaseState::created;
      },
      [&](bool isDone) {
        EXPECT_EQ(log.errors.empty(), isDone);
        // The user is told either way.
        EXPECT_TRUE(isDone || state == DatabaseState::failed ||
                    state == DatabaseState::notWritable);
        const auto next = prepareDatabase(path, log);
        EXPECT_TRUE(next == DatabaseState::created || next == DatabaseState::ready);
        EXPECT_EQ(content.verdict(), "ok");
        EXPECT_EQ(folder.fileCount(), 1U);
      });
}

INSTANTIATE_TEST_SUITE_P(Errors, DiskFaultTest,
                         testing::Values(Fault{Error::full, Lasts::once},
                                         Fault{Error::full, Lasts::untilMended},
                                         Fault{Error::inputOutput, Lasts::once},
                                         Fault{Error::inputOutput, Lasts::untilMended}),
                         [](const auto& each) { return nameOf(each.param); });

}  // namespace
}  // namespace tessivo
