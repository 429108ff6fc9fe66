#include "forms/panel/PanelFixture.h"
#include "screen/PlayMessages.h"

namespace tessivo {
namespace {

class ErrorLogTest : public PanelFixture {
 protected:
  void SetUp() override {
    PanelFixture::SetUp();
    time.setDate({2026, 11, 20, (16 * 3600 + 4 * 60 + 9) * 1000});
  }
  void set(bool playNext, bool popUp, std::int32_t loopMode) {
    controler.config().boolPlayNextOnErr(playNext);
    controler.config().boolPopuMainFaceForErr(popUp);
    controler.config().lngRecyclePlayType(loopMode);
  }
  /// Plays the item with that number, which fails; the panel was hidden before.
  void failsAt(int number) {
    addThree();
    controler.PlayAMovieByFlag(key(number));
    main.setPLItemStateByKey(key(number), 1);
    main.setFaceToAPlayState(panelState::kPlaying, false);
    main.hide();
    fails();
  }
  bool isUp() { return main.visible(); }
};

TEST_F(ErrorLogTest, HasTheStatedColumnsAndTips) {
  const auto& columns = main.lvPlayErrLogList.columns();
  ASSERT_EQ(columns.size(), 4U);
  EXPECT_EQ(columns[0].header, "");
  EXPECT_EQ(columns[0].width, 375);
  EXPECT_EQ(columns[1].header, "发生时间");
  EXPECT_EQ(columns[1].width, 1900);
  EXPECT_EQ(columns[2].header, "原因");
  EXPECT_EQ(columns[2].width, 3500);
  EXPECT_EQ(columns[3].header, "文件路径");
  EXPECT_EQ(columns[3].width, 10000);
  EXPECT_EQ(main.lvPlayErrLogList.firstColumnWithTips(), 2);
  EXPECT_FALSE(main.lvPlayErrLogList.hasCheckBoxes());
}

TEST_F(ErrorLogTest, AFailedFileLeavesThePlaylistAndIsKeptInTheLog) {
  failsAt(1);
  EXPECT_EQ(rows(), "b1b! c0 ");
  EXPECT_EQ(errors(),
            "2026-11-20 16:04:09|"
            "Real Play无法播放该文件,请通过播放器选择列表使用Media Player重新尝试播放.|"
            "C:\\v\\a.avi\n");
  EXPECT_EQ(world->text(main.labPlayErrLogCount), "1");
  EXPECT_EQ(world->selectedRow(main.lvPlayErrLogList), 0);
  EXPECT_TRUE(world->isVisible(main.picPlayErrNote));
  EXPECT_EQ(world->text(main.labFileCount), "2");
}

TEST_F(ErrorLogTest, WithoutAPlayItemPlaybackStops) {
  main.setFaceToAPlayState(panelState::kPlaying, false);
  main.playErrEventProcess("x");
  EXPECT_EQ(stateLine(), "停止:  播放");
  EXPECT_EQ(errors(), "");
  EXPECT_FALSE(world->isVisible(main.picPlayErrNote));
}

// The failed item was the last one, list loop.

TEST_F(ErrorLogTest, LastInTheListLoopPlaysOnFromTheStart) {
  set(true, false, 2);
  failsAt(3);
  EXPECT_EQ(rows(), "a1b! b0 ");
  EXPECT_EQ(stateLine(), "正在播放: a.avi 暂停");
  EXPECT_EQ(screen.strFilePath(), "C:\\v\\a.avi");
  EXPECT_EQ(screen.lngState(), playState::kStarting);
  EXPECT_FALSE(isUp());
}

TEST_F(ErrorLogTest, LastInTheListLoopStopsWhenErrorsAreNotPassedOver) {
  set(false, false, 2);
  failsAt(3);
  EXPECT_EQ(rows(), "a0 b1b! ");
  EXPECT_EQ(stateLine(), "停止: b.avi 播放");
  EXPECT_EQ(screen.lngState(), playState::kStopped);
  EXPECT_EQ(errors().find("c.avi") != std::string::npos, true);
  EXPECT_FALSE(isUp());
}

TEST_F(ErrorLogTest, LastInTheListLoopBringsThePanelUpWhenSet) {
  set(true, true, 2);
  failsAt(3);
  EXPECT_TRUE(isUp());
  EXPECT_EQ(screen.lngState(), playState::kStarting);
}

TEST_F(ErrorLogTest, LastInTheListLoopStopsAndBringsThePanelUpWhenSet) {
  set(false, true, 2);
  failsAt(3);
  EXPECT_TRUE(isUp());
  EXPECT_EQ(screen.lngState(), playState::kStopped);
}

// The failed item was the last one, no list loop: always stopped, always the panel.

TEST_F(ErrorLogTest, LastWithoutTheLoopStopsAndBringsThePanelUpInAnyCase) {
  for (const std::int32_t loopMode : {1, 3}) {
    for (const bool playNext : {false, true}) {
      set(playNext, false, loopMode);
      failsAt(3);
      EXPECT_TRUE(isUp()) << loopMode << playNext;
      EXPECT_EQ(stateLine(), "停止: b.avi 播放") << loopMode << playNext;
      EXPECT_EQ(screen.lngState(), playState::kStopped) << loopMode << playNext;
      controler.deleteAllItemFromPL();
      main.lvPlayList.clear();
    }
  }
}

// The failed item was not the last one.

TEST_F(ErrorLogTest, InTheMiddleTheNextItemIsStarted) {
  set(true, false, 3);
  failsAt(2);
  EXPECT_EQ(rows(), "a0 c1b! ");
  EXPECT_EQ(stateLine(), "正在播放: c.avi 暂停");
  EXPECT_EQ(screen.strFilePath(), "C:\\v\\c.avi");
  EXPECT_EQ(screen.lngState(), playState::kStarting);
  EXPECT_FALSE(isUp());
}

TEST_F(ErrorLogTest, InTheMiddleItStopsWhenErrorsAreNotPassedOver) {
  set(false, false, 2);
  failsAt(2);
  EXPECT_EQ(rows(), "a0 c1b! ");
  EXPECT_EQ(stateLine(), "停止: c.avi 播放");
  EXPECT_EQ(screen.lngState(), playState::kStopped);
  EXPECT_FALSE(isUp());
}

TEST_F(ErrorLogTest, InTheMiddleThePanelComesUpWhenSet) {
  set(true, true, 3);
  failsAt(2);
  EXPECT_TRUE(isUp());
  EXPECT_EQ(screen.lngState(), playState::kStarting);
}

TEST_F(ErrorLogTest, InTheMiddleItStopsAndThePanelComesUpWhenSet) {
  set(false, true, 3);
  failsAt(2);
  EXPECT_TRUE(isUp());
  EXPECT_EQ(screen.lngState(), playState::kStopped);
}

TEST_F(ErrorLogTest, AListOfUnplayableFilesComesToAnEndInTheLoopToo) {
  set(true, false, 2);
  startFirst();
  for (int i = 0; i < 3; ++i) fails();
  EXPECT_EQ(rows(), "");
  EXPECT_EQ(world->text(main.labPlayErrLogCount), "3");
  EXPECT_EQ(stateLine(), "停止:  播放");
  EXPECT_EQ(screen.lngState(), playState::kStopped);
  EXPECT_EQ(screen.strFilePath(), "");
  time.advance(5000);
  EXPECT_EQ(world->text(main.labPlayErrLogCount), "3");
}

TEST_F(ErrorLogTest, TheFailedItemGoesAlsoWhenTheUserIsAtAnotherRow) {
  startFirst();
  world->clickRow(main.lvPlayList, 2);
  fails();
  EXPECT_EQ(rows(), "b1b! c0 ");
}

TEST_F(ErrorLogTest, WhatComesWhileTheFailedItemIsTakenAwayPlaysOn) {
  set(true, false, 2);
  addThree();
  controler.PlayAMovieByFlag(key(2));
  main.setPLItemStateByKey(key(2), 1);
  main.setFaceToAPlayState(panelState::kPlaying, false);
  real().whenSourced = [this] {  // handed the next path, it lets a request through
    real().whenSourced = nullptr;
    controler.BatchAddMovie({"", "C:\\v\\a.avi"}, true);
  };
  fails();
  EXPECT_EQ(rows(), "a0 c0! a1b ");
  EXPECT_EQ(screen.lngState(), playState::kStarting);
  EXPECT_EQ(stateLine(), "正在播放: a.avi 暂停");
}

TEST_F(ErrorLogTest, AnErrorShowsAHiddenPlaylist) {
  startFirst();
  world->click(main.cmdHideShowPL);
  EXPECT_FALSE(world->isVisible(main.picPlayListBackGround));
  fails();
  EXPECT_TRUE(world->isVisible(main.picPlayListBackGround));
  EXPECT_TRUE(world->isVisible(main.picPlayErrNote));
}

TEST_F(ErrorLogTest, AClickOnEitherTabHidesTheMarker) {
  failsAt(1);
  world->chooseTab(main.tsLists, 1);
  EXPECT_FALSE(world->isVisible(main.picPlayErrNote));
}

TEST_F(ErrorLogTest, AClickOnTheMarkerShowsTheLog) {
  failsAt(1);
  world->mouse(main.labPlayErrNote, {MouseButton::left, 30, 30});
  EXPECT_EQ(world->selectedTab(main.tsLists), 2);
  EXPECT_TRUE(world->isVisible(main.picPlayErrLLBackGround));
  EXPECT_FALSE(world->isVisible(main.picPlayErrNote));
}

TEST_F(ErrorLogTest, ClearingEmptiesTheLog) {
  failsAt(1);
  world->chooseTab(main.tsLists, 2);
  main.picPlayErrNote.setVisible(true);
  world->click(main.cmdClearPlayErrLL);
  EXPECT_EQ(errors(), "");
  EXPECT_EQ(world->text(main.labPlayErrLogCount), "0");
  EXPECT_FALSE(world->isVisible(main.picPlayErrNote));
}

TEST_F(ErrorLogTest, TheFirstColumnKeepsItsWidth) {
  failsAt(1);
  world->chooseTab(main.tsLists, 2);
  world->setColumnWidth(main.lvPlayErrLogList, 0, 900);
  EXPECT_EQ(main.lvPlayErrLogList.columnWidth(0), 900);
  world->clickRow(main.lvPlayErrLogList, 0);
  EXPECT_EQ(main.lvPlayErrLogList.columnWidth(0), 375);
}

TEST_F(ErrorLogTest, EveryErrorIsARowOfItsOwnInOrder) {
  set(true, false, 3);
  startFirst();
  fails();
  fails();
  EXPECT_EQ(world->rowCount(main.lvPlayErrLogList), 2);
  EXPECT_EQ(world->cell(main.lvPlayErrLogList, 1, 3), "C:\\v\\b.avi");
  EXPECT_EQ(world->selectedRow(main.lvPlayErrLogList), 1);
}

TEST_F(ErrorLogTest, AFailedItemWithoutARowTakesNoOtherRowAlong) {
  startFirst();
  main.lvPlayList.remove(0);
  main.lvPlayList.select(0);
  fails();
  EXPECT_EQ(world->rowCount(main.lvPlayList), 2);
  EXPECT_EQ(world->text(main.labPlayErrLogCount), "1");
}

}  // namespace
}  // namespace tessivo
