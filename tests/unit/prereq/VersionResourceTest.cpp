#include "prereq/VersionResource.h"

#include <gtest/gtest.h>

#include <random>

#include "fakes/FakeFileVersions.h"

namespace tessivo {
namespace {

constexpr FileVersion kSome{12, 0, 7601, 65535};

std::vector<std::uint8_t> some() {
  return versionResource(12, 0, 7601, 65535);
}

TEST(VersionResourceTest, TheNumbersStandInTheirOrder) {
  EXPECT_EQ(parseVersionResource(some()), kSome);
  EXPECT_EQ(parseVersionResource(versionResource(0, 0, 0, 0)), (FileVersion{0, 0, 0, 0}));
}

TEST(VersionResourceTest, WhatIsBehindThemDoesNotMatter) {
  auto resource = some();
  resource.resize(4000, 0xAA);
  EXPECT_EQ(parseVersionResource(resource), kSome);
  resource[0] = 0xFF;  // the length of the whole, as it is said
  resource[1] = 0xFF;
  EXPECT_EQ(parseVersionResource(resource), kSome);
}

TEST(VersionResourceTest, OneThatEndsBeforeHasNoVersion) {
  const auto whole = some();
  for (std::size_t size = 0; size < whole.size(); ++size) {
    // A copy of that size, so that a byte too far is seen.
    const std::vector<std::uint8_t> part(whole.begin(),
                                         whole.begin() + static_cast<std::ptrdiff_t>(size));
    EXPECT_EQ(parseVersionResource(part), std::nullopt) << size;
  }
}

TEST(VersionResourceTest, OneThatSaysItEndsBeforeHasNoVersion) {
  auto resource = some();
  resource[0] = 91;
  EXPECT_EQ(parseVersionResource(resource), std::nullopt);
  resource = some();
  resource[2] = 0;  // a value of no length: texts alone
  EXPECT_EQ(parseVersionResource(resource), std::nullopt);
  resource[2] = 51;
  EXPECT_EQ(parseVersionResource(resource), std::nullopt);
}

TEST(VersionResourceTest, AnotherKeyOrSignatureIsNoVersion) {
  for (const std::size_t at : {6U, 8U, 35U, 36U, 40U, 43U}) {
    auto resource = some();
    resource[at] ^= 1;
    EXPECT_EQ(parseVersionResource(resource), std::nullopt) << at;
  }
}

TEST(VersionResourceTest, AnyBytesAreReadWithoutHarm) {
  std::mt19937 random(8);  // NOLINT(cert-msc51-cpp): the same bytes each time
  for (int round = 0; round < 10000; ++round) {
    auto resource = some();
    for (unsigned i = random() % 8; i > 0; --i) {
      resource[random() % resource.size()] = static_cast<std::uint8_t>(random());
    }
    resource.resize(random() % 200);
    parseVersionResource(resource);
  }
}

}  // namespace
}  // namespace tessivo
