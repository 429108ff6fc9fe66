#include "config/FileAsoca.h"

#include <gtest/gtest.h>

#include "data/DataAccess.h"
#include "fakes/EmptyDatabase.h"
#include "fakes/FakeLog.h"
#include "fakes/FakeRegistry.h"
#include "fakes/TempFolder.h"
#include "unit/data/DataTestSupport.h"

namespace tessivo {
namespace {

const std::string kId = "Tessivo.mp3";

class FileAsocaTest : public testing::Test {
 protected:
  void SetUp() override { makeType(type); }
  static void makeType(FileAsoca& made) {
    made.strAppAsocaKeyName = ".mp3";
    made.strAppIdKeyName = kId;
    made.strDefaultAppIdKeyName1 = "First";
    made.strDefaultAppIdKeyName2 = "Second";
    made.strMainAppFilePath = "C:\\A B\\x.exe";
    made.strDefaultIcoFilePath = "C:\\A B\\media.ico";
    made.strMenuHandlerGUID = "{1-2}";
    made.strMenuHandlerName = "Tessivo";
  }
  void extensionOf(const std::string& identifier) { registry.putClass(".mp3", identifier); }
  void thereIs(const std::string& identifier) { registry.putClass(identifier, "its description"); }
  std::string owner() const { return registry.classValue(".mp3"); }
  bool hasIdKeys() const { return registry.hasClass(kId); }

