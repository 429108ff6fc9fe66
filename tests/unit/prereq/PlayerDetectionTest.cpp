#include "prereq/PlayerDetection.h"

#include <gtest/gtest.h>

#include <stdexcept>

#include "fakes/FakeFileVersions.h"
#include "fakes/FakeLog.h"

namespace tessivo {
namespace {

class PlayerDetectionTest : public testing::Test {
 protected:
  PlayerDetection detection(PlayersNeeded needed = {}) {
    return {versions,
            [this] {
              ++realAsked;
              if (realThrows) throw std::runtime_error("no memory");
              return realFailure;
            },
            needed, log};
  }
  /// Whether Windows Media Player of that version is taken for installed.
  bool takes(std::uint16_t major, std::uint16_t minor) {
    versions.files["wmp.dll"] = versionResource(major, minor, 0, 0);
    return detection().detect().mediaPlayer;
  }

  FakeFileVersions versions;
  FakeLog log;
  std::string realFailure;
  int realAsked = 0;
  bool realThrows = false;
};

TEST_F(PlayerDetectionTest, MediaPlayerCountsFromVersionNine) {
  EXPECT_FALSE(takes(0, 0));
  EXPECT_FALSE(takes(8, 0));
  EXPECT_FALSE(takes(8, 65535));
  EXPECT_TRUE(takes(9, 0));
  EXPECT_TRUE(takes(9, 1));
  EXPECT_TRUE(takes(10, 0));  // not by its first digit
  EXPECT_TRUE(takes(12, 0));
  EXPECT_TRUE(takes(65535, 0));
}

TEST_F(PlayerDetectionTest, AFileWithoutAVersionIsNoMediaPlayer) {
  EXPECT_FALSE(detection().detect().mediaPlayer);
  versions.files["wmp.dll"] = {1, 2, 3};
  EXPECT_FALSE(detection().detect().mediaPlayer);
  EXPECT_EQ(versions.asked, (std::vector<std::string>{"wmp.dll", "wmp.dll"}));
}

TEST_F(PlayerDetectionTest, RealPlayerCountsWhenItAnswers) {
  EXPECT_TRUE(detection().detect().realPlayer);
  realFailure = "it is not installed";
  EXPECT_FALSE(detection().detect().realPlayer);
}

TEST_F(PlayerDetectionTest, BothAreLookedForEveryTime) {
  auto both = detection();
  realFailure = "it is not installed";
  EXPECT_FALSE(both.detect().both());
  versions.files["wmp.dll"] = versionResource(12, 0, 0, 0);
  EXPECT_FALSE(both.detect().both());
  realFailure.clear();
  EXPECT_TRUE(both.detect().both());
  versions.files.clear();
  EXPECT_FALSE(both.detect().both());
  EXPECT_EQ(realAsked, 4);
  EXPECT_EQ(versions.asked.size(), 4U);
}

TEST_F(PlayerDetectionTest, WhatIsNotNeededIsThereAndNotLookedFor) {
  realFailure = "it is not installed";
  EXPECT_TRUE(detection({false, false}).detect().both());
  EXPECT_EQ(realAsked, 0);
  EXPECT_TRUE(versions.asked.empty());
  EXPECT_TRUE(log.lines.empty());
  const PlayersFound mediaOnly = detection({true, false}).detect();
  EXPECT_FALSE(mediaOnly.mediaPlayer);
  EXPECT_TRUE(mediaOnly.realPlayer);
  const PlayersFound realOnly = detection({false, true}).detect();
  EXPECT_TRUE(realOnly.mediaPlayer);
  EXPECT_FALSE(realOnly.realPlayer);
}

TEST_F(PlayerDetectionTest, AnExceptionMeansThatThePlayerIsNotThere) {
  realThrows = true;
  versions.throws = true;
  const PlayersFound found = detection().detect();
  EXPECT_FALSE(found.mediaPlayer);
  EXPECT_FALSE(found.realPlayer);
  EXPECT_EQ(log.lines, (std::vector<std::string>{
                           "info Windows Media Player is not installed: cannot be read",
                           "info RealPlayer is not installed: asking it failed: no memory"}));
}

TEST_F(PlayerDetectionTest, TheLogHasWhatIsNew) {
  auto both = detection();
  realFailure = "no such class";
  both.detect();
  both.detect();
  EXPECT_EQ(log.lines, (std::vector<std::string>{
                           "info Windows Media Player is not installed: wmp.dll is of version N/A",
                           "info RealPlayer is not installed: no such class"}));
  log.lines.clear();
  versions.files["wmp.dll"] = versionResource(12, 0, 1, 2);
  realFailure.clear();
  both.detect();
  both.detect();
  EXPECT_EQ(log.lines, (std::vector<std::string>{
                           "info Windows Media Player is installed: wmp.dll is of version 12.0.1.2",
                           "info RealPlayer is installed"}));
}

}  // namespace
}  // namespace tessivo
