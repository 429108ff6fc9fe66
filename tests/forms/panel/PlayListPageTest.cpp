#include "forms/panel/PanelFixture.h"
#include "ui/TabOrder.h"

namespace tessivo {
namespace {

class PlayListPageTest : public PanelFixture {};

TEST_F(PlayListPageTest, HasTheStatedColumns) {
  const auto& columns = main.lvPlayList.columns();
  ASSERT_EQ(columns.size(), 3U);
  EXPECT_EQ(columns[0].header, "");
  EXPECT_EQ(columns[0].width, 375);
  EXPECT_EQ(columns[1].header, "名称");
  EXPECT_EQ(columns[1].width, 3500);
  EXPECT_EQ(columns[2].header, "路径");
  EXPECT_EQ(columns[2].width, 10000);
  EXPECT_TRUE(main.lvPlayList.hasCheckBoxes());
}

TEST_F(PlayListPageTest, BeginsWithThePlaylistTheCountsAndNoNotes) {
  EXPECT_EQ(world->selectedTab(main.tsLists), 1);
  EXPECT_TRUE(world->isVisible(main.picPlayListBackGround));
  EXPECT_FALSE(world->isVisible(main.picPlayErrLLBackGround));
  EXPECT_EQ(world->text(main.labFileCount), "0");
  EXPECT_EQ(world->text(main.labPlayErrLogCount), "0");
  EXPECT_FALSE(world->isVisible(main.labDeleteNote));
  EXPECT_FALSE(world->isVisible(main.picPlayErrNote));
  EXPECT_EQ(main.tsLists.tabs(), (std::vector<std::string>{"播放列表", "错误日志"}));
}

TEST_F(PlayListPageTest, ShowsWhatWasAdded) {
  addThree();
  EXPECT_EQ(rows(), "a1b! b0 c0 ");
  EXPECT_EQ(world->text(main.labFileCount), "3");
  EXPECT_EQ(world->cell(main.lvPlayList, 1, 0), "");
  EXPECT_EQ(world->cell(main.lvPlayList, 1, 1), "b.avi");
  EXPECT_EQ(world->cell(main.lvPlayList, 1, 2), "C:\\v\\b.avi");
  EXPECT_EQ(main.lvPlayList.row(1).key, key(2));
}

TEST_F(PlayListPageTest, AppendingARowSelectsItAndShowsTheCount) {
  addThree();
  const auto movie = controler.AddAMovieToPL("C:\\v\\b.avi");
  main.AddAMovieToFaceList(*movie);
  EXPECT_EQ(rows(), "a1b b0 c0 b0! ");
  EXPECT_EQ(world->text(main.labFileCount), "4");
}

TEST_F(PlayListPageTest, ANewRowClearsTheTickForAllAndLeavesTheOtherTicks) {
  addThree();
  world->click(main.chkToDeleteAll);
  main.AddAMovieToFaceList(*controler.AddAMovieToPL("C:\\v\\b.avi"));
  EXPECT_FALSE(world->isChecked(main.chkToDeleteAll));
  EXPECT_EQ(main.chkToDeleteAll.tag(), "0");
  EXPECT_EQ(rows(), "a1b+ b0+ c0+ b0! ");
}

TEST_F(PlayListPageTest, TickingForAllTicksEveryRowAndClearsThem) {
  addThree();
  world->click(main.chkToDeleteAll);
  EXPECT_EQ(rows(), "a1b+! b0+ c0+ ");
  EXPECT_TRUE(world->isTicked(main.lvPlayList, 2));
  world->click(main.chkToDeleteAll);
  EXPECT_EQ(rows(), "a1b! b0 c0 ");
}

TEST_F(PlayListPageTest, ClearingOneTickClearsTheOneForAllOnly) {
  addThree();
  world->click(main.chkToDeleteAll);
  world->tickRow(main.lvPlayList, 1);
  EXPECT_FALSE(world->isChecked(main.chkToDeleteAll));
  EXPECT_EQ(rows(), "a1b+ b0! c0+ ");
  // The suppression is used up: the next click counts.
  world->click(main.chkToDeleteAll);
  EXPECT_EQ(rows(), "a1b+ b0+! c0+ ");
}

TEST_F(PlayListPageTest, TickingOneRowLeavesTheOneForAllAlone) {
  addThree();
  world->tickRow(main.lvPlayList, 1);
  EXPECT_FALSE(world->isChecked(main.chkToDeleteAll));
  EXPECT_EQ(rows(), "a1b b0+! c0 ");
}

TEST_F(PlayListPageTest, AClickOnTheBoxForAllThatIsSuppressedDoesNothingOnce) {
  addThree();
  main.chkToDeleteAll.setTag("1");
  world->click(main.chkToDeleteAll);
  EXPECT_EQ(main.chkToDeleteAll.tag(), "0");
  EXPECT_EQ(rows(), "a1b! b0 c0 ");
}

TEST_F(PlayListPageTest, MarkingWithStateOneSelectsTheRowToo) {
  addThree();
  main.setPLItemStateByKey(key(3), 1);
  EXPECT_EQ(rows(), "a0 b0 c1b! ");
}

TEST_F(PlayListPageTest, MarkingWithAnotherStateLeavesTheSelection) {
  addThree();
  main.setPLItemStateByKey(key(3), 2);
  EXPECT_EQ(rows(), "a0! b0 c1b ");
}

TEST_F(PlayListPageTest, MarkingAMissingKeyTakesTheOldMarkOnly) {
  addThree();
  main.setPLItemStateByKey("none", 1);
  EXPECT_EQ(rows(), "a0! b0 c0 ");
}

TEST_F(PlayListPageTest, AClickOnARowMakesItTheActItem) {
  addThree();
  world->clickRow(main.lvPlayList, 1);
  EXPECT_EQ(order(), "a*b!c");
}

TEST_F(PlayListPageTest, ADoubleClickPlaysTheRowUnderThePointer) {
  startFirst();
  world->doubleClickRow(main.lvPlayList, 1);
  EXPECT_EQ(rows(), "a0 b1b! c0 ");
  EXPECT_EQ(stateLine(), "正在播放: b.avi 暂停");
  EXPECT_EQ(order(), "ab*!c");
  real().notify(RealPlayState::stopped);
  plays("C:\\v\\b.avi");
}

TEST_F(PlayListPageTest, AnItemThatComesWhileAnotherIsHandedToTheEnginesKeepsTheMark) {
  const auto fileComes = [this] {
    real().whenSourced = nullptr;
    controler.BatchAddMovie({"", "C:\\v\\a.avi"}, true);
  };
  addThree();
  real().whenSourced = fileComes;
  world->doubleClickRow(main.lvPlayList, 1);
  EXPECT_EQ(rows(), "a0 b0 c0 a1b! ");
  EXPECT_EQ(order(), "abca*!");

  // And while the next one is handed over, at the end of an item.
  controler.config().lngRecyclePlayType(2);
  real().whenSourced = fileComes;
  main.playOverEventProcess();
  EXPECT_EQ(rows(), "a0 b0 c0 a0 a1b! ");
}

TEST_F(PlayListPageTest, ADoubleClickOnEmptySpaceDoesNothing) {
  startFirst();
  world->doubleClickRow(main.lvPlayList, -1);
  EXPECT_EQ(rows(), "a1b! b0 c0 ");
  EXPECT_EQ(trace.take(), "");
}

TEST_F(PlayListPageTest, TheRightButtonOnARowOpensTheEntryMenu) {
  addThree();
  world->answerMenu(main, -1);
  world->rightClickRow(main.lvPlayList, 1);
  EXPECT_EQ(
      world->menuShown,
      "播放(&P)|删除勾选的文件(&D)|-|添加文件(&A)...|-|清空播放列表(&C)|添加并播放文件(&O)...");
}

TEST_F(PlayListPageTest, BesideTheRowsTheRightButtonOpensNoMenu) {
  addThree();
  world->answerMenu(main, -1);
  world->rightClickRow(main.lvPlayList, -1);
  EXPECT_EQ(world->menuShown, "");
}

TEST_F(PlayListPageTest, TheMenusPlayPlaysTheRow) {
  startFirst();
  world->answerMenu(main, 0);
  world->rightClickRow(main.lvPlayList, 2);
  EXPECT_EQ(rows(), "a0 b0 c1b! ");
}

TEST_F(PlayListPageTest, TheMenusDeleteDeletesTheTickedRows) {
  addThree();
  world->tickRow(main.lvPlayList, 1);
  world->answerMenu(main, 1);
  world->rightClickRow(main.lvPlayList, 2);
  EXPECT_EQ(rows(), "a1b c0! ");
}

TEST_F(PlayListPageTest, TheMenusAddAddsAndDoesNotPlay) {
  addThree();
  fileDialogs.answers.push_back({FileDialogOutcome::chosen, "C:\\v\\b.avi"});
  world->answerMenu(main, 2);
  world->rightClickRow(main.lvPlayList, 0);
  EXPECT_EQ(rows(), "a1b b0 c0 b0! ");
  EXPECT_EQ(screen.lngState(), playState::kStopped);
}

TEST_F(PlayListPageTest, TheMenusClearEmptiesTheListAndStops) {
  startFirst();
  world->click(main.chkToDeleteAll);
  world->answerMenu(main, 3);
  world->rightClickRow(main.lvPlayList, 0);
  EXPECT_EQ(rows(), "");
  EXPECT_EQ(playList.lngListCount(), 0);
  EXPECT_EQ(world->text(main.labFileCount), "0");
  EXPECT_FALSE(world->isChecked(main.chkToDeleteAll));
  EXPECT_EQ(stateLine(), "停止:  播放");
  EXPECT_EQ(screen.lngState(), playState::kStopped);
  EXPECT_EQ(screen.strFilePath(), "");
  EXPECT_TRUE(world->hasFocus(main.lvPlayList));
}

TEST_F(PlayListPageTest, TheMenusPlayFilesAddsAndPlays) {
  addThree();
  fileDialogs.answers.push_back({FileDialogOutcome::chosen, "C:\\v\\b.avi"});
  world->answerMenu(main, 4);
  world->rightClickRow(main.lvPlayList, 0);
  EXPECT_EQ(rows(), "a0 b0 c0 b1b! ");
  plays("C:\\v\\b.avi");
}

TEST_F(PlayListPageTest, TheTabsShowTheirPagesAndGiveThemTheKeyboard) {
  world->chooseTab(main.tsLists, 2);
  EXPECT_TRUE(world->isVisible(main.picPlayErrLLBackGround));
  EXPECT_FALSE(world->isVisible(main.picPlayListBackGround));
  EXPECT_TRUE(world->hasFocus(main.lvPlayErrLogList));
  world->chooseTab(main.tsLists, 1);
  EXPECT_FALSE(world->isVisible(main.picPlayErrLLBackGround));
  EXPECT_TRUE(world->isVisible(main.picPlayListBackGround));
  EXPECT_TRUE(world->hasFocus(main.lvPlayList));
}

// Moving.

TEST_F(PlayListPageTest, AClickMovesTheSelectedRowUpOrDown) {
  addThree();
  world->clickRow(main.lvPlayList, 1);
  world->click(main.cmdPLUp);
  EXPECT_EQ(rows(), "b0! a1b c0 ");
  EXPECT_EQ(order(), "b!a*c");
  world->click(main.cmdPLDown);
  world->click(main.cmdPLDown);
  EXPECT_EQ(rows(), "a1b c0 b0! ");
  EXPECT_EQ(order(), "a*cb!");
  EXPECT_TRUE(world->hasFocus(main.lvPlayList));
}

TEST_F(PlayListPageTest, AtTheEndsNothingMoves) {
  addThree();
  world->clickRow(main.lvPlayList, 0);
  world->click(main.cmdPLUp);
  world->clickRow(main.lvPlayList, 2);
  world->click(main.cmdPLDown);
  EXPECT_EQ(rows(), "a1b b0 c0! ");
}

TEST_F(PlayListPageTest, WithoutASelectionNothingMoves) {
  world->click(main.cmdPLUp);
  world->click(main.cmdPLDown);
  EXPECT_EQ(rows(), "");
}

TEST_F(PlayListPageTest, HoldingForLessThanHalfASecondMovesOnce) {
  addMany(9);
  world->clickRow(main.lvPlayList, 8);
  world->hold(main.cmdPLUp);
  time.advance(499);
  world->release(main.cmdPLUp);
  time.advance(2000);
  EXPECT_EQ(main.lvPlayList.selected(), 7);
}

TEST_F(PlayListPageTest, HoldingLongerRepeatsTheMoveEvery150Milliseconds) {
  addMany(20);
  world->clickRow(main.lvPlayList, 19);
  world->hold(main.cmdPLUp);
  EXPECT_EQ(main.timQuickMoveItem.tag(), "1");
  time.advance(500);
  EXPECT_EQ(main.lvPlayList.selected(), 19);
  time.advance(149);
  EXPECT_EQ(main.lvPlayList.selected(), 19);
  time.advance(1);
  EXPECT_EQ(main.lvPlayList.selected(), 18);
  time.advance(1350);
  EXPECT_EQ(main.lvPlayList.selected(), 9);
  world->release(main.cmdPLUp);
  EXPECT_EQ(main.lvPlayList.selected(), 8);
  time.advance(2000);
  EXPECT_EQ(main.lvPlayList.selected(), 8);
  EXPECT_TRUE(world->hasFocus(main.lvPlayList));
}

TEST_F(PlayListPageTest, TheOtherButtonRepeatsDownwards) {
  addMany(20);
  world->clickRow(main.lvPlayList, 0);
  world->hold(main.cmdPLDown);
  EXPECT_EQ(main.timQuickMoveItem.tag(), "0");
  time.advance(500 + 300);
  EXPECT_EQ(main.lvPlayList.selected(), 2);
  world->release(main.cmdPLDown);
  EXPECT_EQ(main.lvPlayList.selected(), 3);
}

TEST_F(PlayListPageTest, TheTimersAreAsStated) {
  EXPECT_EQ(main.timDelayHideDeleteNote.interval(), 5000);
  EXPECT_EQ(main.timDelayQuickMoveItem.interval(), 500);
  EXPECT_EQ(main.timQuickMoveItem.interval(), 150);
  EXPECT_EQ(main.timDelaySetPLTabFace.interval(), 1000);
  EXPECT_EQ(main.timDelaySetFrm.interval(), 1);
  EXPECT_EQ(main.timSetFangJingYinButton.interval(), 100);
  EXPECT_EQ(main.timRecordMainFaceWindowState.interval(), 1000);
  EXPECT_EQ(main.timDelayCheckMeIsActive.interval(), 450);
  EXPECT_FALSE(main.timDelayHideDeleteNote.enabled());
  EXPECT_FALSE(main.timDelayQuickMoveItem.enabled());
  EXPECT_FALSE(main.timQuickMoveItem.enabled());
  EXPECT_TRUE(main.timSetFangJingYinButton.enabled());
  EXPECT_TRUE(main.timRecordMainFaceWindowState.enabled());
  EXPECT_TRUE(main.timDelaySetPLTabFace.enabled());
  time.advance(1000);
  EXPECT_FALSE(main.timDelaySetPLTabFace.enabled());
}

// The keyboard.

TEST_F(PlayListPageTest, EnterPlaysTheSelectedRow) {
  startFirst();
  world->clickRow(main.lvPlayList, 2);
  world->key(main, main.lvPlayList, 13);
  EXPECT_EQ(rows(), "a0 b0 c1b! ");
  EXPECT_EQ(stateLine(), "正在播放: c.avi 暂停");
}

TEST_F(PlayListPageTest, EnterInAnEmptyListDoesNothing) {
  world->key(main, main.lvPlayList, 13);
  EXPECT_EQ(trace.take(), "");
}

TEST_F(PlayListPageTest, DeleteInTheListDeletesTheTickedRows) {
  addThree();
  world->tickRow(main.lvPlayList, 0);
  world->key(main, main.lvPlayList, 46);
  EXPECT_EQ(rows(), "b1b! c0 ");
}

TEST_F(PlayListPageTest, CtrlAInTheListTicksAll) {
  addThree();
  world->key(main, main.lvPlayList, 'A', true);
  EXPECT_EQ(rows(), "a1b+! b0+ c0+ ");
  EXPECT_TRUE(world->isChecked(main.chkToDeleteAll));
  world->key(main, main.lvPlayList, 'A', true);
  EXPECT_EQ(rows(), "a1b+! b0+ c0+ ");
}

TEST_F(PlayListPageTest, ElsewhereTheseKeysAreTheControls) {
  startFirst();
  world->key(main, main.txtFileName, 46);
  world->key(main, main.txtFileName, 13);
  world->key(main, main.txtFileName, 'A', true);
  EXPECT_FALSE(world->isVisible(main.labDeleteNote));
  EXPECT_EQ(rows(), "a1b! b0 c0 ");
  EXPECT_EQ(trace.take(), "");
}

TEST_F(PlayListPageTest, TheMenuKeyOpensTheMenuOfTheSelectedRow) {
  startFirst();
  world->clickRow(main.lvPlayList, 1);
  world->answerMenu(main, 0);
  world->key(main, main.lvPlayList, 93);
  EXPECT_EQ(rows(), "a0 b1b! c0 ");
}

TEST_F(PlayListPageTest, F1OpensTheHelpPageFromEverywhere) {
  world->key(main, main.lvPlayList, 112);
  world->key(main, main.sldVolume, 112);
  EXPECT_EQ(ui::joined(shell.opened), "C:\\Help.htm| | C:\\Help.htm|");
  EXPECT_EQ(notice(), "");
}

TEST_F(PlayListPageTest, WhereNothingOpensPagesANoticeSaysWhereTheHelpPageLies) {
  shell.opens = false;
  world->key(main, main.lvPlayList, 112);
  EXPECT_EQ(notice(), "提示|无法打开使用说明，请用浏览器打开这个文件：\nC:\\Help.htm|确定|");
}

TEST_F(PlayListPageTest, AltLettersPressTheButtonsOfThePageThatIsShown) {
  addThree();
  world->mnemonic(main, 'd');
  EXPECT_TRUE(world->isVisible(main.labDeleteNote));
  world->mnemonic(main, 'q');
  EXPECT_TRUE(world->isChecked(main.chkToDeleteAll));
  world->chooseTab(main.tsLists, 2);
  world->mnemonic(main, 'Q');
  EXPECT_TRUE(world->isChecked(main.chkToDeleteAll));
}

TEST_F(PlayListPageTest, TabLeadsToEveryControlThatDoesSomething) {
  const ui::Control* at = nullptr;
  std::string path;
  for (int i = 0; i < 17; ++i) {
    at = ui::nextInTabOrder(main, at, false);
    path += at->name() + " ";
  }
  EXPECT_EQ(path,
            "txtFileName sldJinDu cmdPlay cmdStop picJingFangYin sldVolume cmdSetScreen "
            "comboPlayRuler cmdRecyclePlayPL cmdMenu cmdHideShowPL tsLists lvPlayList "
            "chkToDeleteAll cmdPLAdd cmdPLDelete cmdPLUp ");
}

TEST_F(PlayListPageTest, ControlsWithoutATextHaveANameForScreenReaders) {
  for (const ui::Control* control : std::initializer_list<const ui::Control*>{
           &main.sldJinDu, &main.sldVolume, &main.comboPlayRuler, &main.picJingFangYin,
           &main.tsLists, &main.lvPlayList, &main.lvPlayErrLogList}) {
    EXPECT_NE(control->accessibleName(), "") << control->name();
  }
}

TEST_F(PlayListPageTest, OnlyTheLeftButtonRepeatsTheMove) {
  addThree();
  main.cmdPLDown.mouseDown({MouseButton::right, 15, 15});
  EXPECT_FALSE(main.timDelayQuickMoveItem.enabled());
}

TEST_F(PlayListPageTest, AKeyThatIsHeldPlaysAndDeletesOnce) {
  startFirst();
  world->tickRow(main.lvPlayList, 1);
  main.pressKey({46, false, true, &main.lvPlayList, false});
  EXPECT_EQ(rows(), "a1b b0+! c0 ");
  main.pressKey({13, false, true, &main.lvPlayList, false});
  EXPECT_EQ(rows(), "a1b b0+! c0 ");
  EXPECT_EQ(screen.lngState(), playState::kPlaying);
}

}  // namespace
}  // namespace tessivo
