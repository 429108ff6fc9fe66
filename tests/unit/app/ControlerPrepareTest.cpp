#include "unit/app/ControlerFixture.h"

namespace tessivo {
namespace {

/// What plays next is told to the engine that will have it first, shortly before the end.
class ControlerPrepareTest : public ControlerFixture {
 protected:
  void SetUp() override {
    ControlerFixture::SetUp();
    addThree();
    screen.lngPlayRuler(playRule::kPreferMedia);
  }
  void progress(std::int32_t position, std::int32_t length) {
    screen.JinDu.raise(0, position, "", length, "");
  }
  void deleteItem(std::int32_t index) {
    MoviePtr next;
    controler.deleteAItemFromPL(key(index), next);
  }
  void playItem(std::int32_t index) { controler.PlayAMovieByFlag(key(index)); }
};

TEST_F(ControlerPrepareTest, TheNextItemThreeSecondsBeforeTheEnd) {
  progress(96, 100);
  EXPECT_EQ(wmp().prepared, "");
  progress(97, 100);
  EXPECT_EQ(wmp().prepared, "C:\\v\\b.avi");
  EXPECT_EQ(real().prepared, "");
  EXPECT_EQ(order(), "a*!bc") << "nothing has been stepped";
}

TEST_F(ControlerPrepareTest, AStepBackFromTheEndForgetsIt) {
  progress(98, 100);
  progress(20, 100);
  EXPECT_EQ(wmp().prepared, "");
}

TEST_F(ControlerPrepareTest, DeletingTheItemThatPlaysForgetsIt) {
  progress(98, 100);
  deleteItem(1);
  EXPECT_EQ(wmp().prepared, "") << "nothing plays, and no file is held open";
}

TEST_F(ControlerPrepareTest, TheEndOfTheListForgetsIt) {
  playItem(3);
  controler.config().lngRecyclePlayType(2);
  progress(98, 100);
  ASSERT_EQ(wmp().prepared, "C:\\v\\a.avi");
  MoviePtr previous;
  MoviePtr now;
  // The user has chosen another loop mode since.
  controler.playNextPreviousPlayItem(stepDirection::kNext, false, previous, now);
  EXPECT_EQ(wmp().prepared, "");
}

TEST_F(ControlerPrepareTest, NothingWhenTheLengthIsNotKnown) {
  progress(5, 0);
  EXPECT_EQ(wmp().prepared, "");
}

TEST_F(ControlerPrepareTest, WhatFollowsIsDecidedByTheLoopMode) {
  playItem(3);
  controler.config().lngRecyclePlayType(3);
  progress(99, 100);
  EXPECT_EQ(wmp().prepared, "") << "once through the list";
  controler.config().lngRecyclePlayType(2);
  progress(99, 100);
  EXPECT_EQ(wmp().prepared, "C:\\v\\a.avi") << "the list again";
  controler.config().lngRecyclePlayType(1);
  progress(99, 100);
  EXPECT_EQ(wmp().prepared, "C:\\v\\c.avi") << "the same item again";
}

TEST_F(ControlerPrepareTest, TheListIsAskedEachTime) {
  progress(97, 100);
  deleteItem(2);
  progress(98, 100);
  EXPECT_EQ(wmp().prepared, "C:\\v\\c.avi");
  deleteItem(2);
  progress(99, 100);
  EXPECT_EQ(wmp().prepared, "");
}

}  // namespace
}  // namespace tessivo
