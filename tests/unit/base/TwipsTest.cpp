#include "base/Twips.h"

#include <gtest/gtest.h>

namespace tessivo {
namespace {

TEST(TwipsTest, FactorFollowsTheResolution) {
  EXPECT_EQ(twipsPerPixelAt(96).x, 15);
  EXPECT_EQ(twipsPerPixelAt(144).y, 10);
}

TEST(TwipsTest, TwipsBecomePixelsHalvesToTheEven) {
  EXPECT_EQ(toPixels(1500, 15), 100);
  EXPECT_EQ(toPixels(-1920 * 15, 15), -1920);
  EXPECT_EQ(toPixels(15, 10), 2);
  EXPECT_EQ(toPixels(25, 10), 2);
}

TEST(TwipsTest, PixelsGoThereAndBackAtEveryUsualResolution) {
  for (const double dpi : {96.0, 120.0, 144.0, 168.0, 192.0, 288.0}) {
    const double factor = twipsPerPixelAt(dpi).x;
    for (std::int32_t pixels = -8000; pixels <= 8000; ++pixels) {
      ASSERT_EQ(toPixels(toTwips(pixels, factor), factor), pixels) << dpi;
    }
  }
}

}  // namespace
}  // namespace tessivo
