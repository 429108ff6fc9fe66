// The controller's operations on the playlist at their edges.
#include "unit/app/ControlerFixture.h"

namespace tessivo {
namespace {

class ControlerPlayListTest : public ControlerFixture {
 protected:
  void play(std::int32_t index) {
    ASSERT_TRUE(controler.PlayAMovieByFlag(key(index)));
    time.advance(1);
    real().notify(RealPlayState::playing);
    trace.take();
  }
  void step(int direction, bool recycle) {
    controler.playNextPreviousPlayItem(direction, recycle, previous, now);
  }
  MoviePtr previous;
  MoviePtr now;
  MoviePtr neighbour;
};

// Adding

TEST_F(ControlerPlayListTest, APathLongerThanTheSystemsLongestIsRefused) {
  std::string longest = "http://";
  longest.resize(32767, 'x');
  EXPECT_TRUE(controler.AddAMovieToPL(longest));
  EXPECT_FALSE(controler.AddAMovieToPL(longest + "x"));
  EXPECT_EQ(log.lines.back(), "error not added, too long: " + longest.substr(0, 327) + "…");
  EXPECT_FALSE(controler.AddAMovieToPL(longest + std::string(30'000'000, 'x')));
  EXPECT_EQ(playList.lngListCount(), 1);
}

TEST_F(ControlerPlayListTest, CharactersCountWhateverBytesTheyTake) {
  std::string longest = "http://";
  while (longest.size() < 7 + 3 * (32767 - 7)) longest += "时";
  EXPECT_TRUE(controler.AddAMovieToPL(longest));
  EXPECT_FALSE(controler.AddAMovieToPL(longest + "x"));
}

TEST_F(ControlerPlayListTest, AnEmptyPathIsRejected) {
  EXPECT_FALSE(controler.AddAMovieToPL(""));
  EXPECT_FALSE(controler.AddAMovieToPL("\"\""));
  EXPECT_EQ(controler.lngGetPlayListItemCount(), 0);
}

TEST_F(ControlerPlayListTest, HttpAnywhereInAPathIsAccepted) {
  const auto movie = controler.AddAMovieToPL("D:\\gone\\aHTTPb.avi");
  ASSERT_TRUE(movie);
  EXPECT_EQ(movie->strFileName, "aHTTPb.avi");
  EXPECT_FALSE(controler.AddAMovieToPL("ftp://server/x.avi"));
}

TEST_F(ControlerPlayListTest, TheSameFileMayBeThereTwiceUnderTwoKeys) {
  controler.BatchAddMovie({"", "C:\\v\\a.avi", "C:\\v\\a.avi"}, false);
  EXPECT_EQ(order(), "a*!a");
  EXPECT_NE(key(1), key(2));
}

TEST_F(ControlerPlayListTest, ABatchToPlayPlaysTheFirstThatExists) {
  controler.BatchAddMovie({"", "C:\\v\\gone.avi", "C:\\v\\b.avi", "C:\\v\\c.avi"}, true);
  EXPECT_EQ(order(), "b*!c");
  EXPECT_EQ(screen.lngState(), playState::kStarting);
}

TEST_F(ControlerPlayListTest, ABatchNotToPlayLeavesWhatPlaysAndItsMark) {
  addThree();
  play(2);
  controler.BatchAddMovie({"", "C:\\v\\a.avi"}, false);
  EXPECT_EQ(order(), "ab*ca!");
  EXPECT_EQ(screen.lngState(), playState::kPlaying);
  EXPECT_EQ(screen.strFilePath(), "C:\\v\\b.avi");
}

TEST_F(ControlerPlayListTest, ABatchNotToPlayInWhichNoFileExistsLeavesWhatPlays) {
  addThree();
  play(1);
  controler.BatchAddMovie({"", "C:\\v\\gone.avi"}, false);
  EXPECT_EQ(screen.lngState(), playState::kPlaying);
  EXPECT_EQ(trace.take(), "");
}

TEST_F(ControlerPlayListTest, NoPathsAtAllToPlayStopWhatPlays) {
  addThree();
  play(1);
  controler.BatchAddMovie({}, true);
  EXPECT_EQ(trace.take(), "wmp stop | wmp position 0 | real stop | state 3");
}

TEST_F(ControlerPlayListTest, ABatchWhoseFirstIsGoneWhenItIsToPlayShowsTheStoppedState) {
  panel.whileAddingRow = [this] { files.existing.clear(); };
  controler.BatchAddMovie({"", "C:\\v\\a.avi"}, true);
  EXPECT_TRUE(trace.take().ends_with("real source C:\\v\\a.avi | state 3"));
}

// Deleting

TEST_F(ControlerPlayListTest, DeletingWhatPlaysStopsItAndStartsNothing) {
  addThree();
  play(1);
  controler.deleteAItemFromPL(key(1), neighbour);
  EXPECT_EQ(screen.lngState(), playState::kStopped);
  EXPECT_EQ(screen.strFilePath(), "C:\\v\\b.avi");
  trace.take();
  time.advance(1000);
  EXPECT_EQ(trace.take().find("play"), std::string::npos);
}

TEST_F(ControlerPlayListTest, DeletingWhatIsAboutToPlayStartsNothing) {
  addThree();
  controler.PlayAMovieByFlag(key(1));
  controler.deleteAItemFromPL(key(1), neighbour);
  trace.take();
  time.advance(1000);
  EXPECT_EQ(screen.lngState(), playState::kStopped);
  EXPECT_EQ(trace.take().find("play"), std::string::npos);
}

TEST_F(ControlerPlayListTest, DeletingTheOnlyItemWhileItPlaysLeavesNothingPlaying) {
  controler.AddAMovieToPL("C:\\v\\a.avi");
  play(1);
  controler.deleteAItemFromPL(key(1), neighbour);
  EXPECT_EQ(screen.lngState(), playState::kStopped);
  EXPECT_EQ(trace.take(), "wmp stop | wmp position 0 | wmp url  | real source ");
}

TEST_F(ControlerPlayListTest, DeletingAnUnknownKeyHandsOutNothingAndChangesNothing) {
  addThree();
  trace.take();
  neighbour = playList.objGetAItem(1);
  EXPECT_FALSE(controler.deleteAItemFromPL("unknown", neighbour));
  EXPECT_FALSE(neighbour);
  EXPECT_EQ(order(), "a*!bc");
  EXPECT_EQ(trace.take(), "");
}

TEST_F(ControlerPlayListTest, DeletingAnItemThatIsNotTheFirstWithAPlayMarkLeavesPlaybackAlone) {
  addThree();
  auto marked = std::make_shared<Movie>(keys);
  marked->strFileName = "m.avi";
  marked->boolIsPlayItem = true;  // as a stored list may have it
  playList.addAItem(marked);
  controler.play();
  time.advance(1);
  real().notify(RealPlayState::playing);
  trace.take();
  EXPECT_TRUE(controler.deleteAItemFromPL(marked->strKey, neighbour));
  EXPECT_EQ(order(), "a*bc!");
  EXPECT_EQ(screen.lngState(), playState::kPlaying);
  EXPECT_EQ(trace.take(), "");
}

TEST_F(ControlerPlayListTest, DeletingAllOneByOneEndsWithNothingLoaded) {
  addThree();
  play(2);
  controler.deleteAItemFromPL(key(2), neighbour);
  EXPECT_EQ(neighbour->strFileName, "c.avi");
  controler.deleteAItemFromPL(key(2), neighbour);
  EXPECT_EQ(neighbour->strFileName, "a.avi");
  controler.deleteAItemFromPL(key(1), neighbour);
  EXPECT_FALSE(neighbour);
  EXPECT_EQ(screen.strFilePath(), "");
  EXPECT_FALSE(controler.objGetPlayItem());
}

class ClearingTest : public ControlerPlayListTest {
 protected:
  void expectNothingPlaysAfterClearing() {
    controler.deleteAllItemFromPL();
    EXPECT_EQ(screen.lngState(), playState::kStopped);
    EXPECT_EQ(screen.strFilePath(), "");
    EXPECT_TRUE(trace.take().ends_with("wmp url  | real source "));
    time.advance(5000);
    EXPECT_EQ(screen.lngState(), playState::kStopped);
    EXPECT_EQ(trace.take().find("play"), std::string::npos);
    EXPECT_FALSE(controler.objGetPlayItem());
  }
};

TEST_F(ClearingTest, StopsWhatPlays) {
  addThree();
  play(2);
  expectNothingPlaysAfterClearing();
}

TEST_F(ClearingTest, StopsWhatPausesSoThatPlayFindsNothing) {
  addThree();
  play(2);
  controler.pause();
  expectNothingPlaysAfterClearing();
  EXPECT_FALSE(controler.play());
}

TEST_F(ClearingTest, KeepsWhatIsAboutToPlayFromStarting) {
  addThree();
  controler.PlayAMovieByFlag(key(1));
  expectNothingPlaysAfterClearing();
}

TEST_F(ClearingTest, IsHarmlessOnAnEmptyList) {
  expectNothingPlaysAfterClearing();
}

// Moving, selecting, asking

TEST_F(ControlerPlayListTest, MovingOverEitherEndAnUnknownKeyOrInNoDirectionFails) {
  addThree();
  neighbour = playList.objGetAItem(2);
  EXPECT_FALSE(controler.moveAItemUpDown(1, key(1), neighbour));
  EXPECT_FALSE(neighbour);
  EXPECT_FALSE(controler.moveAItemUpDown(2, key(3), neighbour));
  EXPECT_FALSE(controler.moveAItemUpDown(1, "unknown", neighbour));
  EXPECT_FALSE(controler.moveAItemUpDown(3, key(2), neighbour));
  EXPECT_EQ(order(), "a*!bc");
}

TEST_F(ControlerPlayListTest, MovingWhatPlaysLeavesPlaybackAlone) {
  addThree();
  play(2);
  EXPECT_TRUE(controler.moveAItemUpDown(1, key(2), neighbour));
  EXPECT_EQ(neighbour->strFileName, "a.avi");
  EXPECT_EQ(order(), "b*a!c");
  EXPECT_EQ(trace.take(), "");
}

TEST_F(ControlerPlayListTest, SelectingLeavesPlaybackAndThePlayMarkAlone) {
  addThree();
  play(1);
  controler.selectAItem(key(3));
  EXPECT_EQ(order(), "a*bc!");
  controler.selectAItem("unknown");
  EXPECT_EQ(order(), "a*bc");
  EXPECT_EQ(trace.take(), "");
}

TEST_F(ControlerPlayListTest, KeysAreFoundInAnyCaseAndAnUnknownOneHasIndexZero) {
  addThree();
  std::string lower = key(2);
  lower[0] = 'f';
  EXPECT_EQ(controler.lngGetIndexByItemFlag(lower), 2);
  EXPECT_EQ(controler.lngGetIndexByItemFlag("unknown"), 0);
}

TEST_F(ControlerPlayListTest, AnEmptyListHasNoPlayItemAndNoItems) {
  EXPECT_FALSE(controler.objGetPlayItem());
  EXPECT_EQ(controler.lngGetPlayListItemCount(), 0);
}

// Playing and stepping

TEST_F(ControlerPlayListTest, PlayingByKeyStopsWhatPlaysAndStartsTheOther) {
  addThree();
  play(1);
  EXPECT_TRUE(controler.PlayAMovieByFlag(key(2)));
  time.advance(1);
  EXPECT_EQ(trace.take(),
            "wmp stop | wmp position 0 | wmp url C:\\v\\b.avi | real source C:\\v\\b.avi | "
            "wmp url C:\\v\\b.avi | real play");
}

TEST_F(ControlerPlayListTest, PlayingWhatPlaysAlreadyStartsItAnew) {
  addThree();
  play(1);
  EXPECT_TRUE(controler.PlayAMovieByFlag(key(1)));
  EXPECT_EQ(screen.lngState(), playState::kStarting);
}

TEST_F(ControlerPlayListTest, PlayingAFileThatIsGoneMovesTheMarkAndFailsWithAnError) {
  addThree();
  files.existing.erase("C:\\v\\b.avi");
  EXPECT_FALSE(controler.PlayAMovieByFlag(key(2)));
  EXPECT_EQ(order(), "a!b*c");
  trace.take();
  time.advance(1);
  EXPECT_TRUE(trace.take().starts_with("error "));
}

TEST_F(ControlerPlayListTest, WithRecycleSteppingGoesRoundInBothDirections) {
  addThree();
  step(stepDirection::kPrevious, true);
  EXPECT_EQ(order(), "abc*!");
  EXPECT_EQ(previous->strFileName, "a.avi");
  EXPECT_EQ(screen.strFilePath(), "C:\\v\\c.avi");
  step(stepDirection::kNext, true);
  EXPECT_EQ(order(), "a*!bc");
  EXPECT_EQ(previous->strFileName, "c.avi");
}

TEST_F(ControlerPlayListTest, AtTheEndWithoutRecycleTheLastItemIsHandedOutAsThePreviousOne) {
  addThree();
  playList.setPlayItemByFlag(key(3));
  step(stepDirection::kNext, false);
  EXPECT_FALSE(now);
  EXPECT_EQ(previous->strFileName, "c.avi");
  EXPECT_EQ(order(), "a!bc*");
}

TEST_F(ControlerPlayListTest, AListOfOneStepsWithRecycleToTheSameItem) {
  controler.AddAMovieToPL("C:\\v\\a.avi");
  step(stepDirection::kNext, true);
  EXPECT_EQ(now, playList.objGetAItem(1));
  EXPECT_EQ(previous, now);
  EXPECT_EQ(order(), "a*!");
}

TEST_F(ControlerPlayListTest, SteppingInAnEmptyListHandsOutNothingAndLoadsNothing) {
  step(stepDirection::kNext, true);
  EXPECT_FALSE(now);
  EXPECT_FALSE(previous);
  EXPECT_EQ(trace.take(), "");
}

TEST_F(ControlerPlayListTest, WithoutAPlayItemSteppingBeginsAtTheEndItComesFrom) {
  addThree();
  playList.setPlayItemByFlag("");
  step(stepDirection::kPrevious, false);
  EXPECT_FALSE(previous);
  EXPECT_EQ(order(), "abc*!");
}

}  // namespace
}  // namespace tessivo
