#include <utility>

#include "forms/panel/PanelFixture.h"
#include "panel/AddFilesDialog.h"

namespace tessivo {
namespace {

using namespace std::string_literals;

class AddFilesTest : public PanelFixture {
 protected:
  void choose(std::string text) {
    fileDialogs.answers.push_back({FileDialogOutcome::chosen, std::move(text)});
    world->click(main.cmdPLAdd);
  }
};

TEST_F(AddFilesTest, TheDialogIsAskedForAsStated) {
  world->click(main.cmdPLAdd);
  EXPECT_EQ(fileDialogs.last.title, "选择要添加到播放列表的文件");
  EXPECT_EQ(fileDialogs.last.flags, 0x80204U);
  EXPECT_EQ(fileDialogs.last.maxLength, 32767);
  EXPECT_EQ(fileDialogs.last.filterIndex, 1);
  EXPECT_TRUE(fileDialogs.last.beginsInVideos);
  EXPECT_EQ(fileDialogs.last.owner, main.nativeHandle());
}

TEST_F(AddFilesTest, TheFilterIsAsStatedToTheLetter) {
  world->click(main.cmdPLAdd);
  const std::string expected =
      "所有媒体文件|*.aif;*.au;*.avi;*.mid;*.rmi;*.midi"
      ";*.mpg;*.mpeg;*.mpa;*.mp2;*.mp3;*.dat"
      ";*.mov; *.qt"
      ";*.ra;*.rm;*.rv;*.rmvb;*.rmj;*.rms;*.ram;*.rmm;*.rax;*.rvx;*.rp;*.rtx;*.rt;*.rmx"
      ";*.smi;*.smil"
      ";*.wav"
      ";*.jpg;*.gif;*.png"
      ";*.asf;*.wm;*.wma;*.wmv;*.wmd"
      ";*.avi;*.wmv;*.ppCast;*.xldap"
      ";*.wav;*.snd;*.au;*.aif;*.aifc;*.aiff;*.wma;*.mp3"
      ";*.avi;*.wma;*.wmv;*.wm;*.asf;*.asx;*.wax;*.wvx;*.wmx"
      ";*.asf;*.avi;*.rmvb;*.rm;*.ram;*.mpeg;*.wma;*.wmv;*.mpg;*.mov;*.qt;*.m1v;*.mp2;*.mpa;*.mpe;"
      "*.wm;*.wmd"
      ";*.mp3;*.mp2;*.wav;*.wma;*.midi;*.rm;*.rmvb;*.mp;*.mp1;*.mid;*.ra;*.rax;*.rmi;*.mpga;*.rmx;"
      "*.rmj;*.rms;*.au;*.aiff;*.acp;*.m4a;*.m4p;*.url;*.lnk"
      "|AIFF文件(*.aif)|*.aif"
      "|AU文件(*.au)|*.au"
      "|AVI文件(*.avi)|*.avi"
      "|MIDI文件(*.mid;*.rmi;*.midi)|*.mid;*.rmi;*.midi"
      "|MPEG文件(*.mpg;*.mpeg;*.mpa;*.mp2;*.mp3;*.dat)|*.mpg;*.mpeg;*.mpa;*.mp2;*.mp3;*.dat"
      "|QuickTime文件(*.mov; *.qt)|*.mov; *.qt"
      "|Real文件(*.ra;*.rm;*.rv;*.rmvb;*.rmj;*.rms;*.ram;*.rmm;*.rax;*.rvx;*.rp;*.rtx;*.rt;*.rmx)|"
      "*.ra;*.rm;*.rv;*.rmvb;*.rmj;*.rms;*.ram;*.rmm;*.rax;*.rvx;*.rp;*.rtx;*.rt;*.rmx"
      "|SMIL文件(*.smi;*.smil)|*.smi;*.smil"
      "|Wave文件(*.wav)|*.wav"
      "|图像(*.jpg;*.gif;*.png)|*.jpg;*.gif;*.png"
      "|Windows Media文件(asf)(*.asf;*.wm;*.wma;*.wmv;*.wmd)|*.asf;*.wm;*.wma;*.wmv;*.wmd"
      "|Windows 视频(*.avi;*.wmv;*.ppCast;*.xldap)|*.avi;*.wmv;*.ppCast;*.xldap"
      "|Windows 音频(*.wav;*.snd;*.au;*.aif;*.aifc;*.aiff;*.wma;*.mp3)|"
      "*.wav;*.snd;*.au;*.aif;*.aifc;*.aiff;*.wma;*.mp3"
      "|Windows 媒体(*.avi;*.wma;*.wmv;*.wm;*.asf;*.asx;*.wax;*.wvx;*.wmx)|"
      "*.avi;*.wma;*.wmv;*.wm;*.asf;*.asx;*.wax;*.wvx;*.wmx"
      "|电影(*.asf;*.avi;*.rmvb;*.rm;*.ram;*.mpeg;*.wma;*.wmv;*.mpg;*.mov;*.qt;*.m1v;*.mp2;*.mpa;"
      "*.mpe;*.wm;*.wmd)|"
      "*.asf;*.avi;*.rmvb;*.rm;*.ram;*.mpeg;*.wma;*.wmv;*.mpg;*.mov;*.qt;*.m1v;*.mp2;*.mpa;*.mpe;"
      "*.wm;*.wmd"
      "|音频(*.mp3;*.mp2;*.wav;*.wma;*.midi;*.rm;*.rmvb;*.mp;*.mp1;*.mid;*.ra;*.rax;*.rmi;*.mpga;"
      "*.rmx;*.rmj;*.rms;*.au;*.aiff;*.acp;*.m4a;*.m4p;*.url;*.lnk)|"
      "*.mp3;*.mp2;*.wav;*.wma;*.midi;*.rm;*.rmvb;*.mp;*.mp1;*.mid;*.ra;*.rax;*.rmi;*.mpga;*.rmx;"
      "*.rmj;*.rms;*.au;*.aiff;*.acp;*.m4a;*.m4p;*.url;*.lnk"
      "|所有文件(*.*)|*.*";
  EXPECT_EQ(fileDialogs.last.filter, expected);
}

TEST_F(AddFilesTest, OneFileIsAddedAndNotPlayed) {
  choose("C:\\v\\b.avi");
  EXPECT_EQ(rows(), "b1b! ");
  EXPECT_EQ(screen.lngState(), playState::kStopped);
  EXPECT_TRUE(world->hasFocus(main.lvPlayList));
  EXPECT_EQ(notice(), "");
}

TEST_F(AddFilesTest, SeveralFilesComeWithTheirFolder) {
  choose("C:\\v\0a.avi\0c.avi"s);
  EXPECT_EQ(rows(), "a1b! c0 ");
  EXPECT_EQ(main.lvPlayList.row(1).subItems[1], "C:\\v\\c.avi");
}

TEST_F(AddFilesTest, TheRootOfADriveGetsNoSecondBackslash) {
  files.existing.insert("C:\\x.avi");
  files.existing.insert("C:\\y.avi");
  choose("C:\\\0x.avi\0y.avi"s);
  EXPECT_EQ(main.lvPlayList.row(1).subItems[1], "C:\\y.avi");
}

TEST_F(AddFilesTest, CancellingAddsNothingAndSaysNothing) {
  world->click(main.cmdPLAdd);
  EXPECT_EQ(rows(), "");
  EXPECT_EQ(notice(), "");
  EXPECT_TRUE(world->hasFocus(main.lvPlayList));
}

TEST_F(AddFilesTest, TooManyFilesAreRefusedWithANotice) {
  fileDialogs.answers.push_back({FileDialogOutcome::tooMany, ""});
  world->click(main.cmdPLAdd);
  EXPECT_EQ(notice(), "提示|错误：您选择的文件过多！|确定|");
  EXPECT_EQ(rows(), "");
  EXPECT_TRUE(world->hasFocus(main.lvPlayList));
}

TEST_F(AddFilesTest, AnyOtherFailureOfTheDialogSaysNothing) {
  fileDialogs.answers.push_back({FileDialogOutcome::failed, "C:\\v\\a.avi"});
  world->click(main.cmdPLAdd);
  EXPECT_EQ(notice(), "");
  EXPECT_EQ(rows(), "");
}

TEST_F(AddFilesTest, APathWithoutAFileNameIsRefusedWithANotice) {
  choose("C:\\v\\");
  EXPECT_EQ(notice(), "提示|文件路径不合法|确定|");
  EXPECT_EQ(rows(), "");
}

TEST_F(AddFilesTest, AFileThatIsNotThereIsLeftOutWithoutANotice) {
  choose("C:\\v\\gone.avi");
  EXPECT_EQ(notice(), "");
  EXPECT_EQ(rows(), "");
}

TEST_F(AddFilesTest, PathsAreTakenApartAsStated) {
  EXPECT_TRUE(chosenPaths("").empty());
  EXPECT_TRUE(chosenPaths("name.avi").empty());
  EXPECT_TRUE(chosenPaths("C:\\v\\").empty());
  EXPECT_TRUE(chosenPaths("/v/").empty());
  EXPECT_EQ(chosenPaths("/v/a.avi"), (std::vector<std::string>{"", "/v/a.avi"}));
  // The last backslash counts, a slash only where there is none.
  EXPECT_TRUE(chosenPaths("C:\\v/a\\").empty());
  EXPECT_EQ(chosenPaths("C:\\v/a"), (std::vector<std::string>{"", "C:\\v/a"}));
  EXPECT_EQ(chosenPaths("C:\\v\0a"s), (std::vector<std::string>{"", "C:\\v\\a"}));
}

TEST_F(AddFilesTest, FiveHundredDroppedFilesAreAdded) {
  world->drop(main, std::vector<std::string>(500, "C:\\v\\b.avi"));
  EXPECT_EQ(world->rowCount(main.lvPlayList), 500);
  EXPECT_EQ(world->text(main.labFileCount), "500");
  EXPECT_EQ(notice(), "");
}

TEST_F(AddFilesTest, FiveHundredAndOneAreRefusedAsAWhole) {
  world->drop(main, std::vector<std::string>(501, "C:\\v\\b.avi"));
  EXPECT_EQ(world->rowCount(main.lvPlayList), 0);
  EXPECT_EQ(notice(), "提示|您选择的文件数量太多！|确定|");
}

TEST_F(AddFilesTest, DroppedFilesKeepTheirOrderAndDoNotPlay) {
  world->drop(main, {"C:\\v\\c.avi", "C:\\v\\a.avi"});
  EXPECT_EQ(rows(), "c1b! a0 ");
  EXPECT_EQ(screen.lngState(), playState::kStopped);
}

TEST_F(AddFilesTest, ALongAdditionIsShownWhileItGoesOn) {
  main.showAdding(1200, 100000);
  EXPECT_EQ(world->text(main.labWork), "正在添加: 1200 / 100000");
  EXPECT_TRUE(world->isVisible(main.labWork));
  main.showAdding(0, 0);
  EXPECT_FALSE(world->isVisible(main.labWork));
}

class DeleteTest : public PanelFixture {};

TEST_F(DeleteTest, WithNothingTickedTheHintIsShownForFiveSeconds) {
  addThree();
  world->click(main.cmdPLDelete);
  EXPECT_TRUE(world->isVisible(main.labDeleteNote));
  EXPECT_EQ(rows(), "a1b! b0 c0 ");
  time.advance(4999);
  EXPECT_TRUE(world->isVisible(main.labDeleteNote));
  time.advance(1);
  EXPECT_FALSE(world->isVisible(main.labDeleteNote));
  EXPECT_FALSE(main.timDelayHideDeleteNote.enabled());
}

TEST_F(DeleteTest, PressingAgainBeginsTheFiveSecondsAnew) {
  addThree();
  world->click(main.cmdPLDelete);
  time.advance(4000);
  world->click(main.cmdPLDelete);
  time.advance(4999);
  EXPECT_TRUE(world->isVisible(main.labDeleteNote));
  time.advance(1);
  EXPECT_FALSE(world->isVisible(main.labDeleteNote));
}

TEST_F(DeleteTest, InAnEmptyListOnlyTheTickForAllGoes) {
  world->click(main.chkToDeleteAll);
  world->click(main.cmdPLDelete);
  EXPECT_FALSE(world->isChecked(main.chkToDeleteAll));
  EXPECT_EQ(main.chkToDeleteAll.tag(), "0");
  EXPECT_FALSE(world->isVisible(main.labDeleteNote));
}

TEST_F(DeleteTest, TickedRowsGoAndTheFollowingOneIsSelected) {
  addMany(5);
  world->tickRow(main.lvPlayList, 1);
  world->tickRow(main.lvPlayList, 3);
  world->click(main.cmdPLDelete);
  EXPECT_EQ(rows(), "11b 30 50! ");
  EXPECT_EQ(world->text(main.labFileCount), "3");
  EXPECT_TRUE(world->hasFocus(main.lvPlayList));
}

TEST_F(DeleteTest, DeletingThePlayItemMovesTheMark) {
  startFirst();
  world->tickRow(main.lvPlayList, 0);
  world->click(main.cmdPLDelete);
  EXPECT_EQ(rows(), "b1b! c0 ");
  EXPECT_EQ(order(), "b*!c");
  EXPECT_EQ(screen.strFilePath(), "C:\\v\\b.avi");
  EXPECT_EQ(screen.lngState(), playState::kStopped);
  EXPECT_EQ(stateLine(), "停止: b.avi 播放");
}

TEST_F(DeleteTest, DeletingAnotherItemLeavesPlaybackAlone) {
  startFirst();
  world->tickRow(main.lvPlayList, 2);
  world->click(main.cmdPLDelete);
  EXPECT_EQ(rows(), "a1b b0! ");
  EXPECT_EQ(screen.lngState(), playState::kPlaying);
  EXPECT_EQ(stateLine(), "正在播放: a.avi 暂停");
}

TEST_F(DeleteTest, DeletingEveryRowStopsAndEmptiesThePath) {
  startFirst();
  world->click(main.chkToDeleteAll);
  world->click(main.cmdPLDelete);
  EXPECT_EQ(rows(), "");
  EXPECT_EQ(world->text(main.labFileCount), "0");
  EXPECT_FALSE(world->isChecked(main.chkToDeleteAll));
  EXPECT_EQ(main.chkToDeleteAll.tag(), "0");
  EXPECT_EQ(screen.lngState(), playState::kStopped);
  EXPECT_EQ(screen.strFilePath(), "");
  EXPECT_EQ(stateLine(), "停止:  播放");
  EXPECT_TRUE(world->hasFocus(main.lvPlayList));
}

TEST_F(DeleteTest, ManyRowsGoInSlicesAndTheWorkIsShown) {
  addMany(300);
  world->click(main.chkToDeleteAll);
  // Each deletion of the play item costs a millisecond.
  real().whenSourced = [this] { time.skip(1); };
  world->click(main.cmdPLDelete);
  EXPECT_GT(world->rowCount(main.lvPlayList), 200);
  EXPECT_TRUE(world->isVisible(main.labWork));
  EXPECT_EQ(world->text(main.labWork).rfind("正在删除: ", 0), 0U);
  EXPECT_TRUE(world->isChecked(main.chkToDeleteAll));
  time.advance(1000);
  EXPECT_EQ(world->rowCount(main.lvPlayList), 0);
  EXPECT_FALSE(world->isVisible(main.labWork));
  EXPECT_FALSE(world->isChecked(main.chkToDeleteAll));
}

TEST_F(DeleteTest, ClearingTheListEndsADeletionUnderWay) {
  addMany(300);
  world->click(main.chkToDeleteAll);
  real().whenSourced = [this] { time.skip(1); };
  world->click(main.cmdPLDelete);
  main.mnuClearPL.choose();
  addThree();
  time.advance(1000);
  EXPECT_EQ(rows(), "a1b! b0 c0 ");
  EXPECT_FALSE(world->isVisible(main.labWork));
}

TEST_F(DeleteTest, LeavingTheProgramCompletesADeletionUnderWay) {
  addMany(300);
  world->click(main.chkToDeleteAll);
  real().whenSourced = [this] { time.skip(1); };
  world->click(main.cmdPLDelete);
  controler.exitSys();
  EXPECT_EQ(playList.lngListCount(), 0);
}

TEST_F(DeleteTest, ARowThatMovesWhileItIsDeletedIsTheOneThatGoes) {
  addThree();
  world->tickRow(main.lvPlayList, 0);
  bool moved = false;
  // An engine that is given the next path lets a move through.
  real().whenSourced = [&] {
    if (!std::exchange(moved, true)) main.lvPlayList.swapWithNext(0);
  };
  world->click(main.cmdPLDelete);
  EXPECT_TRUE(moved);
  EXPECT_EQ(rows(), "b1b! c0 ");
}

TEST_F(DeleteTest, ARowThatTheListDoesNotKnowGoesAndPlaybackGoesOn) {
  startFirst();
  Movie stranger(keys);
  stranger.strFileName = "x.avi";
  main.AddAMovieToFaceList(stranger);
  world->tickRow(main.lvPlayList, 3);
  world->click(main.cmdPLDelete);
  EXPECT_EQ(world->rowCount(main.lvPlayList), 3);
  EXPECT_EQ(screen.lngState(), playState::kPlaying);
  EXPECT_EQ(screen.strFilePath(), "C:\\v\\a.avi");
}

TEST_F(DeleteTest, TheEndOfALongDeletionTakesTheKeyboardFromNobody) {
  addMany(300);
  world->click(main.chkToDeleteAll);
  real().whenSourced = [this] { time.skip(1); };
  world->click(main.cmdPLDelete);
  EXPECT_TRUE(world->hasFocus(main.lvPlayList));
  world->chooseTab(main.tsLists, 2);
  time.advance(1000);
  EXPECT_EQ(world->rowCount(main.lvPlayList), 0);
  EXPECT_TRUE(world->hasFocus(main.lvPlayErrLogList));
}

TEST_F(AddFilesTest, WhileADialogIsUpADropIsRefused) {
  int dialogs = 0;
  world->answerDialogs([&](ui::Form& form) {
    ++dialogs;
    world->drop(main, {"C:\\v\\a.avi"});
    world->drop(main, std::vector<std::string>(501, "C:\\v\\b.avi"));
    form.close();
  });
  world->drop(main, std::vector<std::string>(501, "C:\\v\\b.avi"));
  EXPECT_EQ(dialogs, 1);
  EXPECT_EQ(rows(), "");
}

TEST_F(DeleteTest, AFileThatComesWhileTheListIsClearedHasARow) {
  addThree();
  real().whenSourced = [this] {  // handed the empty path, it lets a request through
    real().whenSourced = nullptr;
    controler.BatchAddMovie({"", "C:\\v\\a.avi"}, false);
  };
  main.mnuClearPL.choose();
  EXPECT_EQ(order(), "a*!");
  EXPECT_EQ(rows(), "a1b! ");
  EXPECT_EQ(world->text(main.labFileCount), "1");
}

}  // namespace
}  // namespace tessivo
