// Requests for memory fail, one after the other: what could not be done says so, or ends in
// std::bad_alloc, which is where an event ends (platform/win32/Guarded.h). What is stored is never
// lost, the list in memory stays whole, and afterwards everything works again. An executable of its
// own, since it has its own operator new.
#include <cstdlib>
#include <new>
#include <utility>
#include <vector>

#include "data/SysConfig.h"
#include "faults/FailingMemory.h"
#include "platform/FileLog.h"
#include "platform/win32/Guarded.h"
#include "unit/app/ControlerFixture.h"
#include "unit/data/StoredContent.h"

namespace tessivo {
namespace {

using Lasts = FailingMemory::Lasts;

enum class Outcome { done, refused, noMemory };

/// What becomes of `work`, which says whether it was done, when that request fails. `happened` says
/// whether it came to it.
template <typename Work>
Outcome withFailing(int request, Lasts lasts, Work work, bool& happened) {
  Outcome outcome{};
  const FailingMemory failing(request, lasts);
  try {
    outcome = work() ? Outcome::done : Outcome::refused;
  } catch (const std::bad_alloc&) {
    outcome = Outcome::noMemory;
  }
  happened = failing.happened();
  return outcome;
}

class LowMemoryTest : public testing::TestWithParam<Lasts> {
 protected:
  void SetUp() override { ASSERT_EQ(prepareDatabase(path, log), DatabaseState::created); }

  template <typename Begin, typename Work, typename Check>
  void failEverywhere(Begin begin, Work work, Check check, int stride = 1, int atLeast = 20) {
    int request = 1;
    for (bool happened = true; happened; request += stride) {
      begin();
      const Outcome outcome = withFailing(request, GetParam(), work, happened);
      SCOPED_TRACE("request " + std::to_string(request) + " failed");
      check(outcome);
      if (HasFatalFailure() || HasNonfatalFailure()) return;
      ASSERT_TRUE(happened || outcome == Outcome::done);
    }
    EXPECT_GT(request / stride, atLeast) << "too few requests";
  }

