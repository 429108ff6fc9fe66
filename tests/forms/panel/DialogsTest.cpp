#include "forms/panel/PanelFixture.h"
#include "panel/DatabaseNotice.h"
#include "panel/frmAbout.h"
#include "ui/Icons.h"
#include "ui/TabOrder.h"

namespace tessivo {
namespace {

class MessageBoxTest : public PanelFixture {
 protected:
  void SetUp() override {
    PanelFixture::SetUp();
    box.setCaption("提示");
    box.labNote.setCaption("真的要退出吗?");
    box.cmdYes.setCaption("是");
    box.cmdNo.setCaption("否");
  }
  bool ask(std::function<void()> answer) {
    world->answerDialogs([answer](ui::Form&) { answer(); });
    box.ask(world->toolkit(), main);
    return box.result();
  }

  frmMsgBox box{{}};
};

TEST_F(MessageBoxTest, YesIsTrueAndNoIsFalse) {
  EXPECT_TRUE(ask([this] { world->click(box.cmdYes); }));
  EXPECT_FALSE(box.isOpen());
  EXPECT_FALSE(ask([this] { world->click(box.cmdNo); }));
}

TEST_F(MessageBoxTest, TheCloseBoxLeavesTheResultFalse) {
  EXPECT_FALSE(ask([this] { world->close(box); }));
}

TEST_F(MessageBoxTest, EscapeLeavesTheResultFalse) {
  EXPECT_FALSE(ask([this] { world->key(box, box.cmdYes, 27); }));
  EXPECT_FALSE(box.visible());
}

TEST_F(MessageBoxTest, TheDefaultButtonHasTheKeyboard) {
  box.setDefaultIsYes(true);
  ask([this] { EXPECT_TRUE(world->hasFocus(box.cmdYes)); });
  box.setDefaultIsYes(false);
  ask([this] { EXPECT_TRUE(world->hasFocus(box.cmdNo)); });
}

TEST_F(MessageBoxTest, EnterPressesTheDefaultButton) {
  EXPECT_TRUE(ask([this] { world->key(box, box.cmdYes, 13); }));
}

TEST_F(MessageBoxTest, TabGoesFromYesToNo) {
  EXPECT_EQ(ui::nextInTabOrder(box, nullptr, false), &box.cmdYes);
  EXPECT_EQ(ui::nextInTabOrder(box, &box.cmdYes, false), &box.cmdNo);
  EXPECT_EQ(ui::nextInTabOrder(box, &box.cmdNo, false), &box.cmdYes);
}

TEST_F(MessageBoxTest, ShowsItsTextsAndTheProgramsIcon) {
  ask([this] {
    EXPECT_EQ(world->text(box), "提示");
    EXPECT_EQ(world->text(box.labNote), "真的要退出吗?");
    EXPECT_EQ(world->text(box.cmdYes), "是");
    EXPECT_EQ(world->text(box.cmdNo), "否");
  });
  EXPECT_EQ(box.Picture1.icon(), icon::kProgram);
}

TEST_F(MessageBoxTest, WhileItIsUpThePanelIsOff) {
  main.setEnabled(true);
  ask([this] {
    EXPECT_FALSE(world->isEnabled(main));
    world->click(box.cmdYes);
  });
  EXPECT_TRUE(world->isEnabled(main));
}

TEST_F(MessageBoxTest, ItStandsOverTheMiddleOfThePanel) {
  ask([this] {
    const Rect face = main.windowRect();
    const Rect own = box.windowRect();
    if (!box.isOpen()) return;  // without windows it is nowhere
    EXPECT_NEAR(own.left + own.width / 2, face.left + face.width / 2, 1);
    EXPECT_NEAR(own.top + own.height / 2, face.top + face.height / 2, 1);
  });
}

TEST_F(MessageBoxTest, ALongTextHasTheLinesItNeeds) {
  ask([] {});
  const std::int32_t shortHeight = box.height();
  std::string text;
  for (int i = 0; i < 40; ++i) text += "很长的一句话，";
  box.labNote.setCaption(text);
  ask([this] {
    const std::int32_t letters = 40 * 7;
    const std::int32_t perLine = box.labNote.bounds().width / 180;
    EXPECT_GE(box.labNote.bounds().height, letters / perLine * 240);
    EXPECT_LE(box.labNote.bounds().top + box.labNote.bounds().height, box.cmdYes.bounds().top);
  });
  EXPECT_GT(box.height(), shortHeight);
}

TEST_F(MessageBoxTest, ANoticeHasOneButtonThatEnterPresses) {
  std::string seen;
  world->answerDialogs([this, &seen](ui::Form& form) {
    auto& notice = dynamic_cast<frmMsgBox&>(form);
    seen = world->text(notice) + "|" + world->text(notice.labNote) + "|" +
           world->text(notice.cmdYes) + "|" + world->text(notice.cmdNo);
    EXPECT_TRUE(world->isVisible(notice.cmdYes));
    EXPECT_FALSE(world->isVisible(notice.cmdNo));
    EXPECT_TRUE(world->hasFocus(notice.cmdYes));
    world->key(notice, notice.cmdYes, 13);
  });
  showNotice(world->toolkit(), main, "文件路径不合法");
  EXPECT_EQ(seen, "提示|文件路径不合法|确定|");
}

std::string noticeOf(DatabaseState state, const std::string& file, bool notConverted = false) {
  return databaseNotice({"C:\\A B\\" + file, state, notConverted}, "C:\\A B\\SysConfig");
}
bool has(const std::string& text, const std::string& part) {
  return text.find(part) != std::string::npos;
}

TEST(DatabaseNotice, NamesTheFileThatItSpeaksOf) {
  EXPECT_TRUE(has(noticeOf(DatabaseState::replaced, "SysConfig"), "SysConfig.damaged 开头"));
  EXPECT_TRUE(has(noticeOf(DatabaseState::replaced, "SysConfig.db"), "SysConfig.db.damaged 开头"));
  EXPECT_TRUE(has(noticeOf(DatabaseState::notWritable, "SysConfig.db"), "数据库 SysConfig.db，"));
  EXPECT_TRUE(has(noticeOf(DatabaseState::accessHeld, "SysConfig"), "数据库 SysConfig 是"));
  EXPECT_TRUE(has(noticeOf(DatabaseState::failed, "SysConfig.db"), "数据库 SysConfig.db 现在"));
  for (const auto state : {DatabaseState::accessFile, DatabaseState::converted}) {
    EXPECT_TRUE(has(noticeOf(state, "SysConfig.db"), " SysConfig "));
    EXPECT_TRUE(has(noticeOf(state, "SysConfig.db"), "新的数据库 SysConfig.db"));
  }
  EXPECT_TRUE(has(noticeOf(DatabaseState::accessFile, "SysConfig.db"), "--convert"));
}

TEST(DatabaseNotice, IsNotThereForWhatTheUserNeedNotKnow) {
  for (const auto state : {DatabaseState::ready, DatabaseState::created, DatabaseState::leftAlone,
                           DatabaseState::accessInUse}) {
    EXPECT_EQ(noticeOf(state, "SysConfig"), "");
  }
}

TEST(DatabaseNotice, OfAFailedConversionSaysAlsoWhatIsUsed) {
  const std::string failed = "SysConfig 没有转换，原因详见 Tessivo.log。";
  EXPECT_EQ(noticeOf(DatabaseState::accessInUse, "SysConfig", true),
            failed + "原有的文件没有改动。");
  for (const auto state : {DatabaseState::accessFile, DatabaseState::notWritable}) {
    EXPECT_EQ(noticeOf(state, "SysConfig.db", true), failed + noticeOf(state, "SysConfig.db"));
  }
}

TEST_F(MessageBoxTest, ANoticeAboutTheDatabaseComesOnceWhenTheMessagesGoRound) {
  std::vector<std::string> seen;
  world->answerDialogs([this, &seen](ui::Form& form) {
    auto& notice = dynamic_cast<frmMsgBox&>(form);
    seen.push_back(world->text(notice.labNote));
    time.advance(100);  // it is up for a while
    world->click(notice.cmdYes);
  });
  const DatabaseNotice notice(world->toolkit(), time, main, "没有转换");
  EXPECT_EQ(seen, std::vector<std::string>());
  time.advance(100);
  EXPECT_EQ(seen, std::vector<std::string>{"没有转换"});
  time.advance(100);
  EXPECT_EQ(seen.size(), 1U);
}

TEST_F(MessageBoxTest, AGoodDatabaseIsNotSpokenOf) {
  world->answerDialogs([](ui::Form&) { FAIL() << "a dialog"; });
  const DatabaseNotice notice(world->toolkit(), time, main, "");
  time.advance(100);
}

class AboutTest : public PanelFixture {
 protected:
  void show(std::function<void()> answer) {
    world->answerDialogs([answer](ui::Form&) { answer(); });
    about.showOver(world->toolkit(), main);
  }
  frmAbout about{shell, {}};
};

TEST_F(AboutTest, ShowsTheProductsNameAndIcon) {
  show([this] {
    EXPECT_EQ(world->text(about.Label1), "Tessivo 泰思维");
    EXPECT_EQ(about.picIco.icon(), icon::kProgram);
    EXPECT_TRUE(world->hasFocus(about.cmdOk));
  });
}

TEST_F(AboutTest, TheHomePageOpensInTheSystemsBrowser) {
  show([this] { world->mouse(about.txtHomePage, {MouseButton::left, 45, 45}); });
  EXPECT_EQ(ui::joined(shell.opened), "iexplore|" + about.txtHomePage.caption());
}

TEST_F(AboutTest, TheAddressOpensTheMailProgram) {
  show([this] { world->mouse(about.txtEmail, {MouseButton::left, 45, 45}); });
  EXPECT_EQ(ui::joined(shell.opened), "mailto:" + about.txtEmail.caption() + "|");
}

TEST_F(AboutTest, EnterFollowsTheLinkThatHasTheKeyboard) {
  show([this] {
    world->key(about, about.txtEmail, 13);
    world->key(about, about.txtHomePage, 13);
  });
  ASSERT_EQ(shell.opened.size(), 2U);
  EXPECT_EQ(shell.opened[0].rfind("mailto:", 0), 0U);
  EXPECT_EQ(shell.opened[1].rfind("iexplore|http", 0), 0U);
}

TEST_F(AboutTest, OkAndEscapeCloseIt) {
  show([this] { world->click(about.cmdOk); });
  EXPECT_FALSE(about.visible());
  show([this] {
    world->key(about, about.cmdOk, 27);
    EXPECT_FALSE(about.visible());
  });
}

TEST_F(AboutTest, TabLeadsToTheLinks) {
  EXPECT_EQ(ui::nextInTabOrder(about, nullptr, false), &about.txtHomePage);
  EXPECT_EQ(ui::nextInTabOrder(about, &about.txtHomePage, false), &about.txtEmail);
  EXPECT_EQ(ui::nextInTabOrder(about, &about.txtEmail, false), &about.cmdOk);
}

TEST_F(AboutTest, TheLinksCannotBeChanged) {
  EXPECT_TRUE(about.txtHomePage.readOnly());
  EXPECT_TRUE(about.txtEmail.readOnly());
}

}  // namespace
}  // namespace tessivo
