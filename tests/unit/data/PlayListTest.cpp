#include "data/PlayList.h"

#include <gtest/gtest.h>

#include "fakes/VirtualTime.h"

namespace tessivo {
namespace {

class PlayListTest : public testing::Test {
 protected:
  MoviePtr add(const std::string& key) {
    auto movie = std::make_shared<Movie>(key);
    movie->strFileName = key + ".mp4";
    EXPECT_TRUE(list.addAItem(movie));
    return movie;
  }
  void addAll(const std::vector<std::string>& all) {
    for (const auto& key : all) add(key);
  }

  /// The keys in order, the play item marked by '*', the act item by '+'.
  std::string shown() const {
    std::string text;
    for (std::int32_t i = 1; i <= list.lngListCount(); ++i) {
      const auto movie = list.objGetAItem(i);
      text += (i > 1 ? " " : "") + movie->strKey + (movie->boolIsPlayItem ? "*" : "") +
              (movie->boolIsActItem ? "+" : "");
    }
    return text;
  }
  static std::string keyOf(const MoviePtr& movie) { return movie ? movie->strKey : "nothing"; }

  /// What came back: the new item, the previous one, the code.
  std::string next(bool recycle) {
    MoviePtr previous = std::make_shared<Movie>("stale");
    std::int32_t code = -1;
    const auto seenAhead = list.objPeekNextItem(recycle);
    const auto movie = list.objGetNextPalyItem(recycle, previous, code);
    EXPECT_EQ(seenAhead, movie);
    return keyOf(movie) + " " + keyOf(previous) + " " + std::to_string(code);
  }
  std::string back(bool recycle) {
    MoviePtr previous = std::make_shared<Movie>("stale");
    std::int32_t code = -1;
    const auto movie = list.objGetPreviousPalyItem(recycle, previous, code);
    return keyOf(movie) + " " + keyOf(previous) + " " + std::to_string(code);
  }
  std::string move(std::int32_t direction, const std::string& key) {
    MoviePtr neighbour = std::make_shared<Movie>("stale");
    const bool moved = list.moveAItemUpDown(direction, key, neighbour);
    return std::string(moved ? "moved " : "not moved ") + keyOf(neighbour);
  }

