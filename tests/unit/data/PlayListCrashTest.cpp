// The program is killed at many moments of a save; afterwards the file holds the old list or the
// new one, complete. Linux only: Windows offers no fork.
#ifndef _WIN32

#include <sys/time.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>

#include "data/PlayList.h"
#include "fakes/VirtualTime.h"
#include "unit/data/DataTestSupport.h"

namespace tessivo {
namespace {

constexpr int kItems = 4000;

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
  std::string whatIsStored() {
    RecordingLog log;
    if (prepareDatabase(path, log) != DatabaseState::ready) return "not a good database";
    PlayList stored(keys);
    stored.strPLDBFilePath(path);
    if (!stored.boolGetPlayListFromPLDB()) return "not readable";
    const auto content = stored.lngListCount() > 0 ? stored.objGetAItem(1)->strFileName : "";
    const int expected = content == "old" ? kItems : kItems / 2;
    if (stored.lngListCount() != expected) return "not complete";
    for (int i = 1; i <= expected; ++i) {
      const auto movie = stored.objGetAItem(i);
      if (movie->strFileName != content) return "mixed";
      if (movie->strFilePath != std::string(150, 'p') + std::to_string(i)) return "in disorder";
    }
    return content;
  }

  /// Saves in another process that an alarm ends, without any chance to tidy up, after so long.
  void saveAndDieAfter(PlayList& list, std::chrono::microseconds delay) {
    const pid_t child = fork();
    ASSERT_GE(child, 0);
    if (child == 0) {
      const itimerval alarm = {{0, 0}, {delay.count() / 1000000, delay.count() % 1000000 + 1}};
      setitimer(ITIMER_REAL, &alarm, nullptr);
      _exit(list.boolSavePlayListToPLDB() ? 0 : 1);
    }
    int status = 0;
    ASSERT_EQ(waitpid(child, &status, 0), child);
    ASSERT_TRUE(WIFSIGNALED(status) || WEXITSTATUS(status) == 0) << "the save itself failed";
  }

  VirtualTime time;
  MovieKeys keys{time};
};

TEST_F(PlayListCrashTest, AKilledSaveLeavesTheOldListOrTheNewOne) {
  PlayList before(keys);
  PlayList after(keys);
  fill(before, "old", kItems);
  fill(after, "new", kItems / 2);
  ASSERT_TRUE(before.boolSavePlayListToPLDB());

  const auto start = std::chrono::steady_clock::now();
  ASSERT_TRUE(after.boolSavePlayListToPLDB());
  const auto whole = std::chrono::duration_cast<std::chrono::microseconds>(
      std::chrono::steady_clock::now() - start);

  int killedInTheMidst = 0;
  int finished = 0;
  constexpr int kRounds = 50;
  for (int round = 0; round < kRounds; ++round) {
    ASSERT_TRUE(before.boolSavePlayListToPLDB());
    ASSERT_EQ(folder.fileCount(), 1u) << "a journal was left over";
    ASSERT_NO_FATAL_FAILURE(saveAndDieAfter(after, whole * round * 3 / (kRounds * 2)));
    if (std::filesystem::exists(toFilePath(path + "-journal"))) ++killedInTheMidst;
    const auto stored = whatIsStored();
    ASSERT_TRUE(stored == "old" || stored == "new") << stored << ", round " << round;
    if (stored == "new") ++finished;
  }
  // Otherwise the moments were badly chosen and nothing has been shown.
  EXPECT_GT(killedInTheMidst, 5);
  EXPECT_GT(finished, 0);
  EXPECT_LT(finished, kRounds);
}

TEST_F(PlayListCrashTest, AHotJournalIsAppliedBeforeAnythingIsJudged) {
  PlayList before(keys);
  fill(before, "old", kItems);
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
  EXPECT_EQ(whatIsStored(), "old");
  EXPECT_EQ(folder.fileCount(), 1u);
}

}  // namespace
}  // namespace tessivo

#endif
