// The file associations in the system's registry, of which the test has parts of its own: for this
// process the roots for classes and for the machine lead there.
#include <gtest/gtest.h>
#include <windows.h>

#include <map>

#include "config/FileAsocaList.h"
#include "data/DataAccess.h"
#include "fakes/EmptyDatabase.h"
#include "fakes/FakeLog.h"
#include "fakes/TempFolder.h"
#include "platform/win32/Win32KeySecurity.h"
#include "platform/win32/Win32Registry.h"
#include "platform/win32/WindowsText.h"

namespace tessivo {
namespace {

const std::string kApproved =
    "Software\\Microsoft\\Windows\\CurrentVersion\\Shell Extensions\\Approved";

/// A root of the registry that is the test's own while this lives.
class OwnRoot {
 public:
  OwnRoot(HKEY root, const std::string& name) : root_(root), path_(toWide(name)) {
    RegDeleteTreeW(HKEY_CURRENT_USER, path_.c_str());
    RegCreateKeyExW(HKEY_CURRENT_USER, path_.c_str(), 0, nullptr, 0, KEY_ALL_ACCESS, nullptr, &key_,
                    nullptr);
    overridden_ = RegOverridePredefKey(root_, key_) == ERROR_SUCCESS;
  }
  ~OwnRoot() {
    RegOverridePredefKey(root_, nullptr);
    RegCloseKey(key_);
    RegDeleteTreeW(HKEY_CURRENT_USER, path_.c_str());
  }
  OwnRoot(const OwnRoot&) = delete;
  OwnRoot& operator=(const OwnRoot&) = delete;

  bool overridden() const { return overridden_; }
  void clear() const { RegDeleteTreeW(key_, nullptr); }
  /// Every key and value below, with type and bytes.
  std::map<std::wstring, std::wstring> content() const {
    std::map<std::wstring, std::wstring> all;
    list(key_, L"", all);
    return all;
  }

 private:
  static void list(HKEY key, const std::wstring& path, std::map<std::wstring, std::wstring>& all) {
    wchar_t name[256];
    for (DWORD i = 0;; ++i) {
      DWORD length = 256;
      DWORD type = 0;
      BYTE bytes[1024];
      DWORD size = sizeof bytes;
      if (RegEnumValueW(key, i, name, &length, nullptr, &type, bytes, &size) != ERROR_SUCCESS) {
        break;
      }
      all[path + L"|" + name] = std::to_wstring(type) + std::wstring(bytes, bytes + size);
    }
    for (DWORD i = 0;; ++i) {
      DWORD length = 256;
      if (RegEnumKeyExW(key, i, name, &length, nullptr, nullptr, nullptr, nullptr) !=
          ERROR_SUCCESS) {
        break;
      }
      const std::wstring below = path + L"\\" + name;
      all[below];
      HKEY child = nullptr;
      if (RegOpenKeyExW(key, name, 0, KEY_READ, &child) != ERROR_SUCCESS) continue;
      list(child, below, all);
      RegCloseKey(child);
    }
  }

  HKEY root_;
  std::wstring path_;
  HKEY key_ = nullptr;
  bool overridden_ = false;
};

/// A class whose list of rights leaves everybody these alone, while this lives.
class RestrictedClass {
 public:
  RestrictedClass(const std::string& name, REGSAM rights) {
    security_.open(RegistryRoot::classesRoot, name, KEY_ALL_ACCESS, key_);
    restricted_ = give(rights | WRITE_DAC);
  }
  ~RestrictedClass() {
    give(KEY_ALL_ACCESS);
    security_.close(key_);
  }
  RestrictedClass(const RestrictedClass&) = delete;
  RestrictedClass& operator=(const RestrictedClass&) = delete;

  bool restricted() const { return restricted_; }

 private:
  bool give(REGSAM rights) {
    Bytes everyone;
    Bytes list;
    return security_.accountIdentifierOf("Everyone", everyone) == 0 &&
           security_.makeList(200, {}, rights, everyone, list) == 0 &&
           security_.writeList(key_, list) == 0;
  }

