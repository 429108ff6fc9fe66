// Batches too large for one slice: what the user does meanwhile, and how they end.
#include "unit/app/ControlerFixture.h"

namespace tessivo {
namespace {

/// Every row takes 15 ms, so that a slice adds three.
class ControlerBatchTest : public ControlerFixture {
 protected:
  void SetUp() override {
    ControlerFixture::SetUp();
    for (char name = 'a'; name <= 'z'; ++name) files.existing.insert(path(name));
    panel.whileAddingRow = [this] { time.advance(SlicedWork::kSliceMs / 3); };
  }
  static std::string path(char name) { return std::string("C:\\v\\") + name + ".avi"; }
  void add(const std::string& names, bool play = false) {
    std::vector<std::string> paths{""};
    for (const char name : names) paths.push_back(path(name));
    controler.BatchAddMovie(std::move(paths), play);
  }
  /// The message loop's next turn.
  void nextSlice() { time.advance(1); }
  std::string keyOf(char name) {
    for (std::int32_t i = 1; i <= playList.lngListCount(); ++i) {
      if (playList.objGetAItem(i)->strFilePath == path(name)) return key(i);
    }
    return "";
  }
  void remove(char name) {
    MoviePtr next;
    EXPECT_TRUE(controler.deleteAItemFromPL(keyOf(name), next)) << name;
  }
  void playFirst() {
    controler.PlayAMovieByFlag(key(1));
    time.advance(1);
    real().notify(RealPlayState::playing);
    trace.take();
  }
};

TEST_F(ControlerBatchTest, AFewFilesAreThereWhenTheCallReturnsAndNoProgressIsShown) {
  add("ab");
  EXPECT_EQ(order(), "a*!b");
  EXPECT_EQ(trace.take().find("adding"), std::string::npos);
}

TEST_F(ControlerBatchTest, ManyFilesAreLookedForAtOnceAndEachIsJudgedByItself) {
  panel.whileAddingRow = nullptr;
  std::vector<std::string> paths{""};
  for (int i = 0; i < 70; ++i) paths.push_back(i % 2 ? path('a') : "C:\\v\\none.avi");
  paths.insert(paths.end(), {"http://host/b", "\"" + path('c') + "\"", path('d') + '\0'});
  controler.BatchAddMovie(std::move(paths), false);
  EXPECT_EQ(files.askedAtOnce, (std::vector<std::size_t>{64, 9}));
  ASSERT_EQ(playList.lngListCount(), 38);
  EXPECT_EQ(playList.objGetAItem(35)->strFilePath, path('a'));
  EXPECT_EQ(playList.objGetAItem(36)->strFilePath, "http://host/b");
  EXPECT_EQ(playList.objGetAItem(37)->strFilePath, path('c'));
  EXPECT_EQ(playList.objGetAItem(38)->strFilePath, path('d'));
}

TEST_F(ControlerBatchTest, WhatIsNotAnsweredSoonIsAskedAgain) {
  files.answersAtOnce = 2;
  panel.whileAddingRow = nullptr;
  add("abcde");
  EXPECT_EQ(files.askedAtOnce, (std::vector<std::size_t>{5, 3, 1}));
  EXPECT_EQ(order(), "a*!bcde");
}

TEST_F(ControlerBatchTest, ManyFilesComeInSlicesWithProgressAndTheFirstIsSelectedAtTheEnd) {
  add("abcdefg");
  EXPECT_EQ(order(), "a*bc!");
  EXPECT_TRUE(trace.take().ends_with("row a.avi | row b.avi | row c.avi | adding 3/7"));
  nextSlice();
  EXPECT_EQ(order(), "a*bcdef!");
  EXPECT_EQ(trace.take(), "row d.avi | row e.avi | row f.avi | adding 6/7");
  nextSlice();
  EXPECT_EQ(order(), "a*!bcdefg");
  EXPECT_EQ(trace.take(), "row g.avi | select " + key(1) + " | adding 0/0");
  nextSlice();
  EXPECT_EQ(trace.take(), "");
}

TEST_F(ControlerBatchTest, ALargeBatchToPlayStartsWhenItIsComplete) {
  add("ab");
  playFirst();
  add("cdef", true);
  EXPECT_EQ(screen.lngState(), playState::kPlaying);
  EXPECT_EQ(screen.strFilePath(), path('a'));
  trace.take();
  nextSlice();
  EXPECT_EQ(order(), "abc*!def");
  EXPECT_EQ(trace.take(), "row f.avi | mark " + keyOf('c') +
                              " 1 | wmp stop | wmp position 0 | wmp url C:\\v\\c.avi | "
                              "real source C:\\v\\c.avi | state 1 | adding 0/0");
  EXPECT_EQ(screen.lngState(), playState::kStarting);
}

TEST_F(ControlerBatchTest, AFurtherBatchWaitsForItsTurnAndCountsInTheProgress) {
  add("abcd");
  add("ef", true);
  EXPECT_EQ(order(), "a*bc!");
  trace.take();
  nextSlice();
  EXPECT_EQ(order(), "a*bcdef!");
  EXPECT_EQ(trace.take(),
            "row d.avi | select " + keyOf('a') + " | row e.avi | row f.avi | adding 6/6");
  nextSlice();
  EXPECT_EQ(order(), "abcde*!f");
  EXPECT_EQ(screen.lngState(), playState::kStarting);
  EXPECT_TRUE(trace.take().ends_with("state 1 | adding 0/0"));
}

TEST_F(ControlerBatchTest, TheNextLongBatchCountsItsProgressAnew) {
  add("abcd");
  nextSlice();
  trace.take();
  add("efgh");
  EXPECT_TRUE(trace.take().ends_with("adding 3/4"));
}

TEST_F(ControlerBatchTest, FilesThatDoNotExistCountAsLookedAt) {
  files.existing.erase(path('b'));
  add("abcdef");
  EXPECT_TRUE(trace.take().ends_with("row a.avi | row c.avi | row d.avi | adding 4/6"));
}

TEST_F(ControlerBatchTest, WhenTheFirstHasBeenDeletedMeanwhileTheNextOfTheBatchIsPlayed) {
  add("abcd", true);
  remove('a');
  remove('b');
  nextSlice();
  EXPECT_EQ(order(), "c*!d");
  EXPECT_EQ(screen.strFilePath(), path('c'));
  EXPECT_EQ(screen.lngState(), playState::kStarting);
}

TEST_F(ControlerBatchTest, WhenTheFirstHasBeenDeletedMeanwhileTheNextOfTheBatchIsSelected) {
  add("z");
  add("abcd");
  remove('a');
  trace.take();
  nextSlice();
  EXPECT_EQ(order(), "z*b!cd");
  EXPECT_EQ(trace.take(), "row d.avi | select " + keyOf('b') + " | adding 0/0");
}

TEST_F(ControlerBatchTest, ABatchToPlayOfWhichNothingIsLeftStopsWhatPlays) {
  add("z");
  playFirst();
  files.existing.erase(path('d'));
  add("abcd", true);
  for (const char name : {'a', 'b', 'c'}) remove(name);
  trace.take();
  nextSlice();
  EXPECT_EQ(order(), "z*!");
  EXPECT_EQ(screen.lngState(), playState::kStopped);
  EXPECT_EQ(trace.take(), "wmp stop | wmp position 0 | real stop | state 3 | adding 0/0");
}

TEST_F(ControlerBatchTest, ABatchNotToPlayOfWhichNothingIsLeftChangesNothing) {
  add("z");
  playFirst();
  files.existing.erase(path('d'));
  add("abcd");
  for (const char name : {'a', 'b', 'c'}) remove(name);
  trace.take();
  nextSlice();
  EXPECT_EQ(screen.lngState(), playState::kPlaying);
  EXPECT_EQ(trace.take(), "adding 0/0");
}

TEST_F(ControlerBatchTest, MovingItemsMeanwhileDoesNotChangeWhichIsTheFirst) {
  add("abcd", true);
  MoviePtr neighbour;
  EXPECT_TRUE(controler.moveAItemUpDown(2, keyOf('a'), neighbour));
  nextSlice();
  EXPECT_EQ(order(), "ba*!cd");
}

TEST_F(ControlerBatchTest, ClearingTheListDropsWhatStillWaits) {
  add("abcdef");
  add("xyz", true);
  trace.take();
  controler.deleteAllItemFromPL();
  EXPECT_TRUE(trace.take().starts_with("adding 0/0"));
  time.advance(1000);
  EXPECT_EQ(controler.lngGetPlayListItemCount(), 0);
  EXPECT_EQ(screen.strFilePath(), "");
  EXPECT_EQ(screen.lngState(), playState::kStopped);
  EXPECT_EQ(trace.take(), "");
  add("u");
  EXPECT_EQ(order(), "u*!");
}

TEST_F(ControlerBatchTest, ClearingTheListWhileARowIsAddedShowsNoMoreRows) {
  panel.whileAddingRow = [this] {
    if (playList.lngListCount() == 2) controler.deleteAllItemFromPL();
  };
  add("abcd", true);
  EXPECT_EQ(controler.lngGetPlayListItemCount(), 0);
  EXPECT_EQ(trace.take().find("row c.avi"), std::string::npos);
  EXPECT_EQ(screen.lngState(), playState::kStopped);
}

TEST_F(ControlerBatchTest, AnItemDeletedInsideItsOwnAdditionGetsNoRow) {
  bool cleared = false;
  real().whenSourced = [&] {  // the first item's path goes to the engines
    if (!std::exchange(cleared, true)) controler.deleteAllItemFromPL();
  };
  add("ab");
  EXPECT_EQ(controler.lngGetPlayListItemCount(), 0);
  EXPECT_EQ(trace.take().find("row"), std::string::npos);
}

TEST_F(ControlerBatchTest, LeavingCompletesTheAdditionsBehindAHiddenPanelAndStoresThem) {
  add("abcdefg");
  trace.take();
  controler.exitSys();
  const std::string all = trace.take();
  EXPECT_TRUE(all.starts_with(
      "requests end | panel hidden | row d.avi | row e.avi | row f.avi | row g.avi | select " +
      key(1) + " | adding 0/0 | panel gone"))
      << all;
  PlayList stored(keys);
  stored.strPLDBFilePath(database);
  ASSERT_TRUE(stored.boolGetPlayListFromPLDB());
  EXPECT_EQ(stored.lngListCount(), 7);
}

TEST_F(ControlerBatchTest, LeavingWithNothingUnderWayDoesNotHideThePanelFirst) {
  add("ab");
  trace.take();
  controler.exitSys();
  EXPECT_TRUE(trace.take().starts_with("requests end | panel gone"));
}

TEST_F(ControlerBatchTest, WhatABatchWasToPlayIsNotStartedWhileLeaving) {
  add("ab");
  playFirst();
  panel.shownLength = 200;
  panel.shownPosition = 65;
  add("cdefg", true);
  controler.exitSys();
  EXPECT_EQ(trace.take().find("state 1"), std::string::npos);
  PlayList stored(keys);
  stored.strPLDBFilePath(database);
  ASSERT_TRUE(stored.boolGetPlayListFromPLDB());
  EXPECT_EQ(stored.lngListCount(), 7);
  EXPECT_EQ(stored.objGetPlayItem()->strFilePath, path('a'));  // whose position is kept
  SysConfig config;
  config.strDBFilePath(database);
  ASSERT_TRUE(config.boolGetData());
  EXPECT_EQ(config.lngCurrentPlayPosition(), 65);
}

TEST_F(ControlerBatchTest, ThePanelCompletesItsWorkBeforeTheAdditionsAndBeforeAnythingIsSaved) {
  add("abcd");
  trace.take();
  panel.whileFinishing = [this] {
    trace.add("panel finishes");
    remove('b');
    panel.shownPosition = 12;
  };
  controler.exitSys();
  EXPECT_TRUE(trace.take().starts_with("requests end | panel finishes | panel hidden | row d.avi"));
  PlayList stored(keys);
  stored.strPLDBFilePath(database);
  ASSERT_TRUE(stored.boolGetPlayListFromPLDB());
  EXPECT_EQ(stored.lngListCount(), 3);
  EXPECT_EQ(controler.config().lngCurrentPlayPosition(), 12);
}

TEST_F(ControlerBatchTest, LeavingInsideAnAdditionCompletesTheBatchOnce) {
  panel.whileAddingRow = [this] {
    if (playList.lngListCount() == 2) controler.exitSys();
  };
  add("abcd", true);
  EXPECT_EQ(playList.lngListCount(), 4);
  PlayList stored(keys);
  stored.strPLDBFilePath(database);
  ASSERT_TRUE(stored.boolGetPlayListFromPLDB());
  EXPECT_EQ(stored.lngListCount(), 4);
  EXPECT_TRUE(trace.take().ends_with("quit"));
  EXPECT_EQ(screen.lngState(), playState::kStopped);
}

TEST_F(ControlerBatchTest, NothingIsAddedWhileTheEnginesSettle) {
  add("a");
  loop.whilePumping = [this] {
    add("b", true);
    time.advance(200);
  };
  trace.take();
  controler.exitSys();
  EXPECT_EQ(trace.take(),
            "requests end | panel gone | wmp sound | real sound | pump 200 | real gone | tray gone "
            "| " +
                kSystemRestored + " | quit");
  EXPECT_EQ(playList.lngListCount(), 1);
}

}  // namespace
}  // namespace tessivo
