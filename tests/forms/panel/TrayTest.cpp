#include "app/Request.h"
#include "fakes/FakeNotificationArea.h"
#include "fakes/FakeSharedMemory.h"
#include "forms/panel/PanelFixture.h"
#include "panel/frmAbout.h"
#include "panel/frmHide.h"
#include "ui/Icons.h"

namespace tessivo {
namespace {

constexpr OsVersion kXp{2, 5, 1};

/// The notification codes of the icon.
constexpr std::int32_t kMove = 512;
constexpr std::int32_t kLeftDown = 513;
constexpr std::int32_t kLeftUp = 514;
constexpr std::int32_t kLeftDouble = 515;
constexpr std::int32_t kRightDown = 516;
constexpr std::int32_t kRightUp = 517;
constexpr std::int32_t kRightDouble = 518;

/// The panel and the tray form, hidden as always, of a running program.
class TrayTest : public PanelFixture {
 protected:
  void SetUp() override {
    PanelFixture::SetUp();
    trayForm.load();
    controler.setReferences(trayForm, main, screen, playList);
    requests.boolSysReady(true);
    trace.take();
  }
  void TearDown() override {
    trayForm.unload();
    PanelFixture::TearDown();
  }
  void notify(std::int32_t code) { world->mouseMove(trayForm, {MouseButton::left, code * 15, 0}); }
  /// As a second instance has it do.
  void comeToForeground() {
    trayForm.onActivate.raise();
    time.advance(1);
  }
  /// The user opens the icon's menu and takes that entry (-1: none).
  void choose(int entry) {
    world->answerMenu(trayForm, entry);
    notify(kRightDown);
  }
  bool panelIsThere() { return world->isVisible(main); }
  bool left() { return trace.take().find("quit") != std::string::npos; }
  std::string iconOn(const OsVersion& version) {
    frmHide other({world->toolkit(), time, winProc, icons, shell, exitQuestion, version, ""}, {},
                  controler, requests);
    other.load();
    return icons.last.icon == icon::kTray               ? "XP"
           : icons.last.icon == icon::kTrayOfOldWindows ? "2000"
                                                        : "";
  }