  FakeRegistry registry;
  FileAsoca type{registry};
};

// Looking

TEST_F(FileAsocaTest, AnExtensionBelongsToUsWhateverTheCase) {
  extensionOf("TESSIVO.MP3");
  type.checkAssociationState();
  EXPECT_TRUE(type.boolAssociate());
  EXPECT_EQ(type.strCurrAppIdKeyName, "TESSIVO.MP3");
}

TEST_F(FileAsocaTest, AnExtensionOfAnotherProgramDoesNot) {
  extensionOf("Other");
  type.checkAssociationState();
  EXPECT_FALSE(type.boolAssociate());
  EXPECT_EQ(type.strCurrAppIdKeyName, "Other");
}

TEST_F(FileAsocaTest, AnExtensionThatCannotBeReadDoesNotAndTheLastOwnerStays) {
  extensionOf(kId);
  type.checkAssociationState();
  registry.failAt = -1;
  type.checkAssociationState();
  EXPECT_FALSE(type.boolAssociate());
  EXPECT_EQ(type.strCurrAppIdKeyName, kId);
}

TEST_F(FileAsocaTest, TheOwnerIsReadAnewAndNothingIsNoted) {
  EXPECT_EQ(type.owner(), std::nullopt);
  extensionOf("");
  EXPECT_EQ(type.owner(), "");
  extensionOf("Other");
  EXPECT_EQ(type.owner(), "Other");
  EXPECT_EQ(type.strCurrAppIdKeyName, "");
}

// Registering

TEST_F(FileAsocaTest, RegisteringTakesAnExtensionThatNobodyHas) {
  type.InitializeRegistry();
  EXPECT_EQ(owner(), kId);
  EXPECT_EQ(type.strCurrAppIdKeyName, kId);
  EXPECT_EQ(type.strOldAppIdKeyName, kId);
  EXPECT_TRUE(type.boolAssociate());
}

TEST_F(FileAsocaTest, RegisteringLeavesAnExtensionOfAnotherProgram) {
  extensionOf("Other");
  type.InitializeRegistry();
  EXPECT_EQ(owner(), "Other");
  EXPECT_EQ(type.strOldAppIdKeyName, "Other");
  EXPECT_FALSE(type.boolAssociate());
  EXPECT_TRUE(hasIdKeys());
}

TEST_F(FileAsocaTest, RegisteringWritesTheIdentifiersKeys) {
  type.InitializeRegistry();
  EXPECT_EQ(registry.classValue(kId), "0");
  EXPECT_EQ(registry.classValue(kId + "\\DefaultIcon"), "C:\\A B\\media.ico");
  EXPECT_EQ(registry.classValue(kId + "\\shell\\open\\command"), "\"C:\\A B\\x.exe\" %1");
  EXPECT_EQ(registry.classValue(kId + "\\shellex\\ContextMenuHandlers\\Tessivo"), "{1-2}");
}

TEST_F(FileAsocaTest, AnExtensionThatCanBeNeitherReadNorWrittenIsNotOurs) {
  type.strCurrAppIdKeyName = "stale";
  registry.failAt = -1;
  type.InitializeRegistry();
  EXPECT_EQ(type.strCurrAppIdKeyName, "");
  EXPECT_EQ(type.strOldAppIdKeyName, "");
  EXPECT_FALSE(type.boolAssociate());
}

// Switching on

TEST_F(FileAsocaTest, SwitchingOnTakesTheExtensionAndRemembersWhoHadIt) {
  extensionOf("Other");
  type.setAssociationState(true);
  EXPECT_EQ(owner(), kId);
  EXPECT_EQ(type.strCurrAppIdKeyName, kId);
  EXPECT_EQ(type.strOldAppIdKeyName, "Other");
  EXPECT_TRUE(type.boolAssociate());
  EXPECT_TRUE(hasIdKeys());
}

TEST_F(FileAsocaTest, SwitchingOnWhatIsOursWritesNothing) {
  extensionOf("tessivo.MP3");
  type.strOldAppIdKeyName = "Other";
  type.setAssociationState(true);
  EXPECT_EQ(registry.calls, 1);
  EXPECT_EQ(owner(), "tessivo.MP3");
  EXPECT_EQ(type.strOldAppIdKeyName, "Other");
  EXPECT_TRUE(type.boolAssociate());
}

TEST_F(FileAsocaTest, SwitchingOnAnExtensionThatNobodyHasTakesItAndNoMore) {
  type.setAssociationState(true);
  EXPECT_EQ(owner(), kId);
  EXPECT_EQ(type.strOldAppIdKeyName, kId);
  EXPECT_TRUE(type.boolAssociate());
  EXPECT_FALSE(hasIdKeys());
}

TEST_F(FileAsocaTest, SwitchingOnThatIsRefusedLeavesTheOwnerAndWritesTheKeysAllTheSame) {
  extensionOf("Other");
  type.strOldAppIdKeyName = "before";
  registry.failAt = 2;
  type.setAssociationState(true);
  EXPECT_EQ(owner(), "Other");
  EXPECT_EQ(type.strCurrAppIdKeyName, "Other");
  EXPECT_EQ(type.strOldAppIdKeyName, "before");
  EXPECT_FALSE(type.boolAssociate());
  EXPECT_TRUE(hasIdKeys());
}

TEST_F(FileAsocaTest, AnExtensionThatCanBeNeitherReadNorWrittenCannotBeSwitched) {
  registry.failAt = -1;
  for (const bool state : {true, false}) {
    type.setAssociationState(state);
    EXPECT_FALSE(type.boolAssociate());
    EXPECT_EQ(type.strOldAppIdKeyName, "");
  }
}

// Switching off

TEST_F(FileAsocaTest, SwitchingOffHandsTheExtensionBack) {
  extensionOf(kId);
  thereIs("Other");
  type.strOldAppIdKeyName = "Other";
  type.setAssociationState(false);
  EXPECT_EQ(owner(), "Other");
  EXPECT_EQ(type.strCurrAppIdKeyName, "Other");
  EXPECT_EQ(type.strOldAppIdKeyName, "Other");
  EXPECT_FALSE(type.boolAssociate());
}

TEST_F(FileAsocaTest, SwitchingOffAnExtensionWithoutAKeyMakesItOursEvenWithFallBacks) {
  thereIs("First");
  type.setAssociationState(false);
  EXPECT_EQ(owner(), kId);
  EXPECT_TRUE(type.boolAssociate());
  EXPECT_EQ(type.strOldAppIdKeyName, kId);
}

TEST_F(FileAsocaTest, SwitchingOffWhatAnotherProgramHasTakenChangesNothing) {
  extensionOf("Third");
  thereIs("Other");
  type.strOldAppIdKeyName = "Other";
  type.setAssociationState(false);
  EXPECT_EQ(owner(), "Third");
  EXPECT_FALSE(type.boolAssociate());
  EXPECT_EQ(registry.calls, 1);
}

/// Who had the extension, who of the identifiers exist, and who gets it.
struct HandBack {
  const char* old;
  std::vector<std::string> existing;
  const char* owner;  ///< kId: it stays with us
};

class HandBackTest : public FileAsocaTest, public testing::WithParamInterface<HandBack> {};

TEST_P(HandBackTest, TheExtensionGoesToTheOneBeforeOrAFallBack) {
  extensionOf(kId);
  for (const auto& identifier : GetParam().existing) thereIs(identifier);
  type.strOldAppIdKeyName = GetParam().old;
  type.setAssociationState(false);
  const bool stays = GetParam().owner == kId;
  EXPECT_EQ(owner(), GetParam().owner);
  EXPECT_EQ(type.boolAssociate(), stays);
  EXPECT_EQ(type.strCurrAppIdKeyName, GetParam().owner);
  EXPECT_EQ(type.strOldAppIdKeyName, stays ? GetParam().old : GetParam().owner);
}

INSTANTIATE_TEST_SUITE_P(
    All, HandBackTest,
    testing::Values(HandBack{"Other", {"Other", "First", "Second"}, "Other"},
                    HandBack{"Other", {"First", "Second"}, "First"},
                    HandBack{"Other", {"Second"}, "Second"}, HandBack{"Other", {}, "Tessivo.mp3"},
                    HandBack{"", {"First", "Second"}, "First"}, HandBack{"", {"Second"}, "Second"},
                    HandBack{"", {}, "Tessivo.mp3"},
                    HandBack{"TESSIVO.mp3", {"TESSIVO.mp3", "Second"}, "Second"},
                    HandBack{"Tessivo.mp3", {"Tessivo.mp3"}, "Tessivo.mp3"}));

TEST_F(FileAsocaTest, AFallBackWithoutANameIsNoFallBack) {
  extensionOf(kId);
  type.strDefaultAppIdKeyName1 = "";
  thereIs("Second");
  type.setAssociationState(false);
  EXPECT_EQ(owner(), "Second");
}

TEST_F(FileAsocaTest, WeAreNoFallBackOfOurOwn) {
  extensionOf(kId);
  thereIs(kId);
  type.strDefaultAppIdKeyName1 = "TESSIVO.MP3";
  type.setAssociationState(false);
  EXPECT_EQ(owner(), kId);
  EXPECT_TRUE(type.boolAssociate());
  thereIs("Second");
  type.setAssociationState(false);
  EXPECT_EQ(owner(), "Second");
  EXPECT_FALSE(type.boolAssociate());
}

TEST_F(FileAsocaTest, WithoutAnIdentifierOfOursNothingIsTaken) {
  type.strAppIdKeyName = "";
  extensionOf("");
  type.checkAssociationState();
  EXPECT_FALSE(type.boolAssociate());
  extensionOf("Other");
  type.setAssociationState(true);
  EXPECT_EQ(owner(), "Other");
  EXPECT_FALSE(type.boolAssociate());
  registry.values.clear();
  type.InitializeRegistry();
  EXPECT_EQ(owner(), "-");
  EXPECT_FALSE(type.boolAssociate());
  EXPECT_TRUE(registry.values.empty());
}

TEST_F(FileAsocaTest, WhenTheOneBeforeIsRefusedTheExtensionStaysOurs) {
  extensionOf(kId);
  thereIs("Other");
  thereIs("First");
  type.strOldAppIdKeyName = "Other";
  registry.failAt = 3;  // the writing
  type.setAssociationState(false);
  EXPECT_EQ(owner(), kId);
  EXPECT_TRUE(type.boolAssociate());
  EXPECT_EQ(type.strCurrAppIdKeyName, kId);
}

TEST_F(FileAsocaTest, WhenTheFallBackIsRefusedTheExtensionStaysOurs) {
  extensionOf(kId);
  thereIs("First");
  thereIs("Second");  // not tried: the first usable one it is
  type.strOldAppIdKeyName = "";
  registry.failAt = 3;
  type.setAssociationState(false);
  EXPECT_EQ(owner(), kId);
  EXPECT_TRUE(type.boolAssociate());
  EXPECT_EQ(type.strOldAppIdKeyName, "");
}

// Removing

/// Who has the extension ("-": nobody), who had it, who exists, and who has it in the end.
struct Removal {
  const char* now;
  const char* old;
  std::vector<std::string> existing;
  const char* after;
};

class RemovalTest : public FileAsocaTest, public testing::WithParamInterface<Removal> {};

TEST_P(RemovalTest, TheExtensionIsHandedBackAndTheKeysGo) {
  const Removal& given = GetParam();
  for (const auto& identifier : given.existing) thereIs(identifier);
  if (given.now != std::string("-")) extensionOf(given.now);
  registry.putClass(kId, "0");
  registry.putClass(kId + "\\DefaultIcon", "i");
  registry.putClass(kId + "\\shell\\open\\command", "c");
  registry.putClass(kId + "\\shellex\\ContextMenuHandlers\\Tessivo", "{1-2}");
  type.strOldAppIdKeyName = given.old;
  type.deleteAssociationKeyFromReg();
  EXPECT_EQ(owner(), given.after);
  EXPECT_FALSE(hasIdKeys());
}

INSTANTIATE_TEST_SUITE_P(
    All, RemovalTest,
    testing::Values(Removal{"-", "Other", {"Other"}, "-"},
                    Removal{"Third", "Other", {"Other"}, "Third"},
                    Removal{"tessivo.MP3", "Other", {"Other", "First"}, "Other"},
                    Removal{"Tessivo.mp3", "Other", {"First", "Second"}, "First"},
                    Removal{"Tessivo.mp3", "Other", {"Second"}, "Second"},
                    Removal{"Tessivo.mp3", "Other", {}, ""},
                    Removal{"Tessivo.mp3", "", {"First"}, "First"},
                    Removal{"Tessivo.mp3", "", {}, ""},
                    Removal{"Tessivo.mp3", "TESSIVO.mp3", {"Second"}, "Second"},
                    Removal{"Tessivo.mp3", "Tessivo.mp3", {}, ""}));

TEST_F(FileAsocaTest, RemovingLeavesWhatOthersPutBelowTheIdentifier) {
  type.InitializeRegistry();
  registry.putClass(kId + "\\shell\\print\\command", "theirs");
  type.deleteAssociationKeyFromReg();
  EXPECT_EQ(registry.classValue(kId + "\\shell\\print\\command"), "theirs");
  EXPECT_FALSE(registry.hasClass(kId + "\\shell\\open"));
  EXPECT_FALSE(registry.hasClass(kId + "\\DefaultIcon"));
}

TEST_F(FileAsocaTest, ADeletionThatFailsDoesNotKeepTheOthersFromBeingDone) {
  for (int failing = 1; failing <= 8; ++failing) {
    FakeRegistry other;
    FileAsoca made(other);
    makeType(made);
    other.putClass(".mp3", "Other");
    made.InitializeRegistry();
    other.calls = 0;
    other.failAt = 1 + failing;  // after the reading of the extension
    made.deleteAssociationKeyFromReg();
    EXPECT_EQ(other.calls, 9);
    other.failAt = 0;
    made.deleteAssociationKeyFromReg();  // what is left can be deleted later
    EXPECT_FALSE(other.hasClass(kId)) << failing;
  }
}

/// Whichever single call fails when the type is removed: what is left is the owner that was there,
/// one who may have it, or nobody; and only when no fall-back can be read, nobody.
TEST_F(FileAsocaTest, NoFailureOfACallLeavesARemovedExtensionWithoutAnOwnerThatItCouldHave) {
  int refused = 0;
  for (const char* const now : {"-", "Other", "Tessivo.mp3"}) {
    for (const char* const old : {"", "Other", "Gone", "Tessivo.mp3"}) {
      for (const int fallBacks : {0, 1, 2, 3}) {
        for (int failing = 0; failing <= 14; ++failing) {
          FakeRegistry other;
          FileAsoca made(other);
          makeType(made);
          other.putClass("Other", "x");
          if (fallBacks & 1) other.putClass("First", "x");
          if (fallBacks & 2) other.putClass("Second", "x");
          if (now != std::string("-")) other.putClass(".mp3", now);
          made.strOldAppIdKeyName = old;
          other.failAt = failing;
          made.deleteAssociationKeyFromReg();
          const bool ours = now == kId;
          const bool toOld = old == std::string("Other");
          const std::string fallBack = fallBacks & 1 ? "First" : fallBacks & 2 ? "Second" : "";
          const auto where = [&] {
            return testing::Message()
                   << now << ", " << old << ", " << fallBacks << ", call " << failing;
          };
          const std::string after = other.classValue(".mp3");
          if (!ours) {
            EXPECT_EQ(after, now) << where();
            continue;
          }
          // The calls: 1 the extension is read, then the old owner if there is a name to read, then
          // the fall-backs up to the usable one; the next one writes.
          const bool readsOld = old == std::string("Other") || old == std::string("Gone");
          const int firstRead = readsOld ? 3 : 2;
          std::string expected = toOld ? "Other" : fallBack;
          int writes = toOld ? 3 : firstRead + (fallBacks & 1 ? 1 : 2);
          if (failing == 1) expected = kId;  // not known to be ours
          if (toOld && failing == 2) {
            expected = fallBack;  // the old owner seems to be gone
            writes = 0;
          }
          if (!toOld && failing == firstRead && (fallBacks & 1)) {
            expected = fallBacks & 2 ? "Second" : "";
            writes = 0;
          }
          if (!toOld && failing == firstRead + 1 && fallBacks == 2) {
            expected = "";
            writes = 0;
          }
          if (failing == writes) {
            expected = kId;
            ++refused;
          }
          EXPECT_EQ(after, expected) << where();
        }
      }
    }
  }
  EXPECT_EQ(refused, 16);
}

/// Whatever single call fails: no operation throws, and what it says afterwards is what the
/// registry holds, or would be read from it.
TEST_F(FileAsocaTest, NoFailureOfACallMakesItSayWhatIsNotSo) {
  using Operation = void (*)(FileAsoca&);
  const Operation operations[] = {
      [](FileAsoca& t) { t.setAssociationState(true); },
      [](FileAsoca& t) { t.setAssociationState(false); },
      [](FileAsoca& t) { t.InitializeRegistry(); },
  };
  for (const char* const now : {"-", "Other", "Tessivo.mp3"}) {
    for (const char* const old : {"", "Other", "Gone", "Tessivo.mp3"}) {
      for (const Operation operation : operations) {
        for (int failing = 0; failing <= 12; ++failing) {
          for (const int fallBacks : {0, 1, 2, 3}) {
            FakeRegistry other;
            FileAsoca made(other);
            makeType(made);
            if (now != std::string("-")) other.putClass(".mp3", now);
            other.putClass("Other", "x");
            if (fallBacks & 1) other.putClass("First", "x");
            if (fallBacks & 2) other.putClass("Second", "x");
            made.strOldAppIdKeyName = old;
            other.failAt = failing;
            operation(made);
            const std::string holder = other.classValue(".mp3");
            EXPECT_EQ(made.boolAssociate(), holder == kId)
                << now << ' ' << old << " call " << failing << " holder " << holder;
            EXPECT_TRUE(holder == "-" || made.strCurrAppIdKeyName == holder);
          }
        }
      }
    }
  }
}

// The database

class FileAsocaInDatabase : public FileAsocaTest {
 protected:
  void SetUp() override {
    FileAsocaTest::SetUp();
    prepareEmptyDatabase(database, log);
    const auto rows = table();
    for (const char* const extension : {".mp3", ".avi"}) {
      rows->addNew();
      rows->setValue("app_association", Value(std::string(extension)));
      rows->setValue("old_app_id", Value(std::string("old ") + extension));
      rows->update();
    }
    type.strConfigFilePath = database;
  }
  std::shared_ptr<Recordset> table() const {
    return DataAccess().objrsGetRecordSet("select * from file_association order by app_association",
                                          database);
  }
  std::string oldIds() const {
    std::string all;
    for (const auto rows = table(); !rows->eof(); rows->moveNext()) {
      all += asText(rows->value("old_app_id")) + '|';
    }
    return all;
  }

