#include "base/TimeText.h"

#include <gtest/gtest.h>

#include <limits>

namespace tessivo {
namespace {

TEST(TimeTextTest, EachFieldHasTwoDigits) {
  EXPECT_EQ(strGetTimStringBySecValue(0), "00:00:00");
  EXPECT_EQ(strGetTimStringBySecValue(65), "00:01:05");
  EXPECT_EQ(strGetTimStringBySecValue(3599), "00:59:59");
  EXPECT_EQ(strGetTimStringBySecValue(3600), "01:00:00");
}

TEST(TimeTextTest, HoursMayHaveMoreDigits) {
  EXPECT_EQ(strGetTimStringBySecValue(360000), "100:00:00");
}

TEST(TimeTextTest, NegativeTimeHasItsSignInTheFieldsThatAreNotZero) {
  EXPECT_EQ(strGetTimStringBySecValue(-65), "00:-01:-05");
}

TEST(TimeTextTest, SmallestValueIsNoTrouble) {
  EXPECT_EQ(strGetTimStringBySecValue(std::numeric_limits<std::int32_t>::min()), "-596523:-14:-08");
}

}  // namespace
}  // namespace tessivo
