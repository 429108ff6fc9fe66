#include "app/ConfigFace.h"

#include "fakes/FakeRegistry.h"
#include "fakes/FakeShell.h"
#include "fakes/NoToolkit.h"
#include "unit/app/ControlerFixture.h"

namespace tessivo {
namespace {

class ConfigFaceTest : public ControlerFixture {
 protected:
  void SetUp() override {
    ControlerFixture::SetUp();
    files.folders["C:\\p\\SSP"] = {"clock.exe"};
  }
  void openWhile(std::function<void(frmSysConfig&)> meanwhile) {
    dialogs.whenModal = [meanwhile](ui::Form& dialog) {
      meanwhile(dynamic_cast<frmSysConfig&>(dialog));
    };
    face.open(owner);
  }

  FakeRegistry registry;
  FakeAccounts accounts;
  FakeShell shell;
  NoToolkit dialogs;
  ui::Form owner{"owner", "", {}};
  ConfigFace face{{dialogs, time, shell, registry, accounts, log, database, "C:\\p"},
                  time,
                  processes,
                  controler};
};

TEST_F(ConfigFaceTest, ShowsTheControlersSettingsAndSavesThere) {
  controler.config().boolPlayNextOnErr(true);
  openWhile([](frmSysConfig& dialog) {
    EXPECT_TRUE(dialog.chkOnPlayErrContinuePlay.checked());
    EXPECT_EQ(dialog.cmbScrSavProcName.items().size(), 1U);
    dialog.chkOnPlayErrContinuePlay.click();
    dialog.chkOpenScrSav.click();
    dialog.cmbScrSavProcName.choose(0);
    dialog.cmdSave.click();
  });
  EXPECT_FALSE(controler.config().boolPlayNextOnErr());
  EXPECT_EQ(controler.config().strScrSavProcName(), "clock");
  SysConfig stored;
  stored.strDBFilePath(database);
  ASSERT_TRUE(stored.boolGetData());
  EXPECT_EQ(stored.strScrSavProcName(), "clock");
}

/// A window that only notes that it comes to the front.
struct FrontPeer : ui::Peer {
  explicit FrontPeer(int& count) : fronts(count) {}
  void changed(ui::Aspect) override {}
  void bringToFront() override { ++fronts; }
  void setFocus() override {}
  void repaint() override {}
  WindowHandle nativeHandle() const override { return 0; }
  int& fronts;
};

TEST_F(ConfigFaceTest, TheWaitNoteComesInFrontOfThePages) {
  accounts.local = {"Administrators"};
  int fronts = 0;
  openWhile([&](frmSysConfig& dialog) {
    dialog.picNote1.attachPeer(std::make_unique<FrontPeer>(fronts));
    dialog.sstTab.choose(2);
    EXPECT_EQ(fronts, 1);
    time.advance(1000);
    EXPECT_EQ(fronts, 1);
    dialog.cmdSave.click();
    EXPECT_EQ(fronts, 2);
  });
}

TEST_F(ConfigFaceTest, OneDialogAtATime) {
  openWhile([this](frmSysConfig&) { face.open(owner); });
  EXPECT_EQ(dialogs.dialogs, 1);
  openWhile([](frmSysConfig&) {});
  EXPECT_EQ(dialogs.dialogs, 2);
}

TEST_F(ConfigFaceTest, PreviewsAndConfiguresAProgram) {
  controler.config().boolScreenSaver(true);
  controler.config().strScrSavProcName("clock");
  openWhile([this](frmSysConfig& dialog) {
    dialog.cmdPreviewSS.click();
    processes.run(400, "C:\\p\\SSP\\clock.exe");
    bool waited = false;
    dialogs.whenModal = [&](ui::Form& waiter) {
      time.advance(1000);
      waited = waiter.visible();
      processes.running.clear();
      time.advance(300);
      EXPECT_FALSE(waiter.visible());
    };
    dialog.setBounds({1500, 3000, 7500, 6300});
    dialog.cmdPramSet.click();
    EXPECT_TRUE(waited);
  });
  ASSERT_EQ(processes.started.size(), 2U);
  EXPECT_EQ(processes.started[0].arguments, "RUN##0##0##0##0##0## ");
  EXPECT_TRUE(processes.started[1].arguments.starts_with("SHOW_CONFIG_FACE##350##410##"));
}

}  // namespace
}  // namespace tessivo
