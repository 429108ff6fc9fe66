#include "config/RegAccess.h"

#include <gtest/gtest.h>

#include "fakes/FakeRegistry.h"

namespace tessivo {
namespace {

class RegAccessTest : public testing::Test {
 protected:
  bool read(const std::string& path) { return access.boolRegRead(path, value, text, flag); }
  bool write(const std::string& path, const std::string& written) {
    return access.boolRegWrite(path, written, text, flag);
  }
  bool remove(const std::string& path) { return access.boolRegDelete(path, text, flag); }

  FakeRegistry registry;
  RegAccess access{registry};
  std::string value = "before";
  std::string text;
  std::int32_t flag = 0;
};

TEST_F(RegAccessTest, APathThatEndsWithABackslashIsAKeysDefaultValue) {
  EXPECT_TRUE(write("HKCR\\.mp3\\", "Tessivo.mp3"));
  EXPECT_EQ(registry.classValue(".mp3"), "Tessivo.mp3");
  EXPECT_TRUE(read("HKEY_CLASSES_ROOT\\.mp3\\"));
  EXPECT_EQ(value, "Tessivo.mp3");
}

TEST_F(RegAccessTest, AnyOtherPathIsAValue) {
  EXPECT_TRUE(write("HKLM\\Software\\A b\\Approved\\{1}", "menu"));
  std::string stored;
  EXPECT_EQ(registry.read(RegistryRoot::localMachine, "Software\\A b\\Approved", "{1}", stored),
            0U);
  EXPECT_EQ(stored, "menu");
  EXPECT_TRUE(read("HKLM\\Software\\A b\\Approved\\{1}"));
  EXPECT_EQ(value, "menu");
  EXPECT_TRUE(write("HKCU\\top", "x"));  // of the root itself
  EXPECT_TRUE(read("HKEY_CURRENT_USER\\top"));
}

TEST_F(RegAccessTest, EveryRootHasItsNamesInAnyCase) {
  const std::pair<const char*, RegistryRoot> roots[] = {
      {"HKCR", RegistryRoot::classesRoot},  {"HKEY_CLASSES_ROOT", RegistryRoot::classesRoot},
      {"hkcu", RegistryRoot::currentUser},  {"hkey_Current_User", RegistryRoot::currentUser},
      {"HKLM", RegistryRoot::localMachine}, {"HKEY_LOCAL_MACHINE", RegistryRoot::localMachine},
      {"HKEY_USERS", RegistryRoot::users},  {"HKEY_CURRENT_CONFIG", RegistryRoot::currentConfig},
  };
  for (const auto& [name, root] : roots) {
    EXPECT_TRUE(write(std::string(name) + "\\k\\v", name)) << name;
    std::string stored;
    registry.read(root, "k", "v", stored);
    EXPECT_EQ(stored, name);
  }
}

TEST_F(RegAccessTest, WhatCannotBeReadLeavesTheValueAndSaysWhy) {
  EXPECT_FALSE(read("HKCR\\.mp3\\"));
  EXPECT_EQ(value, "before");
  EXPECT_EQ(flag, -1);
  EXPECT_EQ(text, "Unable to open registry key \"HKCR\\.mp3\\\" for reading, error 2.");
}

TEST_F(RegAccessTest, WhatCannotBeWrittenOrDeletedSaysWhy) {
  registry.failAt = -1;
  EXPECT_FALSE(write("HKCR\\.mp3\\", "x"));
  EXPECT_EQ(text, "Unable to open registry key \"HKCR\\.mp3\\\" for writing, error 5.");
  EXPECT_EQ(flag, -1);
  flag = 0;
  EXPECT_FALSE(remove("HKCR\\.mp3\\"));
  EXPECT_EQ(text, "Unable to remove registry key \"HKCR\\.mp3\\\", error 5.");
  EXPECT_EQ(flag, -1);
}

TEST_F(RegAccessTest, SuccessLeavesTheTextAndTheFlag) {
  text = "old";
  flag = 7;
  EXPECT_TRUE(write("HKCR\\a\\", "x"));
  EXPECT_TRUE(read("HKCR\\a\\"));
  EXPECT_TRUE(remove("HKCR\\a\\"));
  EXPECT_EQ(text, "old");
  EXPECT_EQ(flag, 7);
}

TEST_F(RegAccessTest, DeletesAValueOrAKeyWithoutKeysBelow) {
  write("HKCR\\a\\v", "x");
  write("HKCR\\a\\b\\", "y");
  EXPECT_TRUE(remove("HKCR\\a\\v"));
  EXPECT_FALSE(read("HKCR\\a\\v"));
  EXPECT_FALSE(remove("HKCR\\a\\"));
  EXPECT_TRUE(registry.hasClass("a"));
  EXPECT_TRUE(remove("HKCR\\a\\b\\"));
  EXPECT_TRUE(remove("HKCR\\a\\"));
  EXPECT_FALSE(registry.hasClass("a"));
}

TEST_F(RegAccessTest, APathWithoutARootOrAKeyIsRefusedUnasked) {
  for (const char* const path : {"", "HKCR", "\\", "HKXX\\a\\", "a\\b", "HKCR\\", "HKCR\\\\",
                                 "HKCR\\\\\\", "HKCR\\\\v", "HKCR\\\\a\\", "HKCR\\\\a\\v"}) {
    text.clear();
    EXPECT_FALSE(read(path)) << path;
    EXPECT_FALSE(write(path, "x")) << path;
    EXPECT_FALSE(remove(path)) << path;
    EXPECT_EQ(text, std::string("Invalid root in registry key \"") + path + "\".");
  }
  EXPECT_EQ(registry.calls, 0);
}

TEST_F(RegAccessTest, SeveralBackslashesAtTheEndAreOne) {
  EXPECT_TRUE(write("HKCR\\a\\\\", "x"));
  EXPECT_EQ(registry.classValue("a"), "x");
}

}  // namespace
}  // namespace tessivo
