#include "ssp/Placement.h"

#include <gtest/gtest.h>

#include <limits>

namespace tessivo::ssp {
namespace {

constexpr Rect kWork{-1280, 20, 1280, 980};

TEST(PlacementTest, WindowLiesAroundThePoint) {
  EXPECT_EQ(cornerAround({-600, 500}, {300, 200}, kWork), (Point{-750, 400}));
}

TEST(PlacementTest, WindowStaysInsideTheWorkArea) {
  EXPECT_EQ(cornerAround({-1279, 21}, {300, 200}, kWork), (Point{-1280, 20}));
  EXPECT_EQ(cornerAround({-1, 999}, {300, 200}, kWork), (Point{-300, 800}));
}

TEST(PlacementTest, WindowLargerThanTheWorkAreaShowsItsUpperLeftCorner) {
  EXPECT_EQ(cornerAround({-600, 500}, {3000, 2000}, kWork), (Point{-1280, 20}));
}

TEST(PlacementTest, AnyPointWillDo) {
  constexpr auto kMost = std::numeric_limits<std::int32_t>::max();
  constexpr auto kLeast = std::numeric_limits<std::int32_t>::min();
  EXPECT_EQ(cornerAround({kMost, kLeast}, {300, 200}, kWork), (Point{-300, 20}));
}

}  // namespace
}  // namespace tessivo::ssp
