#include "platform/win32/Win32FileVersions.h"

#include <gtest/gtest.h>
#include <windows.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>

#include "fakes/TempFolder.h"
#include "platform/win32/ProgramFolder.h"
#include "prereq/CheckDllVer.h"

namespace tessivo {
namespace {

class Win32FileVersionsTest : public testing::Test {
 protected:
  std::string version(const std::string& file) const {
    return CheckDllVer(versions).GetVersionInfo(file);
  }
  static std::string beside(const std::string& name) { return programFolder() + "\\" + name; }
  static std::vector<char> bytesOf(const std::string& file) {
    std::ifstream in(toFilePath(file), std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
  }
  std::string write(const std::string& name, const std::vector<char>& bytes) const {
    std::ofstream out(toFilePath(folder.file(name)), std::ios::binary);
    out.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    return folder.file(name);
  }
  /// Where the version resource begins in the file: at its key, with the six bytes before it.
  static std::size_t resourceIn(const std::vector<char>& bytes) {
    constexpr std::u16string_view kKey = u"VS_VERSION_INFO";
    const auto* const key = reinterpret_cast<const char*>(kKey.data());
    const auto at = std::search(bytes.begin(), bytes.end(), key, key + 2 * kKey.size());
    EXPECT_NE(at, bytes.end());
    return static_cast<std::size_t>(at - bytes.begin()) - 6;
  }

  Win32FileVersions versions;
  TempFolder folder;
  std::string old = beside("OldPlayer.dll");
};

TEST_F(Win32FileVersionsTest, TheVersionOfALibrary) {
  EXPECT_EQ(version(old), "8.1.20.65535");
}

TEST_F(Win32FileVersionsTest, AnywhereAndUnderAnyName) {
  EXPECT_EQ(version(write("播放器 a.b", bytesOf(old))), "8.1.20.65535");
}

TEST_F(Win32FileVersionsTest, ABareNameIsLookedForAmongTheLibraries) {
  const std::string kernel = version("kernel32.dll");
  EXPECT_NE(kernel, "N/A");
  EXPECT_GE(std::stoi(kernel), 6) << kernel;
}

TEST_F(Win32FileVersionsTest, WhatHasNoVersion) {
  EXPECT_EQ(version(beside("TestControl.dll")), "N/A");  // another resource, no version
  EXPECT_EQ(version(write("text.dll", {'n', 'o', 'n', 'e'})), "N/A");
  EXPECT_EQ(version(write("empty.dll", {})), "N/A");
  EXPECT_EQ(version(folder.file("missing.dll")), "N/A");
  EXPECT_EQ(version(programFolder()), "N/A");
  EXPECT_EQ(version("no such library.dll"), "N/A");
  EXPECT_EQ(version(""), "N/A");
  EXPECT_EQ(version(old + std::string("\0.dll", 5)), "N/A");
  EXPECT_EQ(version(std::string(40000, 'a')), "N/A");
  EXPECT_EQ(version("?*|<>"), "N/A");
}

TEST_F(Win32FileVersionsTest, TruncatedFilesAreReadWithoutHarm) {
  const auto whole = bytesOf(old);
  const std::size_t resource = resourceIn(whole);
  for (std::size_t size = 0; size < whole.size(); size += whole.size() / 40 + 1) {
    const auto end = whole.begin() + static_cast<std::ptrdiff_t>(size);
    const std::string found = version(write("cut.dll", {whole.begin(), end}));
    if (size <= resource) {
      EXPECT_EQ(found, "N/A") << size;
    }
  }
}

TEST_F(Win32FileVersionsTest, ADamagedResourceIsNoVersion) {
  auto damaged = bytesOf(old);
  const std::size_t resource = resourceIn(damaged);
  damaged[resource + 40] ^= 1;  // the signature
  EXPECT_EQ(version(write("signature.dll", damaged)), "N/A");
  damaged = bytesOf(old);
  damaged[resource + 2] = 0;  // the length of the fixed part
  damaged[resource + 3] = 0;
  EXPECT_EQ(version(write("length.dll", damaged)), "N/A");
  damaged = bytesOf(old);
  damaged[resource + 6] = 'X';  // the key
  EXPECT_EQ(version(write("key.dll", damaged)), "N/A");
}

TEST_F(Win32FileVersionsTest, AnyDamageToTheResourceIsReadWithoutHarm) {
  const auto whole = bytesOf(old);
  const std::size_t resource = resourceIn(whole);
  std::mt19937 random(4);  // NOLINT(cert-msc51-cpp): the same bytes each time
  for (int round = 0; round < 200; ++round) {
    auto damaged = whole;
    for (unsigned i = 1 + random() % 6; i > 0; --i) {
      damaged[resource + random() % 100] = static_cast<char>(random());
    }
    version(write("damaged.dll", damaged));
  }
}

TEST_F(Win32FileVersionsTest, NoFileStaysOpen) {
  const std::string file = write("old.dll", bytesOf(old));
  EXPECT_EQ(version(file), "8.1.20.65535");
  EXPECT_TRUE(std::filesystem::remove(toFilePath(file)));
}

}  // namespace
}  // namespace tessivo
