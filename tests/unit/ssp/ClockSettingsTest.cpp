#include "ssp/ClockSettings.h"

#include <gtest/gtest.h>

#include <set>
#include <string>

namespace tessivo::ssp {
namespace {

TEST(ClockSettingsTest, WithoutAFileThereAreTheDefaults) {
  const ClockSettings settings = parseClockSettings("");
  EXPECT_EQ(settings, ClockSettings{});
  EXPECT_EQ(settings.size, ClockSize::medium);
  EXPECT_TRUE(settings.seconds);
  EXPECT_TRUE(settings.date);
}

TEST(ClockSettingsTest, WhatIsWrittenIsRead) {
  for (const ClockSize size : {ClockSize::small, ClockSize::medium, ClockSize::large}) {
    for (std::size_t colour = 0; colour < kClockColours.size(); ++colour) {
      for (const bool flag : {false, true}) {
        const ClockSettings settings{size, colour, flag, !flag};
        EXPECT_EQ(parseClockSettings(clockSettingsText(settings)), settings);
      }
    }
  }
}

TEST(ClockSettingsTest, CaseAndBlanksDoNotMatter) {
  const auto settings = parseClockSettings("\xEF\xBB\xBF; x\n[clock]\nsize = LARGE\ncolour=Sky \n");
  EXPECT_EQ(settings.size, ClockSize::large);
  EXPECT_STREQ(kClockColours.at(settings.colour).key, "sky");
}

TEST(ClockSettingsTest, WhatIsNotUnderstoodHasItsDefaultOneByOne) {
  const auto settings = parseClockSettings(
      "[Clock]\nSize=huge\nColour=12\nSeconds=0\nDate=maybe\nFont=Arial\nno value\n=\n");
  EXPECT_EQ(settings, (ClockSettings{ClockSize::medium, 0, false, true}));
}

TEST(ClockSettingsTest, OtherSectionsDoNotCount) {
  EXPECT_EQ(parseClockSettings("Size=large\n[Other]\nSize=large\n"), ClockSettings{});
}

TEST(ClockSettingsTest, DamagedTextsAreDefaults) {
  const std::string good = "[Clock]\nSize=large\n";
  EXPECT_NE(parseClockSettings(good), ClockSettings{});
  EXPECT_EQ(parseClockSettings(good + '\0'), ClockSettings{});
  EXPECT_EQ(parseClockSettings(good + std::string(65536, 'x')), ClockSettings{});
  EXPECT_EQ(parseClockSettings("\xFF\xFE[\0C"), ClockSettings{});
}

TEST(ClockSettingsTest, ColoursHaveNamesOfTheirOwn) {
  std::set<std::string> keys;
  std::set<std::string> names;
  for (const ClockColour& colour : kClockColours) {
    keys.insert(colour.key);
    names.insert(colour.name);
  }
  EXPECT_EQ(keys.size(), kClockColours.size());
  EXPECT_EQ(names.size(), kClockColours.size());
}

}  // namespace
}  // namespace tessivo::ssp