  TempFolder folder;
  const std::string path = folder.file("SysConfig");
  RecordingLog log;
  StoredContent content{path};
};

TEST_P(LowMemoryTest, AListThatIsNotLoadedIsEmptyAndTheStoredOneStays) {
  ASSERT_TRUE(content.list("old", 20)->boolSavePlayListToPLDB());
  const auto list = content.list("", 0);
  failEverywhere([] {}, [&] { return list->boolGetPlayListFromPLDB(); },
                 [&](Outcome outcome) {
                   EXPECT_EQ(list->lngListCount(), outcome == Outcome::done ? 20 : 0);
                   EXPECT_TRUE(outcome != Outcome::refused || !list->strReport().empty());
                   // As at the end of the program: an empty list that was not read is not stored.
                   EXPECT_TRUE(list->boolSavePlayListToPLDB());
                   EXPECT_EQ(content.storedList(), "old 20");
                 });
}

TEST_P(LowMemoryTest, AListThatIsNotSavedStaysAndTheStoredOneToo) {
  const auto before = content.list("old", 20);
  const auto after = content.list("new", 15);
  failEverywhere([&] { ASSERT_TRUE(before->boolSavePlayListToPLDB()); },
                 [&] { return after->boolSavePlayListToPLDB(); },
                 [&](Outcome outcome) {
                   EXPECT_TRUE(outcome != Outcome::refused || !after->strReport().empty());
                   EXPECT_EQ(content.storedList(), outcome == Outcome::done ? "new 15" : "old 20");
                   EXPECT_EQ(after->lngListCount(), 15);
                   EXPECT_TRUE(after->boolSavePlayListToPLDB()) << after->strReport();
                   EXPECT_EQ(content.storedList(), "new 15");
                   EXPECT_EQ(content.verdict(), "ok");
                 });
}

TEST_P(LowMemoryTest, SettingsThatAreNotLoadedStayAsTheyWere) {
  ASSERT_TRUE(content.settings(11).boolSaveData());
  SysConfig config;
  failEverywhere([&] { config = content.settings(22); }, [&] { return config.boolGetData(); },
                 [&](Outcome outcome) {
                   EXPECT_EQ(config.intVolumeValue(), outcome == Outcome::done ? 11 : 22);
                   EXPECT_EQ(config.lngSSDelayMinute(), config.intVolumeValue());
                 });
}

TEST_P(LowMemoryTest, SettingsThatAreNotSavedStayAndTheStoredOnesToo) {
  SysConfig config;
  failEverywhere(
      [&] {
        ASSERT_TRUE(content.settings(11).boolSaveData());
        config = content.settings(22);
      },
      [&] { return config.boolSaveData(); },
      [&](Outcome outcome) {
        EXPECT_EQ(content.storedSettings(), outcome == Outcome::done ? "22" : "11");
        EXPECT_EQ(config.intVolumeValue(), 22);
        EXPECT_TRUE(config.boolSaveData()) << config.strReport();
        EXPECT_EQ(content.storedSettings(), "22");
      });
}

/// The marks are where they belong, each item is found, and what is saved is what there is.
void expectWhole(PlayList& list, StoredContent& content, int count) {
  ASSERT_EQ(list.lngListCount(), count);
  int playItems = 0;
  for (int i = 1; i <= count; ++i) {
    const auto item = list.objGetAItem(i);
    ASSERT_EQ(list.lngGetIndexByItemFlag(item->strKey), i);
    ASSERT_EQ(item->boolIsActItem, item == list.objGetActItem());
    if (item->boolIsPlayItem) ++playItems;
  }
  EXPECT_EQ(playItems, list.objGetPlayItem() ? 1 : 0);
  EXPECT_TRUE(list.boolSavePlayListToPLDB()) << list.strReport();
  EXPECT_EQ(content.storedList().substr(0, 3), count == 0 ? "non" : "new");
}

TEST_P(LowMemoryTest, AListInWhichThereIsNoRoomForMoreIsWhole) {
  std::vector<MoviePtr> items;
  const auto made = content.list("new", 40);
  for (int i = 1; i <= 40; ++i) items.push_back(made->objGetAItem(i));
  made->clearList();
  auto list = content.list("", 0);
  int added = 0;
  failEverywhere(
      [&] {
        list->clearList();
        added = 0;
      },
      [&] {
        for (const auto& item : items) {
          if (list->addAItem(item)) ++added;
        }
        return true;
      },
      [&](Outcome) {
        expectWhole(*list, content, added);
        for (int i = added; i < 40; ++i) EXPECT_FALSE(items[i]->boolIsPlayItem) << i;
      });
}

TEST_P(LowMemoryTest, AListFromWhichNothingCanBeTakenIsWhole) {
  std::unique_ptr<PlayList> list;
  int deleted = 0;
  failEverywhere(
      [&] {
        list = content.list("new", 150);
        deleted = 0;
      },
      [&] {
        // So far that the list moves together.
        while (deleted < 120) {
          const std::string key = list->objGetAItem(1)->strKey;
          if (list->deleteAItem(key)) ++deleted;
        }
        return true;
      },
      [&](Outcome) {
        ASSERT_EQ(list->lngListCount(), 150 - deleted);
        for (int i = 1; i <= list->lngListCount(); ++i) {
          ASSERT_EQ(list->lngGetIndexByItemFlag(list->objGetAItem(i)->strKey), i);
        }
      },
      1, 3);
}

TEST_P(LowMemoryTest, ADatabaseThatIsNotMadeIsMadeByTheNextStart) {
  failEverywhere(
      [&] {
        for (const std::string end : {"", "-journal"}) {
          std::filesystem::remove(toFilePath(path + end));
        }
      },
      [&] { return prepareDatabase(path, log) == DatabaseState::created; },
      [&](Outcome) {
        const auto state = prepareDatabase(path, log);
        EXPECT_TRUE(state == DatabaseState::created || state == DatabaseState::ready);
        EXPECT_EQ(content.verdict(), "ok");
        EXPECT_EQ(folder.fileCount(), 1U);
      },
      29);
}

TEST_P(LowMemoryTest, AGoodDatabaseIsNeverTakenForADamagedOne) {
  ASSERT_TRUE(content.list("old", 20)->boolSavePlayListToPLDB());
  failEverywhere([] {}, [&] { return prepareDatabase(path, log) == DatabaseState::ready; },
                 [&](Outcome) {
                   EXPECT_EQ(folder.fileCount(), 1U);
                   EXPECT_EQ(content.storedList(), "old 20");
                 });
}

struct LeavingProgram : ControlerFixture {
  void SetUp() override {
    ControlerFixture::SetUp();
    addThree();
    ASSERT_TRUE(playList.boolSavePlayListToPLDB());
    playList.deleteAItem(key(1));
    trace.take();
  }
  void TestBody() override {}
  std::string stored() {
    PlayList again(keys);
    again.strPLDBFilePath(database);
    return again.boolGetPlayListFromPLDB() ? std::to_string(again.lngListCount()) : "not readable";
  }
  using ControlerFixture::controler;
  using ControlerFixture::database;
  using ControlerFixture::log;
  using ControlerFixture::playList;
};

/// A step that there is no memory for is one that fails: the others are done. The fakes need memory
/// themselves, so that it fails once only.
TEST(LowMemoryProgramTest, TheProgramThatIsLeftStoresTheListOrKeepsTheOldOne) {
  int request = 1;
  int kept = 0;
  for (bool happened = true; happened; request += 7) {
    LeavingProgram program;
    program.SetUp();
    withFailing(
        request, Lasts::once,
        [&] {
          program.controler.exitSys();
          return true;
        },
        happened);
    SCOPED_TRACE("request " + std::to_string(request) + " failed");
    const std::string stored = program.stored();
    ASSERT_TRUE(stored == "2" || stored == "3") << stored;
    if (stored == "3") ++kept;
  }
  EXPECT_GT(request / 7, 20) << "too few requests";
  // It is tried ten times.
  EXPECT_EQ(kept, 0);
}

TEST(LowMemoryProgramTest, AnEventThatThereIsNoMemoryForEndsThere) {
  const TempFolder folder;
  const VirtualTime time;
  FileLog log(folder.file("Tessivo.log"), time);
  bool isReached = false;
  for (int request = 1; request < 6; ++request) {
    const FailingMemory failing(request, Lasts::untilItGoes);
    guarded(log, [&] {
      std::vector<std::string> texts;
      for (int i = 0; i < 10; ++i) texts.push_back(std::string(100, 'x'));
      isReached = true;
    });
  }
  EXPECT_FALSE(isReached);
  guarded(log, [] { throw std::bad_alloc(); });
  EXPECT_NE(contentOf(folder.file("Tessivo.log")).find("error no memory for an event"),
            std::string::npos);
}

INSTANTIATE_TEST_SUITE_P(Requests, LowMemoryTest, testing::Values(Lasts::once, Lasts::untilItGoes),
                         [](const auto& each) {
                           return each.param == Lasts::once ? "OneFails" : "AllFailFromThenOn";
                         });

}  // namespace
}  // namespace tessivo

int main(int count, char** arguments) {
  setenv("TMPDIR", "/dev/shm", 0);  // nobody is to wait for a disk here
  tessivo::FailingMemory::prepare();
  testing::InitGoogleTest(&count, arguments);
  return RUN_ALL_TESTS();
}
