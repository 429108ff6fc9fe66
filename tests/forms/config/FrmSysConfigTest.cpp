#include "config/frmSysConfig.h"

#include <gtest/gtest.h>

#include "data/DataAccess.h"
#include "fakes/EmptyDatabase.h"
#include "fakes/FakeAccounts.h"
#include "fakes/FakeLog.h"
#include "fakes/FakeRegistry.h"
#include "fakes/FakeShell.h"
#include "fakes/TempFolder.h"
#include "fakes/Trace.h"
#include "fakes/VirtualTime.h"
#include "forms/FormWorld.h"
#include "forms/TestForm.h"
#include "ui/Mnemonics.h"
#include "ui/TabOrder.h"

namespace tessivo {
namespace {

constexpr ui::KeyCode kTab = 9;
constexpr ui::KeyCode kEnter = 13;
constexpr ui::KeyCode kEscape = 27;
constexpr ui::KeyCode kF1 = 112;

/// The program behind the dialog: notes what it is asked.
struct FakeHost : SysConfigHost {
  explicit FakeHost(Trace& t) : trace(t) {}
  const SysConfig& config() const override { return settings; }
  std::vector<std::string> screenSaverNames() override {
    trace.add("names");
    return names;
  }
  void saveRunPram(const RunParameter& parameter) override {
    trace.add("saved");
    saved = parameter;
  }
  void previewAScrSavProcByName(const std::string& name) override { trace.add("preview " + name); }
  void showScreenSaverSettings(ui::Form&, const std::string& name, std::int32_t left,
                               std::int32_t top) override {
    trace.add("settings of " + name + " at " + std::to_string(left) + ',' + std::to_string(top));
    if (whileSettings) whileSettings();
  }

  Trace& trace;
  SysConfig settings;
  std::vector<std::string> names{"时钟", "图片欣赏"};
  RunParameter saved;
  std::function<void()> whileSettings;  ///< while a program's settings are open
};

class FrmSysConfigTest : public testing::Test {
 protected:
  void SetUp() override {
    world->toolkit().open(owner);
    owner.show();
    accounts.local = {"Administrators"};
    host.settings.boolPlayNextOnErr(true);
    host.settings.boolPopuMainFaceForErr(false);
    host.settings.boolSavePlayList(true);
    host.settings.boolScreenSaver(true);
    host.settings.lngSSDelayMinute(12);
    host.settings.strScrSavProcName("图片欣赏");
    prepareEmptyDatabase(database, log);
    addType(".avi", "AVI 视频");
    addType(".mp3", "MP3 音频");
    addType(".wav", "WAV 音频");
    registry.putClass(".avi", "Tessivo.avi");
    registry.putClass(".mp3", "Other");
    registry.putClass(".wav", "Third");
    registry.putClass("Other", "x");
  }
  void addType(const std::string& extension, const std::string& description) {
    const auto rows = DataAccess().objrsGetRecordSet("select * from file_association", database);
    rows->addNew();
    rows->setValue("app_association", Value(extension));
    rows->setValue("description_info", Value(description));
    rows->setValue("app_id", Value("Tessivo" + extension));
    rows->setValue("old_app_id", Value(std::string("Other")));
    rows->update();
  }
  void addConfiguration() const {
    const auto rows =
        DataAccess().objrsGetRecordSet("select * from file_association_config", database);
    rows->addNew();
    rows->setValue("main_app_file_name", Value(std::string("Tessivo.exe")));
    rows->setValue("main_default_ico_file_name", Value(std::string("Media.ico")));
    rows->setValue("menu_handler_guid", Value(std::string("{1-2}")));
    rows->setValue("menu_handler_name", Value(std::string("Menu")));
    rows->update();
  }
  std::string oldIds() const {
    std::string all;
    const auto rows = DataAccess().objrsGetRecordSet(
        "select * from file_association order by app_association", database);
    for (; !rows->eof(); rows->moveNext()) all += asText(rows->value("old_app_id")) + '|';
    return all;
  }
  void showWhile(const std::function<void()>& meanwhile) {
    world->answerDialogs([meanwhile](ui::Form&) { meanwhile(); });
    dialog.showOver(world->toolkit(), owner);
  }
  void openAssociations() {
    world->chooseTab(dialog.sstTab, 2);
    time.advance(1000);
  }
  std::string ticks() {
    std::string all;
    for (int row = 0; row < world->rowCount(dialog.lvFileAssociationList); ++row) {
      all += world->isTicked(dialog.lvFileAssociationList, row) ? '1' : '0';
    }
    return all;
  }
  /// With the second tab, and what the user does there.
  void saveAfter(const std::function<void()>& change) {
    showWhile([this, change] {
      openAssociations();
      change();
      world->click(dialog.cmdSave);
      time.advance(1000);
      EXPECT_FALSE(dialog.visible());
    });
  }
  std::string enabledButtons() {
    std::string all;
    for (ui::Button* button : {&dialog.cmdAssociaAll, &dialog.cmdNoAssociaAll,
                               &dialog.cmdAssociaDefault, &dialog.cmdSave, &dialog.cmdCancel}) {
      all += world->isEnabled(*button) ? '1' : '0';
    }
    return all;
  }

