#include "prereq/CheckDllVer.h"

#include <gtest/gtest.h>

#include "fakes/FakeFileVersions.h"

namespace tessivo {
namespace {

TEST(CheckDllVerTest, TheVersionIsNumbersWithPointsBetween) {
  FakeFileVersions versions;
  versions.files["wmp.dll"] = versionResource(12, 0, 7601, 16982);
  versions.files["a b.dll"] = versionResource(0, 0, 0, 65535);
  const CheckDllVer check(versions);
  EXPECT_EQ(check.GetVersionInfo("wmp.dll"), "12.0.7601.16982");
  EXPECT_EQ(check.GetVersionInfo("a b.dll"), "0.0.0.65535");
  EXPECT_EQ(versions.asked, (std::vector<std::string>{"wmp.dll", "a b.dll"}));
}

TEST(CheckDllVerTest, AFileWithoutAVersionIsNotAvailable) {
  FakeFileVersions versions;
  versions.files["empty.dll"] = {};
  versions.files["damaged.dll"] = versionResource(12, 0, 0, 0);
  versions.files["damaged.dll"].resize(60);
  const CheckDllVer check(versions);
  for (const char* const name : {"empty.dll", "damaged.dll", "missing.dll", ""}) {
    EXPECT_EQ(check.GetVersionInfo(name), "N/A") << name;
  }
}

}  // namespace
}  // namespace tessivo
