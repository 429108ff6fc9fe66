#include "ssp/ClockFace.h"

#include <gtest/gtest.h>

#include <string>

namespace tessivo::ssp {
namespace {

LocalTime at(int hours, int minutes, int seconds, int ms = 0) {
  return {2026, 11, 21, ((hours * 60 + minutes) * 60 + seconds) * 1000 + ms};
}

TEST(ClockTextTest, TimeHasTwoDigitsEach) {
  EXPECT_EQ(clockTimeText(at(9, 5, 7, 999), true), "09:05:07");
  EXPECT_EQ(clockTimeText(at(23, 59, 59), true), "23:59:59");
  EXPECT_EQ(clockTimeText(at(0, 0, 0), true), "00:00:00");
}

TEST(ClockTextTest, TimeWithoutSecondsEndsWithTheMinutes) {
  EXPECT_EQ(clockTimeText(at(9, 5, 59), false), "09:05");
}

TEST(ClockTextTest, DateIsChinese) {
  EXPECT_EQ(clockDateText({2026, 11, 21, 0}), "2026年11月21日 星期六");
  EXPECT_EQ(clockDateText({2026, 11, 22, 0}), "2026年11月22日 星期日");
  EXPECT_EQ(clockDateText({2024, 2, 29, 0}), "2024年2月29日 星期四");
  EXPECT_EQ(clockDateText({2026, 1, 1, 0}), "2026年1月1日 星期四");
}

TEST(ClockTextTest, NextDrawingIsRightAfterTheSecondBegins) {
  EXPECT_EQ(msToNextSecond(at(1, 2, 3, 0)), 1010);
  EXPECT_EQ(msToNextSecond(at(1, 2, 3, 400)), 610);
  EXPECT_EQ(msToNextSecond(at(1, 2, 3, 999)), 11);
}

/// Letters half as wide as they are high, Chinese ones as wide; each byte above ASCII a third of
/// one.
Size measure(const std::string& text, std::int32_t fontHeight) {
  std::int32_t sixths = 0;
  for (const char c : text) sixths += static_cast<unsigned char>(c) < 0x80 ? 3 : 2;
  return {(sixths * fontHeight + 5) / 6, fontHeight + fontHeight / 3};
}

const std::string kDate = "2026年11月21日 星期六";

TEST(ClockBlockTest, DateLiesBelowTheTimeAndBothAreAsWideAsTheBlock) {
  const ClockBlock block = layOutClock({}, kDate, {1280, 1024}, measure);
  EXPECT_EQ(block.time.top, 0);
  EXPECT_EQ(block.date.top, block.time.height);
  EXPECT_EQ(block.size.height, block.time.height + block.date.height);
  EXPECT_EQ(block.time.width, block.size.width);
  EXPECT_EQ(block.date.width, block.size.width);
  EXPECT_EQ(block.dateFont, block.timeFont / 4);
}

TEST(ClockBlockTest, WithoutDateThereIsOnlyTheTime) {
  const ClockBlock block = layOutClock({}, "", {1280, 1024}, measure);
  EXPECT_EQ(block.dateFont, 0);
  EXPECT_EQ(block.size.height, block.time.height);
}

TEST(ClockBlockTest, SizesDiffer) {
  const auto fontOf = [](ClockSize size) {
    return layOutClock({size}, kDate, {1280, 1024}, measure).timeFont;
  };
  EXPECT_LT(fontOf(ClockSize::small) * 5, fontOf(ClockSize::medium) * 4);
  EXPECT_LT(fontOf(ClockSize::medium) * 5, fontOf(ClockSize::large) * 4);
}

TEST(ClockBlockTest, FontIsThatOfASquareAsLargeAsTheArea) {
  // Upright, crosswise and square: all have the side 800.
  for (const Size area : {Size{400, 1600}, Size{1600, 400}, Size{800, 800}}) {
    EXPECT_EQ(layOutClock({ClockSize::small}, kDate, area, measure).timeFont, 72) << area.width;
  }
}

TEST(ClockBlockTest, WithoutSecondsTheBlockIsNarrower) {
  ClockSettings settings;
  const Size with = layOutClock(settings, "", {1280, 1024}, measure).size;
  settings.seconds = false;
  EXPECT_LT(layOutClock(settings, "", {1280, 1024}, measure).size.width, with.width);
}

class ClockBlockFits : public ::testing::TestWithParam<Size> {};

TEST_P(ClockBlockFits, InNineTenthsOfTheArea) {
  const Size area = GetParam();
  for (const ClockSize size : {ClockSize::small, ClockSize::medium, ClockSize::large}) {
    const ClockBlock block = layOutClock({size}, kDate, area, measure);
    EXPECT_LE(block.size.width * 10, area.width * 9);
    EXPECT_LE(block.size.height * 10, area.height * 9);
    EXPECT_GE(block.timeFont, 1);
    EXPECT_GE(block.dateFont, 1);
  }
}

INSTANTIATE_TEST_SUITE_P(Areas, ClockBlockFits,
                         ::testing::Values(Size{1280, 1024}, Size{200, 1024}, Size{20000, 10},
                                           Size{32767, 32767}, Size{40, 20}, Size{100, 2000}));

TEST(ClockBlockTest, StripIsFilledAsFarAsItGoes) {
  const ClockBlock block = layOutClock({}, kDate, {20000, 10}, measure);
  EXPECT_GE(block.timeFont, 5);
}

TEST(ClockBlockTest, AreaOfOnePixelHasTheSmallestFont) {
  const ClockBlock block = layOutClock({}, kDate, {1, 1}, measure);
  EXPECT_EQ(block.timeFont, 1);
  EXPECT_EQ(block.dateFont, 1);
}

}  // namespace
}  // namespace tessivo::ssp
