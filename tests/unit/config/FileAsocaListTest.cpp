#include "config/FileAsocaList.h"

#include <gtest/gtest.h>

#include "data/DataAccess.h"
#include "fakes/EmptyDatabase.h"
#include "fakes/FakeLog.h"
#include "fakes/FakeRegistry.h"
#include "fakes/TempFolder.h"
#include "unit/data/DataTestSupport.h"

namespace tessivo {
namespace {

const std::string kApprovedKey =
    "Software\\Microsoft\\Windows\\CurrentVersion\\Shell Extensions\\Approved";

class FileAsocaListTest : public testing::Test {
 protected:
  using Row = std::vector<std::pair<std::string, std::string>>;

  void SetUp() override {
    prepareEmptyDatabase(database, log);
    list.strConfigFilePath = database;
    list.strMainAppFolderPath = "C:\\p";
    list.strDefaultIcoFolderPath = "C:\\p\\ico";
  }
  void add(const std::string& table, const Row& fields) {
    const auto rows = DataAccess().objrsGetRecordSet("select * from " + table, database);
    rows->addNew();
    for (const auto& [name, value] : fields) rows->setValue(name, Value(value));
    rows->update();
  }
  void addConfig(const std::string& exe, const std::string& ico, const std::string& guid,
                 const std::string& name) {
    add("file_association_config", {{"main_app_file_name", exe},
                                    {"main_default_ico_file_name", ico},
                                    {"menu_handler_guid", guid},
                                    {"menu_handler_name", name}});
  }
  void addType(const std::string& extension, const std::string& id, const std::string& old = "") {
    add("file_association", {{"app_association", extension},
                             {"description_info", "the " + extension},
                             {"app_id", id},
                             {"old_app_id", old},
                             {"default_app_id_1", "First"},
                             {"default_app_id_2", "Second"}});
  }
  void load() {
    list.getConfigInfoFromDB();
    list.getBaseAssocListFromDB();
  }
  FileAsoca& item(std::int32_t index) { return *list.objGetAFileAsocaObjByIndex(index); }

