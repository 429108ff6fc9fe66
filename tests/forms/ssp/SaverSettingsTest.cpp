#include <gtest/gtest.h>

#include "fakes/FakeFileDialogs.h"
#include "forms/FormWorld.h"
#include "ssp/frmClockSettings.h"
#include "ssp/frmPictureSettings.h"
#include "ui/TabOrder.h"

namespace tessivo::ssp {
namespace {

constexpr ui::KeyCode kEnter = 13;
constexpr ui::KeyCode kEscape = 27;

/// The names of the controls in the order in which Tab leads to them.
std::string tabOrder(const ui::Form& form) {
  const ui::Control* const first = ui::nextInTabOrder(form, nullptr, false);
  std::string names = first->name();
  for (const ui::Control* c = ui::nextInTabOrder(form, first, false); c != first;
       c = ui::nextInTabOrder(form, c, false)) {
    names += " " + c->name();
  }
  return names;
}

class ClockSettingsFormTest : public ::testing::Test {
 protected:
  void SetUp() override {
    world->toolkit().open(form);
    form.fit();
    form.show();
  }
  std::unique_ptr<ui::FormWorld> world = ui::makeFormWorld();
  const ClockSettings before{ClockSize::large, 3, false, true};
  frmClockSettings form{before, {}};
};

TEST_F(ClockSettingsFormTest, ShowsTheSettings) {
  EXPECT_EQ(world->chosenEntry(form.comboSize), 2);
  EXPECT_EQ(world->entryCount(form.comboSize), 3);
  EXPECT_EQ(world->chosenEntry(form.comboColour), 3);
  EXPECT_EQ(world->entryCount(form.comboColour), 6);
  EXPECT_FALSE(world->isChecked(form.chkSeconds));
  EXPECT_TRUE(world->isChecked(form.chkDate));
  EXPECT_EQ(form.settings(), before);
}

TEST_F(ClockSettingsFormTest, OkAcceptsWhatTheUserChose) {
  world->choose(form.comboSize, 0);
  world->choose(form.comboColour, 5);
  world->click(form.chkSeconds);
  world->click(form.chkDate);
  world->click(form.cmdOk);
  EXPECT_TRUE(form.accepted());
  EXPECT_FALSE(form.visible());
  EXPECT_EQ(form.settings(), (ClockSettings{ClockSize::small, 5, true, false}));
  EXPECT_EQ(form.settingsText(), clockSettingsText(form.settings()));
}

TEST_F(ClockSettingsFormTest, WhatIsAcceptedIsSavedOnce) {
  std::vector<std::string> saved;
  form.setSave([&saved](const std::string& text) { return saved.push_back(text), true; });
  world->click(form.chkSeconds);
  world->click(form.cmdOk);
  EXPECT_EQ(saved, std::vector<std::string>{clockSettingsText({ClockSize::large, 3, true, true})});
  EXPECT_TRUE(form.accepted());
}

TEST_F(ClockSettingsFormTest, WhatCannotBeSavedStaysAndSaysSo) {
  bool works = false;
  form.setSave([&works](const std::string&) { return works; });
  EXPECT_EQ(world->text(form.labProblem), "");
  world->choose(form.comboSize, 0);
  world->click(form.cmdOk);
  EXPECT_FALSE(form.accepted());
  EXPECT_TRUE(form.visible());
  EXPECT_EQ(world->text(form.labProblem), "无法保存设置，请检查文件夹是否可写。");
  EXPECT_EQ(form.labProblem.foreColour(), 0xC00000U);
  EXPECT_EQ(world->chosenEntry(form.comboSize), 0);
  works = true;
  world->click(form.cmdOk);
  EXPECT_TRUE(form.accepted());
  EXPECT_FALSE(form.visible());
}

TEST_F(ClockSettingsFormTest, WhatIsCancelledIsNotSaved) {
  int saves = 0;
  form.setSave([&saves](const std::string&) { return ++saves > 0; });
  world->click(form.cmdCancel);
  EXPECT_EQ(saves, 0);
}

TEST_F(ClockSettingsFormTest, CancelAcceptsNothing) {
  world->click(form.cmdCancel);
  EXPECT_FALSE(form.accepted());
  EXPECT_FALSE(form.visible());
}

TEST_F(ClockSettingsFormTest, CloseBoxAcceptsNothing) {
  world->close(form);
  EXPECT_FALSE(form.accepted());
  EXPECT_FALSE(form.visible());
}

TEST_F(ClockSettingsFormTest, EscapeAcceptsNothing) {
  world->key(form, form.comboSize, kEscape);
  EXPECT_FALSE(form.accepted());
  EXPECT_FALSE(form.visible());
}

TEST_F(ClockSettingsFormTest, EnterAcceptsWhereverTheKeyboardIs) {
  world->key(form, form.chkDate, kEnter);
  EXPECT_TRUE(form.accepted());
  EXPECT_FALSE(form.visible());
}

TEST_F(ClockSettingsFormTest, EnterOnCancelCancels) {
  world->key(form, form.cmdCancel, kEnter);
  EXPECT_FALSE(form.accepted());
  EXPECT_FALSE(form.visible());
}

TEST_F(ClockSettingsFormTest, LettersWithAltFlipAndPress) {
  world->mnemonic(form, 's');
  world->mnemonic(form, 'd');
  EXPECT_TRUE(world->isChecked(form.chkSeconds));
  EXPECT_FALSE(world->isChecked(form.chkDate));
  world->mnemonic(form, 'o');
  EXPECT_TRUE(form.accepted());
}

TEST_F(ClockSettingsFormTest, TabLeadsFromTopToBottom) {
  EXPECT_EQ(tabOrder(form), "comboSize comboColour chkSeconds chkDate cmdOk cmdCancel");
}

TEST_F(ClockSettingsFormTest, ControlsLieInsideTheFormOneBelowTheOther) {
  std::int32_t bottom = 0;
  for (const ui::Control* control : std::initializer_list<const ui::Control*>{
           &form.comboSize, &form.comboColour, &form.chkSeconds, &form.chkDate, &form.labProblem,
           &form.cmdOk}) {
    EXPECT_GE(control->bounds().top, bottom) << control->name();
    bottom = control->bounds().top + control->bounds().height;
  }
  EXPECT_LT(bottom, form.scaleHeight());
  const Rect& cancel = form.cmdCancel.bounds();
  EXPECT_LT(form.cmdOk.bounds().left + form.cmdOk.bounds().width, cancel.left);
  EXPECT_LT(cancel.left + cancel.width, form.scaleWidth());
}

/// There are the folders of drives C to F.
struct Folders : Files {
  bool fileExists(const std::string&) const override { return false; }
  std::optional<std::vector<std::string>> filesIn(const std::string& folder) const override {
    if (folder.empty() || folder.front() < 'C' || folder.front() > 'F') return std::nullopt;
    return std::vector<std::string>{};
  }
};

class PictureSettingsFormTest : public ::testing::Test {
 protected:
  void open(const PictureSettings& settings) {
    form = std::make_unique<frmPictureSettings>(settings, "C:\\Users\\u\\Pictures", folders,
                                                dialogs, TwipsPerPixel{});
    world->toolkit().open(*form);
    form->fit();
    form->show();
  }
  std::unique_ptr<ui::FormWorld> world = ui::makeFormWorld();
  Folders folders;
  FakeFileDialogs dialogs;
  std::unique_ptr<frmPictureSettings> form;
};

TEST_F(PictureSettingsFormTest, ShowsTheSettings) {
  open({"D:\\照片", 300, PictureOrder::random});
  EXPECT_EQ(world->text(form->txtFolder), "D:\\照片");
  EXPECT_EQ(world->entryCount(form->comboStay), 8);
  EXPECT_EQ(world->chosenEntry(form->comboStay), 7);
  EXPECT_EQ(world->chosenEntry(form->comboOrder), 1);
  EXPECT_EQ(form->settings(), (PictureSettings{"D:\\照片", 300, PictureOrder::random}));
}

TEST_F(PictureSettingsFormTest, UsualFolderIsShownAndStaysTheUsualOne) {
  open({});
  EXPECT_EQ(world->text(form->txtFolder), "C:\\Users\\u\\Pictures");
  EXPECT_EQ(form->settings().folder, "");
}

TEST_F(PictureSettingsFormTest, OkAcceptsWhatTheUserChose) {
  open({});
  world->type(form->txtFolder, " E:\\旅行 ");
  world->choose(form->comboStay, 0);
  world->choose(form->comboOrder, 1);
  world->click(form->cmdOk);
  EXPECT_TRUE(form->accepted());
  EXPECT_EQ(form->settings(), (PictureSettings{"E:\\旅行", 3, PictureOrder::random}));
  EXPECT_EQ(form->settingsText(), pictureSettingsText(form->settings()));
}

TEST_F(PictureSettingsFormTest, WholeMinutesAreCalledSo) {
  open({});
  std::string all;
  for (const auto& item : form->comboStay.items()) all += item.text + ",";
  EXPECT_EQ(all, "3 秒,5 秒,8 秒,10 秒,15 秒,30 秒,1 分钟,5 分钟,");
}

TEST_F(PictureSettingsFormTest, QuotesAroundTheFolderAreTakenOff) {
  open({});
  world->type(form->txtFolder, " \"E:\\旅 行\" ");
  world->click(form->cmdOk);
  EXPECT_TRUE(form->accepted());
  EXPECT_EQ(form->settings().folder, "E:\\旅 行");
}

TEST_F(PictureSettingsFormTest, FolderThatIsNotThereIsNotSaved) {
  open({});
  int saves = 0;
  form->setSave([&saves](const std::string&) { return ++saves > 0; });
  world->type(form->txtFolder, "Z:\\none");
  world->click(form->cmdOk);
  EXPECT_EQ(saves, 0);
  EXPECT_TRUE(form->visible());
  EXPECT_EQ(world->text(form->labProblem), "文件夹不存在或无法打开。");
  world->type(form->txtFolder, "D:\\there");
  world->click(form->cmdOk);
  EXPECT_EQ(saves, 1);
  EXPECT_TRUE(form->accepted());
}

TEST_F(PictureSettingsFormTest, EmptyFolderIsTheUsualOne) {
  open({"D:\\照片", 3, PictureOrder::byName});
  world->type(form->txtFolder, "");
  EXPECT_EQ(form->settings().folder, "");
}

TEST_F(PictureSettingsFormTest, BrowseAsksFromTheFolderOnAndTakesTheAnswer) {
  open({"D:\\照片", 3, PictureOrder::byName});
  dialogs.folderAnswer = "F:\\新";
  world->click(form->cmdBrowse);
  EXPECT_EQ(dialogs.folderCalls, 1);
  EXPECT_EQ(dialogs.lastFolder.folder, "D:\\照片");
  EXPECT_EQ(dialogs.lastFolder.title, "选择图片文件夹");
  EXPECT_EQ(dialogs.lastFolder.owner, form->nativeHandle());
  EXPECT_EQ(world->text(form->txtFolder), "F:\\新");
  EXPECT_TRUE(form->visible());
}

TEST_F(PictureSettingsFormTest, BrowseThatIsCancelledChangesNothing) {
  open({"D:\\照片", 3, PictureOrder::byName});
  world->click(form->cmdBrowse);
  EXPECT_EQ(dialogs.folderCalls, 1);
  EXPECT_EQ(world->text(form->txtFolder), "D:\\照片");
}

TEST_F(PictureSettingsFormTest, EnterOnBrowseBrowses) {
  open({});
  world->key(*form, form->cmdBrowse, kEnter);
  EXPECT_EQ(dialogs.folderCalls, 1);
  EXPECT_FALSE(form->accepted());
}

TEST_F(PictureSettingsFormTest, EnterInTheFolderAccepts) {
  open({});
  world->key(*form, form->txtFolder, kEnter);
  EXPECT_TRUE(form->accepted());
}

TEST_F(PictureSettingsFormTest, TabLeadsFromTopToBottom) {
  open({});
  EXPECT_EQ(tabOrder(*form), "txtFolder cmdBrowse comboStay comboOrder cmdOk cmdCancel");
}

}  // namespace
}  // namespace tessivo::ssp
