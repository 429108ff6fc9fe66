#include "base/Rounding.h"

#include <gtest/gtest.h>

namespace tessivo {
namespace {

TEST(RoundingTest, HalvesGoToTheEvenNeighbour) {
  EXPECT_EQ(roundHalfEven(0.5), 0);
  EXPECT_EQ(roundHalfEven(1.5), 2);
  EXPECT_EQ(roundHalfEven(2.5), 2);
  EXPECT_EQ(roundHalfEven(-0.5), 0);
  EXPECT_EQ(roundHalfEven(-1.5), -2);
  EXPECT_EQ(roundHalfEven(-2.5), -2);
}

TEST(RoundingTest, OtherValuesGoToTheNearest) {
  EXPECT_EQ(roundHalfEven(2.4999), 2);
  EXPECT_EQ(roundHalfEven(2.5001), 3);
  EXPECT_EQ(roundHalfEven(-2.5001), -3);
}

TEST(RoundingTest, SixteenBitRangeIsKept) {
  EXPECT_EQ(roundedToInt16(32767.4), std::int16_t{32767});
  EXPECT_EQ(roundedToInt16(32767.5), std::nullopt);
  EXPECT_EQ(roundedToInt16(-32768.5), std::int16_t{-32768});
  EXPECT_EQ(roundedToInt16(-32768.6), std::nullopt);
}

TEST(RoundingTest, ThirtyTwoBitRangeIsKept) {
  EXPECT_EQ(roundedToInt32(2147483647.0), 2147483647);
  EXPECT_EQ(roundedToInt32(2147483648.0), std::nullopt);
  EXPECT_EQ(roundedToInt32(-2147483648.0), std::numeric_limits<std::int32_t>::min());
}

TEST(RoundingTest, WhatIsNoNumberDoesNotFit) {
  EXPECT_EQ(roundedToInt32(std::numeric_limits<double>::quiet_NaN()), std::nullopt);
  EXPECT_EQ(roundedToInt32(std::numeric_limits<double>::infinity()), std::nullopt);
}

}  // namespace
}  // namespace tessivo