  std::unique_ptr<ui::FormWorld> world = ui::makeFormWorld();
  Trace trace;
  VirtualTime time;
  FakeLog log;
  FakeRegistry registry;
  FakeAccounts accounts;
  FakeShell shell;
  TempFolder folder;
  std::string database = folder.file("SysConfig");
  FakeHost host{trace};
  ui::TestForm owner;
  frmSysConfig dialog{
      {world->toolkit(), time, shell, registry, accounts, log, database, "C:\\A B"}, {}, host};
};

TEST_F(FrmSysConfigTest, IsADialogOfFixedSizeInFrontOfItsOwner) {
  owner.setTopmost(true);
  showWhile([this] {
    EXPECT_TRUE(dialog.controlBox());
    EXPECT_FALSE(dialog.minButton());
    EXPECT_FALSE(dialog.maxButton());
    EXPECT_EQ(dialog.frameStyle() & ui::frame::kSizingFrame, 0U);
    EXPECT_EQ(dialog.owner(), &owner);
    EXPECT_TRUE(dialog.topmost());
    EXPECT_TRUE(dialog.chkOnPlayErrContinuePlay.hasFocus());
  });
  owner.setTopmost(false);
  showWhile([this] { EXPECT_FALSE(dialog.topmost()); });
}

// The first tab

TEST_F(FrmSysConfigTest, ShowsTheSettings) {
  showWhile([this] {
    EXPECT_EQ(world->text(dialog), "设置");
    EXPECT_TRUE(world->isChecked(dialog.chkOnPlayErrContinuePlay));
    EXPECT_FALSE(world->isChecked(dialog.chkOnPlayErrShowMainFace));
    EXPECT_TRUE(world->isChecked(dialog.chkSavePlayList));
    EXPECT_TRUE(world->isChecked(dialog.chkOpenScrSav));
    EXPECT_EQ(world->chosenEntry(dialog.cmbScrSavProcName), 1);
    EXPECT_EQ(world->chosenEntry(dialog.cmbRunScrSavDelayMinute), 11);
    EXPECT_TRUE(world->isVisible(dialog.Picture1));
    EXPECT_FALSE(world->isVisible(dialog.Picture2));
    EXPECT_FALSE(world->isVisible(dialog.picNote1));
    EXPECT_TRUE(world->hasFocus(dialog.chkOnPlayErrContinuePlay));
  });
  EXPECT_TRUE(world->isEnabled(owner));
}

TEST_F(FrmSysConfigTest, EachTickIsItsOwnSetting) {
  host.settings.boolPlayNextOnErr(false);
  host.settings.boolPopuMainFaceForErr(true);
  host.settings.boolSavePlayList(false);
  host.settings.boolScreenSaver(false);
  showWhile([this] {
    EXPECT_FALSE(world->isChecked(dialog.chkOnPlayErrContinuePlay));
    EXPECT_TRUE(world->isChecked(dialog.chkOnPlayErrShowMainFace));
    EXPECT_FALSE(world->isChecked(dialog.chkSavePlayList));
    EXPECT_FALSE(world->isChecked(dialog.chkOpenScrSav));
  });
}

TEST_F(FrmSysConfigTest, TheDelaysAreOneTo1500Minutes) {
  showWhile([this] {
    EXPECT_EQ(world->entryCount(dialog.cmbRunScrSavDelayMinute), 1500);
    const auto& items = dialog.cmbRunScrSavDelayMinute.items();
    EXPECT_EQ(items.front().text, "1");
    EXPECT_EQ(items.front().data, 1);
    EXPECT_EQ(items.back().text, "1500");
    EXPECT_EQ(items.back().data, 1500);
  });
}

TEST_F(FrmSysConfigTest, TheControlsAreFilledOnce) {
  showWhile([this] {
    dialog.onResize.raise();
    EXPECT_EQ(world->entryCount(dialog.cmbRunScrSavDelayMinute), 1500);
    EXPECT_EQ(world->entryCount(dialog.cmbScrSavProcName), 2);
  });
  EXPECT_EQ(trace.take(), "names");
}

TEST_F(FrmSysConfigTest, WithoutTheScreenSaverItsControlsAreOff) {
  const auto on = [this] {
    const bool name = world->isEnabled(dialog.cmbScrSavProcName);
    EXPECT_EQ(world->isEnabled(dialog.cmbRunScrSavDelayMinute), name);
    EXPECT_EQ(world->isEnabled(dialog.cmdPramSet), name);
    EXPECT_EQ(world->isEnabled(dialog.cmdPreviewSS), name);
    return name;
  };
  showWhile([&] {
    EXPECT_TRUE(on());
    world->click(dialog.chkOpenScrSav);
    EXPECT_FALSE(on());
    world->click(dialog.chkOpenScrSav);
    EXPECT_TRUE(on());
  });
}

TEST_F(FrmSysConfigTest, SwitchedOffAtFirstTheyAreOffAtFirst) {
  host.settings.boolScreenSaver(false);
  showWhile([this] { EXPECT_FALSE(world->isEnabled(dialog.cmdPramSet)); });
}

TEST_F(FrmSysConfigTest, TheProgramsSettingsOpenInTheMiddleOfTheDialog) {
  showWhile([this] {
    dialog.setBounds({1515, 3015, 7515, 6315});
    trace.take();
    world->click(dialog.cmdPramSet);
    EXPECT_EQ(trace.take(), "settings of 图片欣赏 at 5272,6172");  // both of a half, to the even
  });
}

TEST_F(FrmSysConfigTest, PreviewsTheChosenProgram) {
  showWhile([this] {
    world->choose(dialog.cmbScrSavProcName, 0);
    trace.take();
    world->click(dialog.cmdPreviewSS);
    EXPECT_EQ(trace.take(), "preview 时钟");
  });
}

TEST_F(FrmSysConfigTest, WithoutAChosenProgramThereIsNothingToSetOrPreview) {
  host.settings.strScrSavProcName(" ");
  host.names = {"时钟", "  "};
  showWhile([this] {
    trace.take();
    EXPECT_EQ(world->chosenEntry(dialog.cmbScrSavProcName), -1);
    world->click(dialog.cmdPramSet);
    world->click(dialog.cmdPreviewSS);
    world->choose(dialog.cmbScrSavProcName, 1);  // blanks
    world->click(dialog.cmdPramSet);
    world->click(dialog.cmdPreviewSS);
    EXPECT_EQ(trace.take(), "");
  });
}

TEST_F(FrmSysConfigTest, ShownAgainItsListsHoldTheirEntriesOnce) {
  for (int showing = 0; showing < 3; ++showing) {
    showWhile([this] {
      EXPECT_EQ(world->entryCount(dialog.cmbRunScrSavDelayMinute), 1500);
      EXPECT_EQ(world->entryCount(dialog.cmbScrSavProcName), 2);
      EXPECT_EQ(world->chosenEntry(dialog.cmbScrSavProcName), 1);
      EXPECT_EQ(world->chosenEntry(dialog.cmbRunScrSavDelayMinute), 11);
      world->click(dialog.cmdSave);
    });
    EXPECT_EQ(host.saved.lngSSDelayMinute, 12);
  }
}

// Saving and cancelling

TEST_F(FrmSysConfigTest, TheStoredNameIsKeptAsLongAsItsEntryIsChosen) {
  host.names = {"Clock", "Pictures"};
  host.settings.strScrSavProcName("PICTURES");
  showWhile([this] {
    EXPECT_EQ(world->chosenEntry(dialog.cmbScrSavProcName), 1);
    world->choose(dialog.cmbScrSavProcName, 0);
    world->choose(dialog.cmbScrSavProcName, 1);
    world->click(dialog.cmdSave);
  });
  EXPECT_EQ(host.saved.strScrSavProcName, "PICTURES");
  showWhile([this] {
    world->choose(dialog.cmbScrSavProcName, 0);
    world->click(dialog.cmdSave);
  });
  EXPECT_EQ(host.saved.strScrSavProcName, "Clock");
}

TEST_F(FrmSysConfigTest, SavingTakesWhatTheUserChanged) {
  showWhile([this] {
    world->click(dialog.chkOnPlayErrContinuePlay);
    world->click(dialog.chkOnPlayErrShowMainFace);
    world->click(dialog.chkSavePlayList);
    world->choose(dialog.cmbScrSavProcName, 0);
    world->choose(dialog.cmbRunScrSavDelayMinute, 1499);
    world->click(dialog.cmdSave);
    EXPECT_FALSE(dialog.visible());
  });
  EXPECT_FALSE(host.saved.boolPlayNextOnErr);
  EXPECT_TRUE(host.saved.boolPopuMainFaceForErr);
  EXPECT_FALSE(host.saved.boolSavePlayList);
  EXPECT_TRUE(host.saved.boolScreenSaver);
  EXPECT_EQ(host.saved.lngSSDelayMinute, 1500);
  EXPECT_EQ(host.saved.strScrSavProcName, "时钟");
}

TEST_F(FrmSysConfigTest, SavingUntouchedSavesWhatWasThere) {
  showWhile([this] { world->click(dialog.cmdSave); });
  EXPECT_TRUE(host.saved.boolPlayNextOnErr);
  EXPECT_FALSE(host.saved.boolPopuMainFaceForErr);
  EXPECT_TRUE(host.saved.boolSavePlayList);
  EXPECT_TRUE(host.saved.boolScreenSaver);
  EXPECT_EQ(host.saved.lngSSDelayMinute, 12);
  EXPECT_EQ(host.saved.strScrSavProcName, "图片欣赏");
}

TEST_F(FrmSysConfigTest, WhatIsNotAmongTheEntriesStaysAsItWas) {
  host.settings.lngSSDelayMinute(0);
  host.settings.strScrSavProcName("gone");
  showWhile([this] {
    EXPECT_EQ(world->chosenEntry(dialog.cmbRunScrSavDelayMinute), -1);
    EXPECT_EQ(world->chosenEntry(dialog.cmbScrSavProcName), -1);
    world->click(dialog.cmdSave);
  });
  EXPECT_EQ(host.saved.lngSSDelayMinute, 0);
  EXPECT_EQ(host.saved.strScrSavProcName, "gone");
}

TEST_F(FrmSysConfigTest, SavingWithoutTheSecondTabTouchesNeitherRegistryNorTable) {
  showWhile([this] { world->click(dialog.cmdSave); });
  EXPECT_EQ(registry.calls, 0);
  EXPECT_EQ(oldIds(), "Other|Other|Other|");
  EXPECT_EQ(time.running(), 0U);
}

TEST_F(FrmSysConfigTest, CancelEscapeAndTheCloseBoxSaveNothing) {
  const std::function<void()> ways[] = {[this] { world->click(dialog.cmdCancel); },
                                        [this] { world->key(dialog, dialog.cmdSave, kEscape); },
                                        [this] { world->close(dialog); }};
  for (const auto& leave : ways) {
    showWhile([&] {
      world->click(dialog.chkSavePlayList);
      leave();
      EXPECT_FALSE(dialog.visible());
    });
  }
  EXPECT_EQ(trace.take().find("saved"), std::string::npos);
}

// The second tab

TEST_F(FrmSysConfigTest, TheSecondTabReadsTheAssociationsASecondLater) {
  showWhile([this] {
    world->chooseTab(dialog.sstTab, 2);
    EXPECT_EQ(enabledButtons(), "00000");
    EXPECT_TRUE(world->isVisible(dialog.picNote1));
    EXPECT_EQ(world->text(dialog.labNote1), "正在读取文件关联。。。");
    time.advance(999);
    EXPECT_EQ(registry.calls, 0);
    time.advance(1);
    EXPECT_EQ(registry.calls, 3);
    EXPECT_EQ(enabledButtons(), "11111");
    EXPECT_FALSE(world->isVisible(dialog.picNote1));
    EXPECT_FALSE(world->isVisible(dialog.labFigureNote));
    EXPECT_TRUE(world->isVisible(dialog.Picture2));
    EXPECT_FALSE(world->isVisible(dialog.Picture1));
    EXPECT_EQ(ticks(), "100");
    EXPECT_EQ(world->cell(dialog.lvFileAssociationList, 1, 0), ".mp3");
    EXPECT_EQ(world->cell(dialog.lvFileAssociationList, 1, 1), "MP3 音频");
    EXPECT_EQ(dialog.pointerShape(), ui::PointerShape::standard);
    time.advance(5000);
    EXPECT_EQ(registry.calls, 3);
  });
}

TEST_F(FrmSysConfigTest, TheWaitNotesTextAndBackgroundAreColoursOfThePrograms) {
  EXPECT_TRUE(dialog.labNote1.foreColour());
  EXPECT_TRUE(dialog.labNote1.backColour());
  EXPECT_EQ(dialog.labNote1.backColour(), dialog.picNote1.backColour());
}

TEST_F(FrmSysConfigTest, TheAssociationsAreReadOnce) {
  showWhile([this] {
    openAssociations();
    world->tickRow(dialog.lvFileAssociationList, 1);
    world->chooseTab(dialog.sstTab, 1);
    EXPECT_TRUE(world->isVisible(dialog.Picture1));
    world->chooseTab(dialog.sstTab, 2);
    time.advance(2000);
    EXPECT_EQ(registry.calls, 3);
    EXPECT_EQ(ticks(), "110");
  });
}

TEST_F(FrmSysConfigTest, WhileItReadsThereIsNoWayOut) {
  showWhile([this] {
    world->chooseTab(dialog.sstTab, 2);
    world->close(dialog);
    world->key(dialog, dialog.cmdHelp, kEscape);
    EXPECT_TRUE(dialog.visible());
    time.advance(1000);
    world->close(dialog);
    EXPECT_FALSE(dialog.visible());
  });
}

TEST_F(FrmSysConfigTest, WhatWasReadOnceIsForgottenAtTheNextShowing) {
  showWhile([this] {
    openAssociations();
    world->click(dialog.cmdCancel);
  });
  registry.calls = 0;
  showWhile([this] {
    world->click(dialog.cmdSave);
    EXPECT_FALSE(dialog.visible());
  });
  time.advance(5000);
  EXPECT_EQ(registry.calls, 0);
}

TEST_F(FrmSysConfigTest, OverAWindowThatStaysOnTopItDoesToo) {
  owner.setTopmost(true);
  showWhile([this] { EXPECT_TRUE(dialog.topmost()); });
}

TEST_F(FrmSysConfigTest, TheButtonsTickAllNoneAndWhatWasRead) {
  showWhile([this] {
    openAssociations();
    world->click(dialog.cmdAssociaAll);
    EXPECT_EQ(ticks(), "111");
    world->click(dialog.cmdNoAssociaAll);
    EXPECT_EQ(ticks(), "000");
    world->click(dialog.cmdAssociaDefault);
    EXPECT_EQ(ticks(), "100");
    EXPECT_EQ(registry.calls, 3);
  });
}

TEST_F(FrmSysConfigTest, SavingAppliesTheTicksASecondLaterAndCloses) {
  registry.putClass("Second", "x");
  showWhile([this] {
    openAssociations();
    world->tickRow(dialog.lvFileAssociationList, 0);  // off
    world->tickRow(dialog.lvFileAssociationList, 1);  // on
    registry.calls = 0;
    world->click(dialog.cmdSave);
    EXPECT_EQ(enabledButtons(), "00000");
    EXPECT_TRUE(world->isVisible(dialog.picNote1));
    EXPECT_EQ(world->text(dialog.labNote1), "正在保存数据。。。");
    world->close(dialog);
    EXPECT_TRUE(dialog.visible());
    time.advance(999);
    EXPECT_EQ(registry.calls, 0);
    EXPECT_EQ(shell.changes, 0);
    EXPECT_TRUE(dialog.visible());
    time.advance(1);
    EXPECT_EQ(shell.changes, 1);
    EXPECT_FALSE(dialog.visible());
  });
  EXPECT_EQ(registry.classValue(".avi"), "Other");
  EXPECT_EQ(registry.classValue(".mp3"), "Tessivo.mp3");
  EXPECT_EQ(registry.classValue(".wav"), "Third");
  EXPECT_EQ(oldIds(), "Other|Other|Other|");
  EXPECT_NE(trace.take().find("saved"), std::string::npos);
}

TEST_F(FrmSysConfigTest, SavingKeepsWhoHadTheExtensionBefore) {
  showWhile([this] {
    openAssociations();
    world->tickRow(dialog.lvFileAssociationList, 2);
    world->click(dialog.cmdSave);
    time.advance(1000);
  });
  EXPECT_EQ(registry.classValue(".wav"), "Tessivo.wav");
  EXPECT_EQ(oldIds(), "Other|Other|Third|");
}

TEST_F(FrmSysConfigTest, SavingAnUntouchedSecondTabChangesNothing) {
  addType(".mkv", "Matroska");  // nobody has it
  const auto values = registry.values;
  const auto keys = registry.keys;
  const std::string before = oldIds();
  saveAfter([this] { EXPECT_EQ(ticks(), "1000"); });
  EXPECT_EQ(registry.values, values);
  EXPECT_EQ(registry.keys, keys);
  EXPECT_EQ(oldIds(), before);
  EXPECT_EQ(shell.changes, 0);
  EXPECT_EQ(log.lines.back(), "info file associations saved: 0 changed, 0 not as ticked");
}

TEST_F(FrmSysConfigTest, AnExtensionThatNobodyHasIsRegisteredWithAllThatBelongsToIt) {
  addConfiguration();
  addType(".mkv", "Matroska");
  saveAfter([this] { world->tickRow(dialog.lvFileAssociationList, 1); });
  EXPECT_EQ(registry.classValue(".mkv"), "Tessivo.mkv");
  EXPECT_EQ(registry.classValue("Tessivo.mkv"), "0");
  EXPECT_EQ(registry.classValue("Tessivo.mkv\\shell\\open\\command"),
            "\"C:\\A B\\Tessivo.exe\" %1");
  EXPECT_EQ(oldIds(), "Other|Tessivo.mkv|Other|Other|");
  EXPECT_EQ(shell.changes, 1);
  EXPECT_EQ(log.lines.back(), "info file associations saved: 1 changed, 0 not as ticked");
}

/// Registered anew, the type would forget who had it.
TEST_F(FrmSysConfigTest, AnExtensionThatIsOursStillKnowsWhoHadIt) {
  saveAfter([this] { world->tickRow(dialog.lvFileAssociationList, 1); });
  EXPECT_EQ(registry.classValue(".avi"), "Tessivo.avi");
  EXPECT_FALSE(registry.hasClass("Tessivo.avi"));
  EXPECT_EQ(oldIds(), "Other|Other|Other|");
}

TEST_F(FrmSysConfigTest, AnExtensionThatIsGoneMeanwhileIsLeftAloneUnlessItsTickChanges) {
  saveAfter([this] {
    registry.values.erase("0\\.AVI\\");
    registry.values.erase("0\\.MP3\\");
    world->tickRow(dialog.lvFileAssociationList, 1);
  });
  EXPECT_EQ(registry.classValue(".avi"), "-");
  EXPECT_EQ(registry.classValue(".mp3"), "Tessivo.mp3");
  EXPECT_TRUE(registry.hasClass("Tessivo.mp3\\shell\\open\\command"));
}

TEST_F(FrmSysConfigTest, WhatIsRegisteredNamesTheProgramItsIconAndItsMenuHandler) {
  addConfiguration();
  saveAfter([this] { world->tickRow(dialog.lvFileAssociationList, 1); });
  const std::string id = "Tessivo.mp3";
  EXPECT_EQ(registry.classValue(id + "\\shell\\open\\command"), "\"C:\\A B\\Tessivo.exe\" %1");
  EXPECT_EQ(registry.classValue(id + "\\DefaultIcon"), "C:\\A B\\Media.ico");
  EXPECT_EQ(registry.classValue(id + "\\shellex\\ContextMenuHandlers\\Menu"), "{1-2}");
}

TEST_F(FrmSysConfigTest, WhatTheRegistryRefusesIsLogged) {
  addType(".mkv", "Matroska");
  saveAfter([this] {
    world->tickRow(dialog.lvFileAssociationList, 0);  // off
    world->tickRow(dialog.lvFileAssociationList, 1);
    world->tickRow(dialog.lvFileAssociationList, 2);
    registry.refusesWrites = true;
    log.lines.clear();
  });
  EXPECT_EQ(log.lines, (std::vector<std::string>{
                           "error file type .avi could not be handed back, it belongs to "
                           "\"Tessivo.avi\"",
                           "error file type .mkv could not be associated, it belongs to \"\"",
                           "error file type .mp3 could not be associated, it belongs to \"Other\"",
                           "info file associations saved: 0 changed, 3 not as ticked"}));
  EXPECT_EQ(shell.changes, 0);
}

TEST_F(FrmSysConfigTest, TheWaitIsShownByThePointerToo) {
  std::vector<ui::PointerShape> shapes;
  registry.whenCalled = [&] { shapes.push_back(dialog.pointerShape()); };
  const auto allBusy = [&] {
    const auto seen = std::exchange(shapes, {});
    return !seen.empty() && std::ranges::count(seen, ui::PointerShape::busy) == std::ssize(seen);
  };
  showWhile([&] {
    openAssociations();
    EXPECT_TRUE(allBusy());
    EXPECT_EQ(dialog.pointerShape(), ui::PointerShape::standard);
    world->click(dialog.cmdSave);
    EXPECT_EQ(dialog.pointerShape(), ui::PointerShape::standard);
    time.advance(1000);
    EXPECT_TRUE(allBusy());
    EXPECT_EQ(dialog.pointerShape(), ui::PointerShape::standard);
  });
}

TEST_F(FrmSysConfigTest, WhileItSavesNothingCanBeChanged) {
  const auto parts = {static_cast<ui::Control*>(&dialog.sstTab),
                      static_cast<ui::Control*>(&dialog.Picture1),
                      static_cast<ui::Control*>(&dialog.Picture2)};
  showWhile([&] {
    openAssociations();
    dialog.lvFileAssociationList.setFocus();
    for (const ui::Control* part : parts) EXPECT_TRUE(world->isEnabled(*part)) << part->name();
    world->key(dialog, dialog.lvFileAssociationList, kEnter);
    for (const ui::Control* part : parts) EXPECT_FALSE(world->isEnabled(*part)) << part->name();
    EXPECT_TRUE(dialog.cmdHelp.hasFocus());
    world->key(dialog, dialog.cmdHelp, kTab, true);
    EXPECT_EQ(world->selectedTab(dialog.sstTab), 2);
    time.advance(1000);
  });
  showWhile([&] {
    for (const ui::Control* part : parts) EXPECT_TRUE(world->isEnabled(*part)) << part->name();
  });
}

// Leaving the program meanwhile

TEST_F(FrmSysConfigTest, WhenItGoesWhileItReadsNothingIsReadAnyMore) {
  showWhile([this] {
    world->chooseTab(dialog.sstTab, 2);
    owner.unload();  // which takes its dialogs along
    EXPECT_FALSE(dialog.isOpen());
  });
  EXPECT_EQ(time.running(), 0U);
  time.advance(5000);
  EXPECT_EQ(registry.calls, 0);
}

TEST_F(FrmSysConfigTest, WhenItGoesDuringTheWaitWhatWasSavedIsCarriedOut) {
  showWhile([this] {
    openAssociations();
    world->tickRow(dialog.lvFileAssociationList, 1);
    world->click(dialog.cmdSave);
    EXPECT_EQ(registry.classValue(".mp3"), "Other");
    owner.unload();
    EXPECT_FALSE(dialog.isOpen());
  });
  EXPECT_EQ(registry.classValue(".mp3"), "Tessivo.mp3");
  EXPECT_EQ(shell.changes, 1);
  EXPECT_EQ(time.running(), 0U);
  time.advance(5000);
  EXPECT_EQ(shell.changes, 1);
}

TEST_F(FrmSysConfigTest, WhenItGoesUnsavedNothingIsCarriedOut) {
  showWhile([this] {
    openAssociations();
    world->tickRow(dialog.lvFileAssociationList, 1);
    owner.unload();
  });
  EXPECT_EQ(registry.classValue(".mp3"), "Other");
  EXPECT_EQ(trace.take().find("saved"), std::string::npos);
}

TEST_F(FrmSysConfigTest, ItMayGoWhileAProgramsSettingsAreOpenOverIt) {
  host.whileSettings = [this] { owner.unload(); };
  showWhile([this] {
    world->click(dialog.cmdPramSet);
    EXPECT_FALSE(dialog.isOpen());
    EXPECT_FALSE(dialog.visible());
  });
  EXPECT_EQ(time.running(), 0U);
}

TEST_F(FrmSysConfigTest, ARowThatIsMissingIsPassedOver) {
  showWhile([this] {
    openAssociations();
    dialog.lvFileAssociationList.remove(0);
    world->tickRow(dialog.lvFileAssociationList, 0);  // .mp3 now
    world->click(dialog.cmdSave);
    time.advance(1000);
  });
  EXPECT_EQ(registry.classValue(".avi"), "Tessivo.avi");
  EXPECT_EQ(registry.classValue(".mp3"), "Tessivo.mp3");
}

TEST_F(FrmSysConfigTest, CancellingChangesNoAssociation) {
  showWhile([this] {
    openAssociations();
    world->click(dialog.cmdAssociaAll);
    world->click(dialog.cmdCancel);
  });
  time.advance(5000);
  EXPECT_EQ(registry.calls, 3);
  EXPECT_EQ(registry.classValue(".mp3"), "Other");
}

TEST_F(FrmSysConfigTest, WhoIsNoAdministratorLooksOnly) {
  accounts.local = {"Users"};
  showWhile([this] {
    openAssociations();
    EXPECT_TRUE(world->isVisible(dialog.labFigureNote));
    EXPECT_EQ(enabledButtons(), "00011");
    EXPECT_EQ(ticks(), "100");
    world->tickRow(dialog.lvFileAssociationList, 0);
    world->tickRow(dialog.lvFileAssociationList, 1);
    EXPECT_EQ(ticks(), "100");
    registry.calls = 0;
    world->click(dialog.cmdSave);
    EXPECT_FALSE(dialog.visible());
  });
  time.advance(5000);
  EXPECT_EQ(registry.calls, 0);
  EXPECT_NE(trace.take().find("saved"), std::string::npos);
}

TEST_F(FrmSysConfigTest, TheUsersRightsAreAskedAtEachShowing) {
  accounts.local = {"Users"};
  showWhile([] {});
  accounts.local = {"Administrators"};
  showWhile([this] {
    openAssociations();
    EXPECT_FALSE(world->isVisible(dialog.labFigureNote));
  });
  EXPECT_EQ(accounts.asked.size(), 2U);
}

// Layout

TEST_F(FrmSysConfigTest, NothingOverlapsOrReachesOutOfItsPage) {
  const auto overlap = [](const Rect& a, const Rect& b) {
    return a.left < b.left + b.width && b.left < a.left + a.width && a.top < b.top + b.height &&
           b.top < a.top + a.height;
  };
  const auto check = [&](const std::vector<ui::Control*>& controls, std::int32_t width,
                         std::int32_t height) {
    for (std::size_t i = 0; i < controls.size(); ++i) {
      const Rect& bounds = controls[i]->bounds();
      EXPECT_TRUE(bounds.left >= 0 && bounds.top >= 0 && bounds.width > 0 && bounds.height > 0 &&
                  bounds.left + bounds.width <= width && bounds.top + bounds.height <= height)
          << controls[i]->name();
      for (std::size_t j = 0; j < i; ++j) {
        EXPECT_FALSE(overlap(bounds, controls[j]->bounds()))
            << controls[i]->name() << ' ' << controls[j]->name();
      }
    }
  };
  showWhile([&] {
    auto& d = dialog;
    check({&d.sstTab, &d.Picture1, &d.cmdHelp, &d.cmdSave, &d.cmdCancel}, d.scaleWidth(),
          d.scaleHeight());
    EXPECT_EQ(d.Picture2.bounds(), d.Picture1.bounds());
    // All that is on a page, so that nothing new is left out.
    for (const auto* page : {&d.Picture1, &d.Picture2}) {
      ASSERT_FALSE(page->children().empty());
      check(page->children(), page->bounds().width, page->bounds().height);
    }
  });
}

// Help and keyboard

TEST_F(FrmSysConfigTest, HelpOpensAtThePlaceOfTheTab) {
  showWhile([this] {
    world->click(dialog.cmdHelp);
    openAssociations();
    world->key(dialog, dialog.cmdSave, kF1);
  });
  EXPECT_EQ(shell.opened,
            (std::vector<std::string>{"C:\\A B\\Help\\FunctionIntroduce.htm#Item3|",
                                      "C:\\A B\\Help\\FunctionIntroduce.htm#Item10|"}));
}

TEST_F(FrmSysConfigTest, CtrlAndTabChangesTheTab) {
  showWhile([this] {
    world->key(dialog, dialog.chkSavePlayList, kTab, true);
    EXPECT_EQ(world->selectedTab(dialog.sstTab), 2);
    EXPECT_TRUE(world->isVisible(dialog.Picture2));
    EXPECT_TRUE(dialog.sstTab.hasFocus());
    time.advance(1000);
    EXPECT_EQ(registry.calls, 3);
    world->key(dialog, dialog.lvFileAssociationList, kTab, true);
    EXPECT_EQ(world->selectedTab(dialog.sstTab), 1);
    EXPECT_TRUE(world->isVisible(dialog.Picture1));
  });
}

TEST_F(FrmSysConfigTest, EnterSavesUnlessTheKeyboardIsOnAButton) {
  const std::function<ui::Control&()> others[] = {
      [this]() -> ui::Control& { return dialog.chkSavePlayList; },
      [this]() -> ui::Control& { return dialog.cmbScrSavProcName; },
      [this]() -> ui::Control& { return dialog.sstTab; }};
  for (const auto& focus : others) {
    showWhile([&] {
      world->key(dialog, focus(), kEnter);
      EXPECT_FALSE(dialog.visible());
    });
    EXPECT_NE(trace.take().find("saved"), std::string::npos);
  }
  showWhile([this] {
    world->key(dialog, dialog.cmdPreviewSS, kEnter);
    EXPECT_TRUE(dialog.visible());
    world->key(dialog, dialog.cmdCancel, kEnter);
    EXPECT_FALSE(dialog.visible());
  });
  EXPECT_EQ(trace.take(), "names | preview 图片欣赏");
}

TEST_F(FrmSysConfigTest, AnEnterThatIsHeldSavesNothing) {
  showWhile([this] {
    EXPECT_TRUE(dialog.pressKey({kEnter, false, true, &dialog.chkSavePlayList, false}));
    EXPECT_TRUE(dialog.visible());
  });
}

TEST_F(FrmSysConfigTest, EveryLetterIsThatOfOneControl) {
  std::string letters;
  const std::function<void(const ui::Container&)> check = [&](const ui::Container& container) {
    for (ui::Control* child : container.children()) {
      if (!child->visible()) continue;
      if (const auto* inner = dynamic_cast<const ui::Container*>(child)) check(*inner);
      if (!dynamic_cast<ui::Button*>(child) && !dynamic_cast<ui::CheckBox*>(child)) continue;
      const std::string& caption = static_cast<const ui::Captioned*>(child)->caption();
      const auto mark = caption.find('&');
      ASSERT_LT(mark, caption.size() - 1) << child->name() << " has none";
      letters += caption[mark + 1];
      EXPECT_EQ(ui::controlOfMnemonic(dialog, static_cast<unsigned char>(letters.back())), child)
          << child->name();
    }
  };
  showWhile([&] {
    check(dialog);
    EXPECT_EQ(std::exchange(letters, ""), "NMKPTVHSC");
    openAssociations();
    check(dialog);
    EXPECT_EQ(letters, "AURHSC");
  });
}

TEST_F(FrmSysConfigTest, TabLeadsThroughThePageThatIsShown) {
  const auto order = [this] {
    const ui::Control* const first = ui::nextInTabOrder(dialog, nullptr, false);
    std::string names = first->name();
    for (const ui::Control* c = ui::nextInTabOrder(dialog, first, false); c != first;
         c = ui::nextInTabOrder(dialog, c, false)) {
      names += ' ' + c->name();
    }
    return names;
  };
  showWhile([&] {
    EXPECT_EQ(order(),
              "sstTab chkOnPlayErrContinuePlay chkOnPlayErrShowMainFace chkSavePlayList "
              "chkOpenScrSav cmbScrSavProcName cmbRunScrSavDelayMinute cmdPramSet cmdPreviewSS "
              "cmdHelp cmdSave cmdCancel");
    openAssociations();
    EXPECT_EQ(order(),
              "sstTab lvFileAssociationList cmdAssociaAll cmdNoAssociaAll cmdAssociaDefault "
              "cmdHelp cmdSave cmdCancel");
  });
}

}  // namespace
}  // namespace tessivo
