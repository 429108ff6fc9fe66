#include "platform/win32/Win32Registry.h"

#include <gtest/gtest.h>
#include <windows.h>

#include "platform/win32/WindowsText.h"
#include "win32/ResourceCounts.h"

namespace tessivo {
namespace {

constexpr RegistryRoot kUser = RegistryRoot::currentUser;

/// A part of the registry of the test's own, gone at its end.
class Win32RegistryTest : public testing::Test {
 protected:
  Win32RegistryTest() { erase(); }
  ~Win32RegistryTest() override { erase(); }
  void erase() const { RegDeleteTreeW(HKEY_CURRENT_USER, toWide(top).c_str()); }
  void putRaw(const std::wstring& name, DWORD type, const void* bytes, DWORD size) const {
    RegSetKeyValueW(HKEY_CURRENT_USER, toWide(top).c_str(), name.c_str(), type, bytes, size);
  }

  const std::string top = "Software\\Tessivo test 中文 " + std::to_string(GetCurrentProcessId());
  Win32Registry registry;
  std::string value = "before";
};

TEST_F(Win32RegistryTest, WritesKeysOnTheWayAndReadsTheTextBack) {
  EXPECT_EQ(registry.write(kUser, top + "\\a\\b c", "", "默认 text"), 0U);
  EXPECT_EQ(registry.write(kUser, top + "\\a\\b c", "名", ""), 0U);
  EXPECT_EQ(registry.read(kUser, top + "\\A\\B C", "", value), 0U);
  EXPECT_EQ(value, "默认 text");
  EXPECT_EQ(registry.read(kUser, top + "\\a\\b c", "名", value), 0U);
  EXPECT_EQ(value, "");
  DWORD type = 0;
  RegGetValueW(HKEY_CURRENT_USER, toWide(top + "\\a\\b c").c_str(), L"", RRF_RT_ANY, &type, nullptr,
               nullptr);
  EXPECT_EQ(type, DWORD{REG_SZ});
}

TEST_F(Win32RegistryTest, WhatIsNotThereLeavesTheValue) {
  EXPECT_EQ(registry.read(kUser, top, "", value), DWORD{ERROR_FILE_NOT_FOUND});
  registry.write(kUser, top + "\\below", "v", "x");
  EXPECT_EQ(registry.read(kUser, top, "", value), DWORD{ERROR_FILE_NOT_FOUND});  // never set
  EXPECT_EQ(registry.read(kUser, top + "\\below", "w", value), DWORD{ERROR_FILE_NOT_FOUND});
  EXPECT_EQ(value, "before");
}

TEST_F(Win32RegistryTest, ALongTextIsReadWhole) {
  const std::string text(100'000, 'x');
  EXPECT_EQ(registry.write(kUser, top, "long", text), 0U);
  EXPECT_EQ(registry.read(kUser, top, "long", value), 0U);
  EXPECT_EQ(value, text);
}

TEST_F(Win32RegistryTest, ANumberReadsAsItsTextOtherKindsNotAtAll) {
  const DWORD number = 42;
  const DWORD negative = 0xFFFFFFFF;
  putRaw(L"number", REG_DWORD, &number, sizeof number);
  putRaw(L"negative", REG_DWORD, &negative, sizeof negative);
  putRaw(L"bytes", REG_BINARY, &number, sizeof number);
  putRaw(L"many", REG_MULTI_SZ, L"a\0b\0", 10);
  putRaw(L"path", REG_EXPAND_SZ, L"%X%", 8);
  EXPECT_EQ(registry.read(kUser, top, "number", value), 0U);
  EXPECT_EQ(value, "42");
  EXPECT_EQ(registry.read(kUser, top, "negative", value), 0U);
  EXPECT_EQ(value, "-1");
  EXPECT_EQ(registry.read(kUser, top, "path", value), 0U);
  EXPECT_EQ(value, "%X%");
  EXPECT_EQ(registry.read(kUser, top, "bytes", value), DWORD{ERROR_INVALID_DATATYPE});
  EXPECT_EQ(registry.read(kUser, top, "many", value), DWORD{ERROR_INVALID_DATATYPE});
  EXPECT_EQ(value, "%X%");
}

TEST_F(Win32RegistryTest, ADamagedTextIsReadAsFarAsItGoes) {
  putRaw(L"open", REG_SZ, L"abc", 6);       // without its NUL
  putRaw(L"inner", REG_SZ, L"ab\0cd", 12);  // with one inside
  putRaw(L"half", REG_SZ, "a\0b\0c", 5);    // half a character at its end
  putRaw(L"nothing", REG_SZ, L"", 0);
  EXPECT_EQ(registry.read(kUser, top, "open", value), 0U);
  EXPECT_EQ(value, "abc");
  EXPECT_EQ(registry.read(kUser, top, "inner", value), 0U);
  EXPECT_EQ(value, "ab");
  EXPECT_EQ(registry.read(kUser, top, "half", value), 0U);
  EXPECT_TRUE(value.starts_with("ab"));
  EXPECT_EQ(registry.read(kUser, top, "nothing", value), 0U);
  EXPECT_EQ(value, "");
}

TEST_F(Win32RegistryTest, DeletesValuesAndKeysWithoutKeysBelow) {
  registry.write(kUser, top + "\\a", "v", "x");
  registry.write(kUser, top + "\\a\\b", "", "y");
  EXPECT_EQ(registry.deleteValue(kUser, top + "\\a", "v"), 0U);
  EXPECT_EQ(registry.deleteValue(kUser, top + "\\a", "v"), DWORD{ERROR_FILE_NOT_FOUND});
  EXPECT_EQ(registry.deleteValue(kUser, top + "\\none", "v"), DWORD{ERROR_FILE_NOT_FOUND});
  EXPECT_NE(registry.deleteKey(kUser, top + "\\a"), 0U);
  EXPECT_EQ(registry.read(kUser, top + "\\a\\b", "", value), 0U);
  EXPECT_EQ(registry.deleteKey(kUser, top + "\\a\\b"), 0U);
  EXPECT_EQ(registry.deleteKey(kUser, top + "\\a"), 0U);
  EXPECT_EQ(registry.deleteKey(kUser, top + "\\a"), DWORD{ERROR_FILE_NOT_FOUND});
}

TEST_F(Win32RegistryTest, ClassesAreThoseOfTheUserAndTheMachine) {
  const std::string name = "Tessivo.test." + std::to_string(GetCurrentProcessId());
  EXPECT_EQ(registry.write(RegistryRoot::classesRoot, name, "", "x"), 0U);
  EXPECT_EQ(registry.read(RegistryRoot::classesRoot, name, "", value), 0U);
  EXPECT_EQ(value, "x");
  EXPECT_EQ(registry.deleteKey(RegistryRoot::classesRoot, name), 0U);
}

TEST_F(Win32RegistryTest, KeepsNoKeyOpen) {
  registry.write(kUser, top, "v", "x");
  const int before = processHandles({});
  for (int i = 0; i < 50; ++i) {
    registry.write(kUser, top, "v", "x");
    registry.read(kUser, top, "v", value);
    registry.deleteValue(kUser, top, "v");
    registry.read(kUser, top + "\\none", "v", value);
  }
  EXPECT_GT(before, 0);
  EXPECT_LT(processHandles({}), before + 10);
}

}  // namespace
}  // namespace tessivo