  TempFolder folder;
  FakeLog log;
  std::string database = folder.file("SysConfig");
};

TEST_F(FileAsocaInDatabase, RegisteringAndSavingKeepWhoHadTheExtension) {
  extensionOf("Other");
  type.InitializeRegistry();
  EXPECT_EQ(oldIds(), "old .avi|Other|");
  type.strOldAppIdKeyName = "Third";
  type.saveOldAppIdKeyNameToDB();
  EXPECT_EQ(oldIds(), "old .avi|Third|");
}

TEST_F(FileAsocaInDatabase, AFallBackIsKeptOnlyWhenItIsSaved) {
  extensionOf(kId);
  thereIs("First");
  type.strOldAppIdKeyName = "Gone";
  type.setAssociationState(false);
  EXPECT_EQ(oldIds(), "old .avi|old .mp3|");
  type.saveOldAppIdKeyNameToDB();
  EXPECT_EQ(oldIds(), "old .avi|First|");
  registry.putClass(".mp3", kId);
  type.strOldAppIdKeyName = "Gone";
  type.deleteAssociationKeyFromReg();
  EXPECT_EQ(oldIds(), "old .avi|First|");
}

TEST_F(FileAsocaInDatabase, WithoutARowOrADatabaseNothingIsSaved) {
  type.strOldAppIdKeyName = "Other";
  type.strAppAsocaKeyName = ".mkv";
  type.saveOldAppIdKeyNameToDB();
  type.strAppAsocaKeyName = ".mp3";
  type.strConfigFilePath = folder.file("none");
  type.saveOldAppIdKeyNameToDB();
  EXPECT_EQ(oldIds(), "old .avi|old .mp3|");
}

TEST_F(FileAsocaInDatabase, WhatIsKeptAlreadyIsNotWritten) {
  OtherProgram(database).run(
      "create table written(old);"
      "create trigger seen after update on file_association begin"
      " insert into written values (new.old_app_id); end");
  const auto written = [this] { return runSql(database, "select old from written"); };
  type.strOldAppIdKeyName = "old .mp3";
  type.saveOldAppIdKeyNameToDB();
  EXPECT_TRUE(written().empty());
  type.strOldAppIdKeyName = "OLD .mp3";  // not the same
  type.saveOldAppIdKeyNameToDB();
  EXPECT_EQ(written(), std::vector<std::string>{"OLD .mp3"});
}

TEST_F(FileAsocaInDatabase, ADatabaseThatAnotherProgramHoldsIsNoErrorAndKeepsWhatItHas) {
  for (const char* const hold : {"begin immediate", "begin exclusive"}) {
    type.strOldAppIdKeyName = "Other";
    OtherProgram other(database);
    other.run(hold);  // the first leaves the reading free
    EXPECT_NO_THROW(type.saveOldAppIdKeyNameToDB());
    other.run("rollback");
    EXPECT_EQ(oldIds(), "old .avi|old .mp3|");
  }
}

TEST_F(FileAsocaInDatabase, ATableWithoutTheColumnIsNoError) {
  runSql(database, "alter table file_association drop column old_app_id");
  type.strOldAppIdKeyName = "Other";
  EXPECT_NO_THROW(type.saveOldAppIdKeyNameToDB());
}

TEST_F(FileAsocaInDatabase, ASingleQuoteInTheExtensionBreaksTheQueryAndNothingElse) {
  const auto rows = table();
  rows->addNew();
  rows->setValue("app_association", Value(std::string(".m'p")));
  rows->setValue("old_app_id", Value(std::string("quote")));
  rows->update();
  type.strAppAsocaKeyName = ".m'p";
  type.strOldAppIdKeyName = "Other";
  type.saveOldAppIdKeyNameToDB();
  EXPECT_EQ(oldIds(), "old .avi|quote|old .mp3|");
}

}  // namespace
}  // namespace tessivo