  Win32KeySecurity security_;
  KeySecurity::Key key_ = 0;
  bool restricted_ = false;
};

class FileAsocaOnWindows : public testing::Test {
 protected:
  void SetUp() override {
    ASSERT_TRUE(classes.overridden());
    ASSERT_TRUE(machine.overridden());
    prepareEmptyDatabase(database, log);
    add("file_association_config", {{"main_app_file_name", "Tessivo.exe"},
                                    {"main_default_ico_file_name", "TessivoMedia.ico"},
                                    {"menu_handler_guid", "{1-2}"},
                                    {"menu_handler_name", "Tessivo"}});
    add("file_association", {{"app_association", ".mp3"},
                             {"app_id", "Tessivo.mp3"},
                             {"default_app_id_1", "First"},
                             {"default_app_id_2", "Second"}});
    registry.write(RegistryRoot::localMachine, kApproved, "{9}", "another's");
    load(list);
  }
  void add(const std::string& table, const std::map<std::string, std::string>& fields) const {
    const auto rows = DataAccess().objrsGetRecordSet("select * from " + table, database);
    rows->addNew();
    for (const auto& [name, value] : fields) rows->setValue(name, Value(value));
    rows->update();
  }
  void load(FileAsocaList& loaded) const {
    loaded.strConfigFilePath = database;
    loaded.strMainAppFolderPath = "C:\\A B";
    loaded.strDefaultIcoFolderPath = "C:\\A B";
    loaded.getConfigInfoFromDB();
    loaded.getBaseAssocListFromDB();
  }
  void putClass(const std::string& key, const std::string& value) {
    ASSERT_EQ(registry.write(RegistryRoot::classesRoot, key, "", value), 0U);
  }
  std::string classValue(const std::string& key) const {
    std::string value = "-";
    registry.read(RegistryRoot::classesRoot, key, "", value);
    return value;
  }