  FakeSharedMemory memory;
  CommandLine lines{controler, memory, log};
  RequestReceiver requests{controler, lines, log};
  FakeTrayIcons icons{trace};
  FakeHiddenWinProc winProc{trace};
  frmHide trayForm{
      {world->toolkit(), time, winProc, icons, shell, exitQuestion, kXp, "C:\\p\\Help\\F.htm"},
      {},
      controler,
      requests};
};

TEST_F(TrayTest, IsNeverSeenAndCarriesTheTitleByWhichItIsFound) {
  EXPECT_FALSE(world->isVisible(trayForm));
  EXPECT_EQ(world->text(trayForm), "play27182831415");
}

TEST_F(TrayTest, TheProcedureIsReplacedBeforeTheIconComes) {
  trayForm.unload();
  trace.take();
  trayForm.load();
  EXPECT_EQ(trace.take(), "procedure replaced | icon added");
  EXPECT_EQ(winProc.window, trayForm.nativeHandle());
}

TEST_F(TrayTest, LiesOnThePrimaryMonitorAboveTheShowSoThatItsDialogsDo) {
  EXPECT_EQ(trayForm.left(), 0);
  EXPECT_EQ(trayForm.top(), 0);
  EXPECT_GT(trayForm.width(), 0);
  EXPECT_LE(trayForm.width(), 9000);
  EXPECT_TRUE(trayForm.topmost());
  bool above = false;
  world->answerDialogs([&](ui::Form& form) {
    above = form.topmost();
    world->close(form);
  });
  trayForm.mnuAbout.choose();
  EXPECT_TRUE(above);
}

TEST_F(TrayTest, TheRecordIsFilled) {
  const TrayIconRecord& record = icons.last;
  EXPECT_EQ(record.window, trayForm.nativeHandle());
  EXPECT_EQ(record.identifier, 123U);
  EXPECT_EQ(record.flags, 23U);
  EXPECT_EQ(record.callbackMessage, 512U);
  EXPECT_EQ(record.icon, icon::kTray);
  EXPECT_EQ(record.tip, "Tessivo 泰思维");
  EXPECT_EQ(record.state, 0U);
  EXPECT_EQ(record.stateMask, 0U);
  EXPECT_EQ(record.info, "用鼠标左键双击显示控制面板\r\n用鼠标右键单击显示系统菜单");
  EXPECT_EQ(record.timeoutMs, 10000U);
  EXPECT_EQ(record.infoTitle, "Tessivo 泰思维");
  EXPECT_EQ(record.infoFlags, 1U);
}

TEST_F(TrayTest, ThePictureGoesByTheSystemsVersion) {
  for (const OsVersion old :
       {OsVersion{0, 3, 1}, OsVersion{1, 4, 0}, OsVersion{1, 4, 10}, OsVersion{1, 4, 90},
        OsVersion{2, 3, 51}, OsVersion{2, 4, 0}, OsVersion{2, 5, 0}}) {
    EXPECT_EQ(iconOn(old), "2000") << old.platform << " " << old.major << "." << old.minor;
  }
  for (const OsVersion newer : {kXp, OsVersion{2, 5, 2}, OsVersion{2, 6, 2}, OsVersion{2, 10, 0}}) {
    EXPECT_EQ(iconOn(newer), "XP") << newer.major << "." << newer.minor;
  }
  EXPECT_EQ(trayForm.picTrayIco_XP.icon(), icon::kTray);
  EXPECT_EQ(trayForm.picTrayIco_2000.icon(), icon::kTrayOfOldWindows);
}

TEST_F(TrayTest, ANewTaskBarGetsTheIconBackOnce) {
  winProc.listener->taskbarCreated();
  EXPECT_EQ(trace.take(), "icon removed | icon added");
  EXPECT_EQ(icons.shown.size(), 1U);
  EXPECT_EQ(icons.last.tip, "Tessivo 泰思维");
}

TEST_F(TrayTest, ADoubleClickShowsThePanel) {
  main.hide();
  notify(kLeftDouble);
  EXPECT_TRUE(panelIsThere());
}

TEST_F(TrayTest, EveryOtherNotificationIsIgnored) {
  main.hide();
  int popups = 0;
  trayForm.onPopup.listen([&popups](ui::MenuItem&) { ++popups; });
  for (const std::int32_t code :
       {0, kMove, kLeftDown, kLeftUp, kRightUp, kRightDouble, 519, 1024, 1026}) {
    notify(code);
  }
  EXPECT_FALSE(panelIsThere());
  EXPECT_EQ(popups, 0);
  EXPECT_EQ(trace.take(), "");
}

TEST_F(TrayTest, TheRightButtonOpensTheMenu) {
  choose(-1);
  EXPECT_EQ(world->menuShown,
            "显示控制面板(&S)|-|设置(&O)...|-|关于泰思维(&A)...|使用说明(&H)|-|退出(&X)");
  EXPECT_TRUE(trayForm.mnuShowMainFace.isDefault());
}

TEST_F(TrayTest, TheFirstEntryShowsThePanel) {
  main.hide();
  choose(0);
  EXPECT_TRUE(panelIsThere());
}

TEST_F(TrayTest, TheSettingsEntryAsksForTheSettingsDialog) {
  int wanted = 0;
  controler.configFaceWanted.listen([&wanted] { ++wanted; });
  trayForm.mnuConfig.choose();
  EXPECT_EQ(wanted, 1);
}

TEST_F(TrayTest, TheAboutEntryShowsTheAboutBoxModally) {
  std::string seen;
  world->answerDialogs([&](ui::Form& form) {
    seen = world->text(form) + (world->isEnabled(trayForm) ? "" : "|owner off");
    EXPECT_NE(dynamic_cast<frmAbout*>(&form), nullptr);
    world->close(form);
  });
  trayForm.mnuAbout.choose();
  EXPECT_EQ(seen, "关于泰思维|owner off");
  EXPECT_TRUE(trayForm.enabled());
}

TEST_F(TrayTest, TheHelpEntryOpensTheHelpPage) {
  trayForm.mnuFAQ.choose();
  EXPECT_EQ(shell.opened, std::vector<std::string>{"C:\\p\\Help\\F.htm|"});
}

TEST_F(TrayTest, WhereNothingOpensPagesANoticeOverTheTrayFormSaysWhereTheHelpPageLies) {
  shell.opens = false;
  std::string seen;
  world->answerDialogs([&](ui::Form& form) {
    auto& box = dynamic_cast<frmMsgBox&>(form);
    seen = world->text(box.labNote) + (world->isEnabled(trayForm) ? "" : "|owner off");
    world->click(box.cmdYes);
  });
  trayForm.mnuFAQ.choose();
  EXPECT_EQ(seen, "无法打开使用说明，请用浏览器打开这个文件：\nC:\\p\\Help\\F.htm|owner off");
}

TEST_F(TrayTest, TheExitEntryAsksAndOnlyYesLeaves) {
  std::string question;
  world->answerDialogs([&](ui::Form& form) {
    auto& box = dynamic_cast<frmMsgBox&>(form);
    question = world->text(box) + "|" + world->text(box.labNote) + "|" + world->text(box.cmdYes) +
               "|" + world->text(box.cmdNo);
    EXPECT_TRUE(world->isVisible(box.cmdYes));
    EXPECT_TRUE(world->isVisible(box.cmdNo));
    EXPECT_TRUE(world->hasFocus(box.cmdNo));
    EXPECT_FALSE(world->isEnabled(trayForm));
    world->click(box.cmdNo);
  });
  choose(4);
  EXPECT_EQ(question, "提示|您真的要关闭该程序吗?      |是|否");
  EXPECT_FALSE(left());
  world->answerDialogs([&](ui::Form& form) { world->close(form); });
  choose(4);
  EXPECT_FALSE(left());
  world->answerDialogs(
      [&](ui::Form& form) { world->click(dynamic_cast<frmMsgBox&>(form).cmdYes); });
  choose(4);
  EXPECT_TRUE(left());
}

TEST_F(TrayTest, AYesLeavesAtOnceWhateverCameUpOverTheQuestion) {
  frmMsgBox* question = nullptr;
  bool leftAtOnce = false;
  world->answerDialogs([&](ui::Form& form) {
    if (!question) {
      question = &dynamic_cast<frmMsgBox&>(form);
      main.mnuAbout.choose();
    } else {
      world->click(question->cmdYes);
      leftAtOnce = left();
    }
  });
  trayForm.askToExit();
  EXPECT_TRUE(leftAtOnce);
}

TEST_F(TrayTest, ThereIsOneExitQuestionWhoeverAsks) {
  int questions = 0;
  world->answerDialogs([&](ui::Form& form) {
    ++questions;
    main.mnuExit.choose();
    trayForm.askToExit();
    screen.close();
    world->click(dynamic_cast<frmMsgBox&>(form).cmdNo);
  });
  trayForm.askToExit();
  EXPECT_EQ(questions, 1);
  main.mnuExit.choose();
  EXPECT_EQ(questions, 2);
  EXPECT_FALSE(left());
}

TEST_F(TrayTest, WhileADialogOfItsOwnIsUpThereIsNeitherAMenuNorASecondOne) {
  int popups = 0;
  int dialogs = 0;
  trayForm.onPopup.listen([&popups](ui::MenuItem&) { ++popups; });
  world->answerDialogs([&](ui::Form& form) {
    ++dialogs;
    notify(kRightDown);
    trayForm.askToExit();
    world->close(form);
  });
  trayForm.mnuAbout.choose();
  EXPECT_EQ(popups, 0);
  EXPECT_EQ(dialogs, 1);
  EXPECT_FALSE(left());
}

TEST_F(TrayTest, ARequestIsHandedOn) {
  files.existing.insert("C:\\v\\片 1.avi");
  winProc.listener->copyData(1, *request::encode("C:\\v\\片 1.avi"));
  EXPECT_EQ(playList.lngListCount(), 1);
  EXPECT_TRUE(trayForm.timDelayCallWinProc.enabled());
  time.advance(300);
  EXPECT_FALSE(trayForm.timDelayCallWinProc.enabled());
}

TEST_F(TrayTest, TheGuardIsOffAtFirst) {
  EXPECT_FALSE(trayForm.timDelayCallWinProc.enabled());
  EXPECT_EQ(trayForm.timDelayCallWinProc.interval(), 300);
}

TEST_F(TrayTest, BroughtToTheForegroundItHandsTheKeyboardToThePanel) {
  main.hide();
  comeToForeground();
  EXPECT_TRUE(panelIsThere());
}

TEST_F(TrayTest, TheForegroundThatItsMenuAndDialogsNeedDoesNotShowThePanel) {
  main.hide();
  world->answerDialogs([&](ui::Form& form) {
    comeToForeground();
    world->close(form);
  });
  trayForm.mnuAbout.choose();
  trayForm.onPopup.listen([this](ui::MenuItem&) { comeToForeground(); });
  choose(-1);
  EXPECT_FALSE(panelIsThere());
}

TEST_F(TrayTest, UnloadedItTakesTheIconAwayAndPutsTheProcedureBack) {
  trayForm.unload();
  EXPECT_EQ(trace.take(), "icon removed | procedure back");
  EXPECT_TRUE(icons.shown.empty());
  trayForm.unload();
  EXPECT_EQ(trace.take(), "");
}

TEST_F(TrayTest, UnloadedItsGuardDoesNotTickOn) {
  winProc.listener->copyData(1, *request::encode("C:\\v\\a.avi"));
  trayForm.unload();
  EXPECT_FALSE(trayForm.timDelayCallWinProc.enabled());
}

TEST_F(TrayTest, OnceTheProgramLeavesItHearsNothing) {
  loop.whilePumping = [this] {
    EXPECT_EQ(winProc.listener, nullptr);
    notify(kRightDown);
    notify(kLeftDouble);
    comeToForeground();
  };
  int popups = 0;
  trayForm.onPopup.listen([&popups](ui::MenuItem&) { ++popups; });
  controler.exitSys();
  EXPECT_EQ(popups, 0);
  EXPECT_FALSE(main.isOpen());
  EXPECT_FALSE(trayForm.isOpen());
}

TEST_F(TrayTest, TheEndOfTheSessionLeavesWithoutAQuestion) {
  trayForm.onEndSession.raise();
  EXPECT_TRUE(left());
  EXPECT_TRUE(notices.empty());
}

TEST_F(TrayTest, AProgramThatClosesItsWindowEndsThePlayer) {
  world->close(trayForm);
  EXPECT_TRUE(left());
  EXPECT_TRUE(notices.empty());
}

TEST_F(TrayTest, ClosingThePlaybackWindowAsksTheSameQuestion) {
  std::string question;
  world->answerDialogs([&](ui::Form& form) {
    question = world->text(dynamic_cast<frmMsgBox&>(form).labNote);
    world->click(dynamic_cast<frmMsgBox&>(form).cmdYes);
  });
  screen.close();
  EXPECT_EQ(question, "您真的要关闭该程序吗?      ");
  EXPECT_TRUE(left());
}

class PanelMenuTest : public PanelFixture {
 protected:
  void SetUp() override {
    PanelFixture::SetUp();
    world->answerDialogs([this](ui::Form& form) {
      ++dialogs;
      if (auto* box = dynamic_cast<frmMsgBox*>(&form)) {
        question = world->text(box->labNote);
        world->click(sayYes ? box->cmdYes : box->cmdNo);
      } else {
        world->close(form);
      }
    });
  }
  bool left() { return trace.take().find("quit") != std::string::npos; }
  int dialogs = 0;
  bool sayYes = false;
  std::string question;
};

TEST_F(PanelMenuTest, TheMenuButtonOpensTheEntriesOfTheTray) {
  EXPECT_EQ(world->text(main.cmdMenu), "菜单(&M)");
  world->answerMenu(main, -1);
  world->click(main.cmdMenu);
  EXPECT_EQ(world->menuShown, "设置(&O)...|-|使用说明(&H)|关于泰思维(&A)...|-|退出(&X)");
  world->answerMenu(main, -1);
  world->mnemonic(main, 'M');
  EXPECT_EQ(world->menuShown, "设置(&O)...|-|使用说明(&H)|关于泰思维(&A)...|-|退出(&X)");
}

TEST_F(PanelMenuTest, TheBackgroundsMenuHidesThePanelOrLeaves) {
  world->answerMenu(main, 0);
  world->mouse(main, {MouseButton::right, 30, 30});
  EXPECT_EQ(world->menuShown, "隐藏控制面板(&H)|-|退出(&X)");
  EXPECT_FALSE(world->isVisible(main));
  main.show();
  world->answerMenu(main, 1);
  world->mouse(main, {MouseButton::right, 30, 30});
  EXPECT_EQ(question, "您真的要关闭该程序吗?      ");
  EXPECT_FALSE(left());
}

TEST_F(PanelMenuTest, TheLeftButtonOpensNoMenu) {
  int popups = 0;
  main.onPopup.listen([&popups](ui::MenuItem&) { ++popups; });
  world->mouse(main, {MouseButton::left, 30, 30});
  EXPECT_EQ(popups, 0);
}

TEST_F(PanelMenuTest, BothExitEntriesAskAndOnlyYesLeaves) {
  main.mnuExit.choose();
  main.mnuExit2.choose();
  EXPECT_EQ(dialogs, 2);
  EXPECT_FALSE(left());
  sayYes = true;
  main.mnuExit.choose();
  EXPECT_TRUE(left());
}

TEST_F(PanelMenuTest, TheSecondExitEntryLeavesToo) {
  sayYes = true;
  main.mnuExit2.choose();
  EXPECT_TRUE(left());
}

TEST_F(PanelMenuTest, TheHelpEntryOpensTheHelpPage) {
  main.mnuFAQ.choose();
  EXPECT_EQ(shell.opened, std::vector<std::string>{"C:\\Help.htm|"});
}

TEST_F(PanelMenuTest, TheAboutEntryShowsTheAboutBox) {
  main.mnuAbout.choose();
  EXPECT_EQ(dialogs, 1);
  EXPECT_EQ(question, "");
}

TEST_F(PanelMenuTest, TheSettingsEntryAsksForTheSettingsDialog) {
  int wanted = 0;
  controler.configFaceWanted.listen([&wanted] { ++wanted; });
  main.mnuConfig.choose();
  EXPECT_EQ(wanted, 1);
}

TEST_F(PanelMenuTest, TheEndOfTheSessionLeavesWithoutAQuestion) {
  main.onEndSession.raise();
  EXPECT_TRUE(left());
  EXPECT_EQ(dialogs, 0);
}

}  // namespace
}  // namespace tessivo