  TempFolder folder;
  FakeLog log;
  std::string database = folder.file("SysConfig");
  FakeRegistry registry;
  FileAsocaList list{registry};
};

TEST_F(FileAsocaListTest, ListsTheTypesInTheOrderOfTheirExtensionsFromOne) {
  addConfig("Tessivo.exe", "media.ico", "{1}", "menu");
  addType(".mp3", "T.mp3", "Other");
  addType(".avi", "T.avi");
  load();
  ASSERT_EQ(list.lngGetListCount(), 2);
  EXPECT_EQ(item(1).strAppAsocaKeyName, ".avi");
  const FileAsoca& type = item(2);
  EXPECT_EQ(type.strAppAsocaKeyName, ".mp3");
  EXPECT_EQ(type.strDescriptionInfo, "the .mp3");
  EXPECT_EQ(type.strAppIdKeyName, "T.mp3");
  EXPECT_EQ(type.strOldAppIdKeyName, "Other");
  EXPECT_EQ(type.strDefaultAppIdKeyName1, "First");
  EXPECT_EQ(type.strDefaultAppIdKeyName2, "Second");
  EXPECT_EQ(type.strConfigFilePath, database);
  EXPECT_EQ(type.strMainAppFilePath, "C:\\p\\Tessivo.exe");
  EXPECT_EQ(type.strDefaultIcoFilePath, "C:\\p\\ico\\media.ico");
  EXPECT_EQ(type.strMenuHandlerGUID, "{1}");
  EXPECT_EQ(type.strMenuHandlerName, "menu");
  EXPECT_FALSE(list.objGetAFileAsocaObjByIndex(0));
  EXPECT_FALSE(list.objGetAFileAsocaObjByIndex(3));
}

TEST_F(FileAsocaListTest, ForTheProgramItsNameDecidesForTheIconItsFolder) {
  addConfig("", "", "", "");
  addType(".mp3", "T.mp3");
  load();
  EXPECT_EQ(item(1).strMainAppFilePath, "");
  EXPECT_EQ(item(1).strDefaultIcoFilePath, "C:\\p\\ico\\");
  list.strDefaultIcoFolderPath = "";
  load();
  EXPECT_EQ(item(1).strDefaultIcoFilePath, "");
}

TEST_F(FileAsocaListTest, WithoutAConfigurationRowEverythingOfItIsEmpty) {
  addType(".mp3", "T.mp3");
  load();
  EXPECT_EQ(item(1).strMainAppFilePath, "");
  EXPECT_EQ(item(1).strMenuHandlerGUID, "");
}

TEST_F(FileAsocaListTest, TheFirstConfigurationRowCounts) {
  addConfig("one.exe", "1.ico", "{1}", "one");
  addConfig("two.exe", "2.ico", "{2}", "two");
  addType(".mp3", "T.mp3");
  load();
  EXPECT_EQ(item(1).strMainAppFilePath, "C:\\p\\one.exe");
}

TEST_F(FileAsocaListTest, NullFieldsReadAsEmpty) {
  add("file_association", {{"app_association", ".mp3"}});
  add("file_association_config", {{"main_app_file_name", "x.exe"}});
  load();
  ASSERT_EQ(list.lngGetListCount(), 1);
  EXPECT_EQ(item(1).strAppIdKeyName, "");
  EXPECT_EQ(item(1).strMenuHandlerName, "");
}

TEST_F(FileAsocaListTest, ListingAgainBeginsAnewAndWithoutADatabaseListsNothing) {
  addType(".mp3", "T.mp3");
  load();
  load();
  EXPECT_EQ(list.lngGetListCount(), 1);
  list.strConfigFilePath = folder.file("none");
  load();
  EXPECT_EQ(list.lngGetListCount(), 0);
}

TEST_F(FileAsocaListTest, AsksTheRegistryForEachType) {
  addType(".avi", "T.avi");
  addType(".mp3", "T.mp3");
  load();
  registry.putClass(".mp3", "T.mp3");
  list.getInfoFromRegistry();
  EXPECT_FALSE(item(1).boolAssociate());
  EXPECT_TRUE(item(2).boolAssociate());
}

TEST_F(FileAsocaListTest, RegistersEveryTypeAndTheApprovedHandler) {
  addConfig("Tessivo.exe", "media.ico", "{1}", "menu");
  addType(".avi", "T.avi");
  addType(".mp3", "T.mp3");
  load();
  list.InitializeRegistry();
  EXPECT_EQ(registry.classValue(".avi"), "T.avi");
  EXPECT_EQ(registry.classValue(".mp3"), "T.mp3");
  std::string approved;
  registry.read(RegistryRoot::localMachine, kApprovedKey, "{1}", approved);
  EXPECT_EQ(approved, "menu");
  list.deleteAllFileAssocItemFromReg();
  EXPECT_FALSE(registry.hasClass("T.avi"));
  EXPECT_FALSE(registry.hasClass("T.mp3"));
  EXPECT_EQ(registry.read(RegistryRoot::localMachine, kApprovedKey, "{1}", approved), 2U);
}

TEST_F(FileAsocaListTest, WithoutAHandlerNothingIsApproved) {
  addConfig("Tessivo.exe", "media.ico", "", "menu");
  addType(".avi", "T.avi");
  load();
  registry.put(RegistryRoot::localMachine, kApprovedKey, "", "default");
  registry.putClass(".avi", "Other");
  const auto before = registry.values;
  list.InitializeRegistry();
  auto withType = before;
  withType["0\\T.AVI\\"] = "0";
  withType["0\\T.AVI\\DEFAULTICON\\"] = "C:\\p\\ico\\media.ico";
  withType["0\\T.AVI\\SHELL\\OPEN\\COMMAND\\"] = "\"C:\\p\\Tessivo.exe\" %1";
  withType["0\\T.AVI\\SHELLEX\\CONTEXTMENUHANDLERS\\MENU\\"] = "";
  EXPECT_EQ(registry.values, withType);
  list.deleteAllFileAssocItemFromReg();
  EXPECT_EQ(registry.values, before);
}

/// Whichever single call fails, the others are done: of the approved value and of every type.
TEST_F(FileAsocaListTest, ACallThatFailsDoesNotKeepTheOthersFromBeingDone) {
  addConfig("Tessivo.exe", "media.ico", "{1}", "menu");
  addType(".avi", "T.avi");
  addType(".mp3", "T.mp3");
  const auto fill = [this](FileAsocaList& types) {
    types.strConfigFilePath = database;
    types.getConfigInfoFromDB();
    types.getBaseAssocListFromDB();
  };
  FakeRegistry whole;
  FileAsocaList all(whole);
  fill(all);
  all.InitializeRegistry();
  const int writing = whole.calls;
  EXPECT_EQ(writing, 1 + 2 * 6);  // the approved value; of each type: read, take, four keys
  for (int failing = 1; failing <= writing; ++failing) {
    FakeRegistry other;
    FileAsocaList types(other);
    fill(types);
    other.failAt = failing;
    types.InitializeRegistry();
    EXPECT_EQ(other.calls, writing) << failing;
    // What the call would have written is missing, and nothing else; one that reads misses nothing.
    EXPECT_GE(other.values.size() + 1, whole.values.size()) << failing;
  }
  const auto registered = whole;
  all.deleteAllFileAssocItemFromReg();
  const int deleting = whole.calls - registered.calls;
  for (int failing = 1; failing <= deleting; ++failing) {
    FakeRegistry other;
    FileAsocaList types(other);
    fill(types);
    other.values = registered.values;
    other.keys = registered.keys;
    other.failAt = failing;
    types.deleteAllFileAssocItemFromReg();
    std::string approved;
    const bool last = other.calls == failing;
    EXPECT_EQ(other.read(RegistryRoot::localMachine, kApprovedKey, "{1}", approved), last ? 0U : 2U)
        << failing;
    other.failAt = 0;
    types.deleteAllFileAssocItemFromReg();
    EXPECT_FALSE(other.hasClass("T.avi")) << failing;
    EXPECT_FALSE(other.hasClass("T.mp3")) << failing;
    EXPECT_EQ(other.read(RegistryRoot::localMachine, kApprovedKey, "{1}", approved), 2U);
  }
}

TEST_F(FileAsocaListTest, ATableWithoutAColumnListsNoTypeAndIsNoError) {
  addConfig("Tessivo.exe", "media.ico", "{1}", "menu");
  addType(".mp3", "T.mp3");
  runSql(database, "alter table file_association drop column default_app_id_2");
  EXPECT_NO_THROW(load());
  EXPECT_EQ(list.lngGetListCount(), 0);
}

TEST_F(FileAsocaListTest, AConfigurationWithoutAColumnKeepsWhatWasReadBefore) {
  addConfig("Tessivo.exe", "media.ico", "{1}", "menu");
  addType(".mp3", "T.mp3");
  runSql(database, "alter table file_association_config drop column menu_handler_guid");
  EXPECT_NO_THROW(load());
  ASSERT_EQ(list.lngGetListCount(), 1);
  EXPECT_EQ(item(1).strMainAppFilePath, "C:\\p\\Tessivo.exe");
  EXPECT_EQ(item(1).strMenuHandlerGUID, "");
}

/// Whatever had the extension: registering and taking it back leaves the registry as it was, but
/// for an extension that nobody had, which had no key and has an empty or a fall-back's one
/// afterwards.
TEST_F(FileAsocaListTest, TakingBackWhatWasRegisteredLeavesTheRegistryAsItWas) {
  addConfig("Tessivo.exe", "media.ico", "{1}", "menu");
  addType(".mp3", "T.mp3");
  int combinations = 0;
  for (const char* const now : {"-", "", "Other", "Gone", "First", "T.mp3"}) {
    for (const bool first : {true, false}) {
      for (const bool second : {true, false}) {
        FakeRegistry other;
        FileAsocaList types(other);
        types.strConfigFilePath = database;
        types.strMainAppFolderPath = "C:\\p";
        other.put(RegistryRoot::localMachine, kApprovedKey, "{9}", "another's");
        other.putClass("Other", "x");
        if (first) other.putClass("First", "x");
        if (second) other.putClass("Second", "x");
        if (now != std::string("-")) other.putClass(".mp3", now);
        const auto valuesBefore = other.values;
        const auto keysBefore = other.keys;
        types.getConfigInfoFromDB();
        types.getBaseAssocListFromDB();
        types.InitializeRegistry();
        EXPECT_NE(other.values, valuesBefore);
        types.deleteAllFileAssocItemFromReg();
        auto expectedValues = valuesBefore;
        auto expectedKeys = keysBefore;
        if (now == std::string("-") || now == std::string("T.mp3")) {
          expectedValues["0\\.MP3\\"] = first ? "First" : second ? "Second" : "";
          expectedKeys["0\\.MP3"] = true;
        }
        EXPECT_EQ(other.values, expectedValues) << now << first << second;
        EXPECT_EQ(other.keys, expectedKeys) << now << first << second;
        ++combinations;
      }
    }
  }
  EXPECT_EQ(combinations, 24);
}

}  // namespace
}  // namespace tessivo
