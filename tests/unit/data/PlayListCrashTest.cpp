// The program is killed before every single write of a save; afterwards the file holds the old list
// or the new one, complete. Linux only: Windows offers no fork.
#ifndef _WIN32

#include "data/PlayList.h"
#include "fakes/KilledProcess.h"
#include "fakes/VirtualTime.h"
#include "unit/data/DataTestSupport.h"

namespace tessivo {
namespace {

class PlayListCrashTest : public DatabaseTest {
 protected:
  void fill(PlayList& list, const std::string& content, int count) {
    list.strPLDBFilePath(path);
    for (int i = 1; i <= count; ++i) {
      auto movie = std::make_shared<Movie>(keys);
      movie->strFileName = content;
      movie->strFilePath = std::string(150, 'p') + std::to_string(i);
      list.addAItem(movie);
    }
  }

  /// "old", "new", or what is wrong.
  std::string whatIsStored(int oldCount, int newCount) {
    RecordingLog log;
    if (prepareDatabase(path, log) != DatabaseState::ready) return "not a good database";
    PlayList stored(keys);
    stored.strPLDBFilePath(path);
    if (!stored.boolGetPlayListFromPLDB()) return "not readable";
    const auto content = stored.lngListCount() > 0 ? stored.objGetAItem(1)->strFileName : "old";
    const int expected = content == "new" ? newCount : oldCount;
    if (stored.lngListCount() != expected) return "not complete";
    for (int i = 1; i <= expected; ++i) {
      const auto movie = stored.objGetAItem(i);
      if (movie->strFileName != content) return "mixed";
      if (movie->strFilePath != std::string(150, 'p') + std::to_string(i)) return "in disorder";
    }
    return content;
  }

  /// Kills the save of a list over another before its 1st, 1 + stride-th … change.
  void killEverywhere(int oldCount, int newCount, int stride) {
    PlayList before(keys);
    PlayList after(keys);
    fill(before, "old", oldCount);
    fill(after, "new", newCount);
    int changes = 0;
    for (bool ended = false; !ended; changes += stride) {
      ASSERT_TRUE(before.boolSavePlayListToPLDB());
      ASSERT_EQ(folder.fileCount(), 1u) << "a journal was left over";
      ended = endsBeforeKill(changes, [&] { return after.boolSavePlayListToPLDB(); });
      // The last change of all, which commits, is the removal of the journal.
      ASSERT_EQ(whatIsStored(oldCount, newCount), ended ? "new" : "old") << changes << " changes";
    }
    EXPECT_GT(changes / stride, 10) << "too few moments";
  }

  VirtualTime time;
  MovieKeys keys{time};
};

TEST_F(PlayListCrashTest, ASaveKilledBeforeAnyOfItsWritesLeavesTheOldList) {
  killEverywhere(300, 200, 1);
}

TEST_F(PlayListCrashTest, AFirstSaveKilledBeforeAnyOfItsWritesLeavesNothing) {
  killEverywhere(0, 500, 1);
}

/// Larger than the page cache: the file is written to long before the commit.
TEST_F(PlayListCrashTest, ASaveOfALongListKilledAtManyOfItsWritesLeavesTheOldList) {
  killEverywhere(14000, 13000, 53);
}

TEST_F(PlayListCrashTest, AHotJournalIsAppliedBeforeAnythingIsJudged) {
  PlayList before(keys);
  fill(before, "old", 2000);
  ASSERT_TRUE(before.boolSavePlayListToPLDB());
  const auto good = contentOf(path);

  // A transaction too large for the page cache writes into the file before it is committed.
  std::string journal;
  std::string halfWritten;
  {
    OtherProgram other(path);
    other.run("pragma cache_size=2; begin; update play_list set file_name='broken'");
    journal = contentOf(path + "-journal");
    halfWritten = contentOf(path);
    other.run("rollback");
  }
  ASSERT_NE(halfWritten, good);
  writeFile(path, halfWritten);
  writeFile(path + "-journal", journal);
  EXPECT_EQ(whatIsStored(2000, 0), "old");
  EXPECT_EQ(folder.fileCount(), 1u);
}

}  // namespace
}  // namespace tessivo

#endif
