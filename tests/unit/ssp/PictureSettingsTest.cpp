#include "ssp/PictureSettings.h"

#include <gtest/gtest.h>

namespace tessivo::ssp {
namespace {

TEST(PictureSettingsTest, WithoutAFileThereAreTheDefaults) {
  const PictureSettings settings = parsePictureSettings("");
  EXPECT_EQ(settings, (PictureSettings{"", 10, PictureOrder::byName}));
}

TEST(PictureSettingsTest, WhatIsWrittenIsRead) {
  for (const int seconds : kStaySeconds) {
    for (const auto order : {PictureOrder::byName, PictureOrder::random}) {
      const PictureSettings settings{"D:\\照片 2026; [旅行]=x", seconds, order};
      EXPECT_EQ(parsePictureSettings(pictureSettingsText(settings)), settings);
    }
  }
}

TEST(PictureSettingsTest, WhatIsNotUnderstoodHasItsDefaultOneByOne) {
  EXPECT_EQ(parsePictureSettings("[Pictures]\nFolder=C:\\a\nSeconds=4\nOrder=upward\n"),
            (PictureSettings{"C:\\a", 10, PictureOrder::byName}));
  EXPECT_EQ(parsePictureSettings("[Pictures]\nSeconds=0300\nOrder=Random\n"),
            (PictureSettings{"", 10, PictureOrder::random}));
  EXPECT_EQ(parsePictureSettings("[Pictures]\nSeconds=300\n").staySeconds, 300);
}

TEST(PictureSettingsTest, FolderOfSeveralLinesIsNotWritten) {
  const PictureSettings settings{"C:\\a\nOrder=random", 3, PictureOrder::byName};
  EXPECT_EQ(parsePictureSettings(pictureSettingsText(settings)),
            (PictureSettings{"", 3, PictureOrder::byName}));
}

}  // namespace
}  // namespace tessivo::ssp