  VirtualTime time;
  MovieKeys keys{time};
  PlayList list{keys};
};

TEST_F(PlayListTest, AFreshListIsEmpty) {
  EXPECT_EQ(list.lngListCount(), 0);
  EXPECT_EQ(list.objGetPlayItem(), nullptr);
  EXPECT_EQ(list.objGetActItem(), nullptr);
  EXPECT_EQ(list.strPLDBFilePath(), "");
}

TEST_F(PlayListTest, TheFirstItemAddedIsPlayItemAndActItem) {
  add("a");
  EXPECT_EQ(shown(), "a*+");
}

TEST_F(PlayListTest, AddingMovesOnlyTheActMark) {
  addAll({"a", "b", "c"});
  EXPECT_EQ(shown(), "a* b c+");
}

TEST_F(PlayListTest, AddingToAListWithoutPlayItemMakesTheNewItemThePlayItem) {
  addAll({"a", "b"});
  list.deleteAItem("a");
  add("c");
  EXPECT_EQ(shown(), "b c*+");
}

TEST_F(PlayListTest, NothingCannotBeAdded) {
  EXPECT_FALSE(list.addAItem(nullptr));
  EXPECT_EQ(list.lngListCount(), 0);
}

TEST_F(PlayListTest, TheSameObjectCannotBeAddedTwice) {
  const auto movie = add("a");
  EXPECT_FALSE(list.addAItem(movie));
  EXPECT_EQ(shown(), "a*+");
}

TEST_F(PlayListTest, KeysOfAddedItemsAreNotMadeAgain) {
  time.setDate({2007, 8, 15, 5});
  add("F200781500000005");
  EXPECT_EQ(keys.newKey(), "F200781500000006");
}

TEST_F(PlayListTest, ItemsAreFoundByIndexAndByKey) {
  addAll({"a", "b", "c"});
  EXPECT_EQ(keyOf(list.objGetAItem(2)), "b");
  EXPECT_EQ(list.lngGetIndexByItemFlag("c"), 3);
  EXPECT_EQ(keyOf(list.objGetItemByFlag("C")), "c");
}

TEST_F(PlayListTest, OutsideTheListThereIsNothing) {
  addAll({"a", "b"});
  for (const std::int32_t index : {0, -1, 3, 2147483647, -2147483647 - 1}) {
    EXPECT_EQ(list.objGetAItem(index), nullptr) << index;
  }
  EXPECT_EQ(list.lngGetIndexByItemFlag("x"), 0);
  EXPECT_EQ(list.objGetItemByFlag("x"), nullptr);
}

TEST_F(PlayListTest, DeletingClosesTheGap) {
  addAll({"a", "b", "c"});
  EXPECT_TRUE(list.deleteAItem("b"));
  EXPECT_EQ(shown(), "a* c+");
  EXPECT_EQ(list.lngGetIndexByItemFlag("c"), 2);
  EXPECT_EQ(list.lngGetIndexByItemFlag("b"), 0);
}

TEST_F(PlayListTest, DeletingAnUnknownKeyFails) {
  add("a");
  MoviePtr neighbour = std::make_shared<Movie>("stale");
  EXPECT_FALSE(list.deleteAItem("b", neighbour));
  EXPECT_EQ(neighbour, nullptr);
  EXPECT_EQ(shown(), "a*+");
}

TEST_F(PlayListTest, ADeletedItemTakesItsMarksAlong) {
  addAll({"a", "b"});
  list.setActItemByFlag("a");
  const auto deleted = list.objGetAItem(1);
  list.deleteAItem("a");
  EXPECT_EQ(shown(), "b");
  EXPECT_EQ(list.objGetPlayItem(), nullptr);
  EXPECT_EQ(list.objGetActItem(), nullptr);
  EXPECT_FALSE(deleted->boolIsPlayItem);
  EXPECT_FALSE(deleted->boolIsActItem);
}

TEST_F(PlayListTest, DeletingTellsTheItemThatFollowed) {
  addAll({"a", "b", "c"});
  MoviePtr neighbour;
  list.deleteAItem("b", neighbour);
  EXPECT_EQ(keyOf(neighbour), "c");
}

TEST_F(PlayListTest, DeletingTheLastTellsTheItemBefore) {
  addAll({"a", "b", "c"});
  MoviePtr neighbour;
  list.deleteAItem("c", neighbour);
  EXPECT_EQ(keyOf(neighbour), "b");
}

TEST_F(PlayListTest, DeletingTheOnlyItemTellsNothing) {
  add("a");
  MoviePtr neighbour = std::make_shared<Movie>("stale");
  EXPECT_TRUE(list.deleteAItem("a", neighbour));
  EXPECT_EQ(neighbour, nullptr);
  EXPECT_EQ(list.lngListCount(), 0);
}

TEST_F(PlayListTest, ClearingLeavesNothing) {
  const auto movie = add("a");
  list.clearList();
  EXPECT_EQ(list.lngListCount(), 0);
  EXPECT_EQ(list.objGetPlayItem(), nullptr);
  EXPECT_EQ(list.objGetActItem(), nullptr);
  EXPECT_FALSE(movie->boolIsPlayItem);
  EXPECT_EQ(movie.use_count(), 1);
}

TEST_F(PlayListTest, NextOnAnEmptyListIsCodeTwo) {
  EXPECT_EQ(next(true), "nothing nothing 2");
}

TEST_F(PlayListTest, PreviousOnAnEmptyListIsCodeTwo) {
  EXPECT_EQ(back(true), "nothing nothing 2");
}

TEST_F(PlayListTest, NextMovesThePlayMarkForward) {
  addAll({"a", "b", "c"});
  EXPECT_EQ(next(false), "b a 0");
  EXPECT_EQ(shown(), "a b* c+");
}

TEST_F(PlayListTest, PreviousMovesThePlayMarkBackward) {
  addAll({"a", "b", "c"});
  list.setPlayItemByFlag("c");
  EXPECT_EQ(back(false), "b c 0");
  EXPECT_EQ(shown(), "a b* c+");
}

TEST_F(PlayListTest, NextAtTheEndWithoutRecycleIsCodeOneAndKeepsTheMark) {
  addAll({"a", "b"});
  list.setPlayItemByFlag("b");
  EXPECT_EQ(next(false), "nothing b 1");
  EXPECT_EQ(shown(), "a b*+");
}

TEST_F(PlayListTest, PreviousAtTheStartWithoutRecycleIsCodeThreeAndKeepsTheMark) {
  addAll({"a", "b"});
  EXPECT_EQ(back(false), "nothing a 3");
  EXPECT_EQ(shown(), "a* b+");
}

TEST_F(PlayListTest, NextAtTheEndWithRecycleGoesToTheFirst) {
  addAll({"a", "b"});
  list.setPlayItemByFlag("b");
  EXPECT_EQ(next(true), "a b 0");
  EXPECT_EQ(shown(), "a* b+");
}

TEST_F(PlayListTest, PreviousAtTheStartWithRecycleGoesToTheLast) {
  addAll({"a", "b", "c"});
  EXPECT_EQ(back(true), "c a 0");
  EXPECT_EQ(shown(), "a b c*+");
}

TEST_F(PlayListTest, NextOnAListOfOneWithoutRecycleIsCodeOne) {
  add("a");
  EXPECT_EQ(next(false), "nothing a 1");
}

TEST_F(PlayListTest, NextOnAListOfOneWithRecycleIsTheSameItem) {
  add("a");
  EXPECT_EQ(next(true), "a a 0");
  EXPECT_EQ(shown(), "a*+");
}

TEST_F(PlayListTest, PreviousOnAListOfOne) {
  add("a");
  EXPECT_EQ(back(false), "nothing a 3");
  EXPECT_EQ(back(true), "a a 0");
  EXPECT_EQ(shown(), "a*+");
}

TEST_F(PlayListTest, NextWithoutAPlayItemMarksTheFirst) {
  addAll({"a", "b", "c"});
  list.deleteAItem("a");
  EXPECT_EQ(next(false), "b nothing 0");
  EXPECT_EQ(shown(), "b* c+");
}

TEST_F(PlayListTest, PreviousWithoutAPlayItemMarksTheLast) {
  addAll({"a", "b", "c"});
  list.deleteAItem("a");
  EXPECT_EQ(back(false), "c nothing 0");
  EXPECT_EQ(shown(), "b c*+");
}

TEST_F(PlayListTest, OneItemHasThePlayMark) {
  addAll({"a", "b", "c"});
  list.setPlayItemByFlag("B");
  EXPECT_EQ(shown(), "a b* c+");
  EXPECT_EQ(keyOf(list.objGetPlayItem()), "b");
}

TEST_F(PlayListTest, OneItemHasTheActMark) {
  addAll({"a", "b", "c"});
  list.setActItemByFlag("a");
  EXPECT_EQ(shown(), "a*+ b c");
  EXPECT_EQ(keyOf(list.objGetActItem()), "a");
}

TEST_F(PlayListTest, MarkingAnUnknownKeyLeavesNoItemMarked) {
  addAll({"a", "b"});
  list.setPlayItemByFlag("x");
  list.setActItemByFlag("x");
  EXPECT_EQ(shown(), "a b");
  EXPECT_EQ(list.objGetPlayItem(), nullptr);
  EXPECT_EQ(list.objGetActItem(), nullptr);
}

TEST_F(PlayListTest, MovingUpSwapsWithTheItemBefore) {
  addAll({"a", "b", "c"});
  EXPECT_EQ(move(1, "c"), "moved b");
  EXPECT_EQ(shown(), "a* c+ b");
}

TEST_F(PlayListTest, MovingDownSwapsWithTheItemAfter) {
  addAll({"a", "b", "c"});
  EXPECT_EQ(move(2, "a"), "moved b");
  EXPECT_EQ(shown(), "b a* c+");
}

TEST_F(PlayListTest, TheKeyOfTheItemToMoveHasNoCase) {
  addAll({"Fa", "Fb"});
  EXPECT_EQ(move(2, "fA"), "moved Fb");
}

TEST_F(PlayListTest, TheFirstItemCannotMoveUp) {
  addAll({"a", "b"});
  EXPECT_EQ(move(1, "a"), "not moved nothing");
  EXPECT_EQ(shown(), "a* b+");
}

TEST_F(PlayListTest, TheLastItemCannotMoveDown) {
  addAll({"a", "b"});
  EXPECT_EQ(move(2, "b"), "not moved nothing");
  EXPECT_EQ(shown(), "a* b+");
}

TEST_F(PlayListTest, UnknownKeysAndDirectionsMoveNothing) {
  addAll({"a", "b", "c"});
  for (const std::int32_t direction : {0, 3, -1}) {
    EXPECT_EQ(move(direction, "b"), "not moved nothing") << direction;
  }
  EXPECT_EQ(move(1, "x"), "not moved nothing");
  EXPECT_EQ(shown(), "a* b c+");
}

}  // namespace
}  // namespace tessivo