  const std::string own = "Software\\Tessivo hive " + std::to_string(GetCurrentProcessId());
  OwnRoot classes{HKEY_CLASSES_ROOT, own + " classes"};
  OwnRoot machine{HKEY_LOCAL_MACHINE, own + " machine"};
  TempFolder folder;
  FakeLog log;
  std::string database = folder.file("SysConfig");
  Win32Registry registry;
  FileAsocaList list{registry};
};

TEST_F(FileAsocaOnWindows, RegisteringWritesTheKeysAndTheApprovedHandler) {
  putClass(".mp3", "Other");
  list.InitializeRegistry();
  EXPECT_EQ(classValue(".mp3"), "Other");
  EXPECT_EQ(classValue("Tessivo.mp3"), "0");
  EXPECT_EQ(classValue("Tessivo.mp3\\DefaultIcon"), "C:\\A B\\TessivoMedia.ico");
  EXPECT_EQ(classValue("Tessivo.mp3\\shell\\open\\command"), "\"C:\\A B\\Tessivo.exe\" %1");
  EXPECT_EQ(classValue("Tessivo.mp3\\shellex\\ContextMenuHandlers\\Tessivo"), "{1-2}");
  std::string approved;
  EXPECT_EQ(registry.read(RegistryRoot::localMachine, kApproved, "{1-2}", approved), 0U);
  EXPECT_EQ(approved, "Tessivo");
}

TEST_F(FileAsocaOnWindows, AnExtensionIsTakenAndHandedBack) {
  putClass(".mp3", "Other");
  putClass("Other", "x");
  const auto type = list.objGetAFileAsocaObjByIndex(1);
  type->setAssociationState(true);
  EXPECT_EQ(classValue(".mp3"), "Tessivo.mp3");
  EXPECT_TRUE(type->boolAssociate());
  list.getInfoFromRegistry();
  EXPECT_TRUE(type->boolAssociate());
  type->setAssociationState(false);
  EXPECT_EQ(classValue(".mp3"), "Other");
  EXPECT_FALSE(type->boolAssociate());
}

TEST_F(FileAsocaOnWindows, AnExtensionWithoutAKeyIsOursEvenWhenSwitchedOff) {
  const auto type = list.objGetAFileAsocaObjByIndex(1);
  type->setAssociationState(false);
  EXPECT_EQ(classValue(".mp3"), "Tessivo.mp3");
  EXPECT_TRUE(type->boolAssociate());
}

// What the system itself refuses. Wine asks the rights of a key when it is opened, not when one
// below it is made or deleted.

TEST_F(FileAsocaOnWindows, AnExtensionThatMayNotBeWrittenStaysAndTheKeysOfTheTypeAreWritten) {
  putClass(".mp3", "Other");
  const RestrictedClass extension(".mp3", KEY_READ);
  ASSERT_TRUE(extension.restricted());
  const auto type = list.objGetAFileAsocaObjByIndex(1);
  type->setAssociationState(true);
  EXPECT_FALSE(type->boolAssociate());
  EXPECT_EQ(type->strCurrAppIdKeyName, "Other");
  EXPECT_EQ(type->strOldAppIdKeyName, "");
  EXPECT_EQ(classValue(".mp3"), "Other");
  EXPECT_EQ(classValue("Tessivo.mp3"), "0");
}

TEST_F(FileAsocaOnWindows, AnExtensionThatMayNotBeWrittenCannotBeHandedBack) {
  putClass(".mp3", "Tessivo.mp3");
  putClass("First", "x");
  const RestrictedClass extension(".mp3", KEY_READ);
  ASSERT_TRUE(extension.restricted());
  const auto type = list.objGetAFileAsocaObjByIndex(1);
  type->setAssociationState(false);
  EXPECT_TRUE(type->boolAssociate());
  EXPECT_EQ(type->strOldAppIdKeyName, "");
  EXPECT_EQ(classValue(".mp3"), "Tessivo.mp3");
}

TEST_F(FileAsocaOnWindows, AnExtensionThatMayNotBeReadEitherIsNotOurs) {
  putClass(".mp3", "Tessivo.mp3");
  const RestrictedClass extension(".mp3", 0);
  ASSERT_TRUE(extension.restricted());
  const auto type = list.objGetAFileAsocaObjByIndex(1);
  for (const bool state : {true, false}) {
    type->setAssociationState(state);
    EXPECT_FALSE(type->boolAssociate());
  }
  type->checkAssociationState();
  EXPECT_FALSE(type->boolAssociate());
}

TEST_F(FileAsocaOnWindows, AnOwnerThatMayNotBeReadCountsAsGone) {
  putClass(".mp3", "Tessivo.mp3");
  putClass("Other", "x");
  putClass("First", "x");
  const RestrictedClass owner("Other", KEY_SET_VALUE);
  ASSERT_TRUE(owner.restricted());
  const auto type = list.objGetAFileAsocaObjByIndex(1);
  type->strOldAppIdKeyName = "Other";
  type->setAssociationState(false);
  EXPECT_EQ(classValue(".mp3"), "First");
  EXPECT_FALSE(type->boolAssociate());
}

TEST_F(FileAsocaOnWindows, AnExtensionWhoseOwnerIsNoTextIsTakenAsIfNobodyHadIt) {
  putClass(".mp3", "Other");
  HKEY key = nullptr;
  ASSERT_EQ(RegOpenKeyExW(HKEY_CLASSES_ROOT, L".mp3", 0, KEY_SET_VALUE, &key), ERROR_SUCCESS);
  const BYTE bytes[] = {1, 2, 3};
  RegSetValueExW(key, nullptr, 0, REG_BINARY, bytes, sizeof bytes);
  RegCloseKey(key);
  const auto type = list.objGetAFileAsocaObjByIndex(1);
  type->checkAssociationState();
  EXPECT_FALSE(type->boolAssociate());
  type->setAssociationState(true);
  EXPECT_EQ(classValue(".mp3"), "Tessivo.mp3");
  EXPECT_EQ(type->strOldAppIdKeyName, "Tessivo.mp3");
}

/// Whoever had the extension, and whichever fall-backs there are: what was registered goes without
/// a trace. An extension that nobody had has a key afterwards, with a fall-back or nothing in it.
TEST_F(FileAsocaOnWindows, TakingBackLeavesTheRegistryByteForByteAsItWas) {
  int combinations = 0;
  for (const char* const now : {"-", "", "Other", "Gone", "First", "Tessivo.mp3"}) {
    for (const int fallBacks : {0, 1, 2, 3}) {
      classes.clear();
      putClass("Other\\shell\\open\\command", "theirs %1");
      putClass("Other", "x");
      if (fallBacks & 1) putClass("First", "x");
      if (fallBacks & 2) putClass("Second", "x");
      if (now != std::string("-")) putClass(".mp3", now);
      const auto classesBefore = classes.content();
      const auto machineBefore = machine.content();
      FileAsocaList types(registry);
      load(types);
      types.InitializeRegistry();
      EXPECT_NE(classes.content(), classesBefore);
      types.deleteAllFileAssocItemFromReg();
      if (now == std::string("-") || now == std::string("Tessivo.mp3")) {
        EXPECT_EQ(classValue(".mp3"), fallBacks & 1 ? "First" : fallBacks & 2 ? "Second" : "");
        EXPECT_EQ(registry.deleteKey(RegistryRoot::classesRoot, ".mp3"), 0U);
        auto rest = classesBefore;
        rest.erase(L"\\.mp3");
        rest.erase(L"\\.mp3|");
        EXPECT_EQ(classes.content(), rest) << now << fallBacks;
      } else {
        EXPECT_EQ(classes.content(), classesBefore) << now << fallBacks;
      }
      EXPECT_EQ(machine.content(), machineBefore);
      ++combinations;
    }
  }
  EXPECT_EQ(combinations, 24);
}

}  // namespace
}  // namespace tessivo
