#include "ssp/PictureShape.h"

#include <gtest/gtest.h>

#include <string>

namespace tessivo::ssp {
namespace {

TEST(PictureShapeTest, FitsIntoTheAreaAndKeepsItsProportions) {
  EXPECT_EQ(fittedInto({1600, 900}, {1280, 1024}), (Size{1280, 720}));
  EXPECT_EQ(fittedInto({900, 1600}, {1280, 1024}), (Size{576, 1024}));
  EXPECT_EQ(fittedInto({128, 72}, {1280, 1024}), (Size{1280, 720}));
  EXPECT_EQ(fittedInto({5, 4}, {1280, 1024}), (Size{1280, 1024}));
}

TEST(PictureShapeTest, LinesAreAtLeastAPixelWide) {
  EXPECT_EQ(fittedInto({100'000, 1}, {1280, 1024}), (Size{1280, 1}));
  EXPECT_EQ(fittedInto({1, 100'000}, {1280, 1024}), (Size{1, 1024}));
  EXPECT_EQ(fittedInto({2'000'000'000, 2'000'000'000}, {32767, 32767}), (Size{32767, 32767}));
  EXPECT_EQ(fittedInto({3, 2}, {1, 1}), (Size{1, 1}));
}

TEST(PictureShapeTest, HundredMillionPixelsAreTheMost) {
  EXPECT_FALSE(cannotBeDecoded(10'000, 10'000));
  EXPECT_TRUE(cannotBeDecoded(10'001, 10'000));
  EXPECT_TRUE(cannotBeDecoded(0x80000000U, 2));
  EXPECT_TRUE(cannotBeDecoded(0, 5));
  EXPECT_TRUE(cannotBeDecoded(5, 0));
}

/// The upright picture's rows, of a stored one that has "abc" above "def".
std::string upright(Orientation orientation) {
  const auto pixels = turnedUpright({'a', 'b', 'c', 'd', 'e', 'f'}, {3, 2}, orientation);
  std::string rows;
  for (std::size_t i = 0; i < pixels.size(); ++i) {
    if (i > 0 && i % (liesOnASide(orientation) ? 2 : 3) == 0) rows += "/";
    rows += static_cast<char>(pixels[i]);
  }
  return rows;
}

TEST(PictureShapeTest, EachOrientationIsTurnedUpright) {
  EXPECT_EQ(upright(1), "abc/def");
  EXPECT_EQ(upright(2), "cba/fed");
  EXPECT_EQ(upright(3), "fed/cba");
  EXPECT_EQ(upright(4), "def/abc");
  EXPECT_EQ(upright(5), "ad/be/cf");
  EXPECT_EQ(upright(6), "da/eb/fc");
  EXPECT_EQ(upright(7), "fc/eb/da");
  EXPECT_EQ(upright(8), "cf/be/ad");
}

TEST(PictureShapeTest, OtherNumbersTurnNothing) {
  EXPECT_EQ(upright(0), "abc/def");
  EXPECT_EQ(upright(9), "abc/def");
  EXPECT_EQ(upright(-6), "abc/def");
}

}  // namespace
}  // namespace tessivo::ssp
