#include "data/Value.h"

#include <gtest/gtest.h>

namespace tessivo {
namespace {

const Value kNull;

Value text(const char* content) {
  return std::string(content);
}

TEST(Value, NullIsTheEmptyTextAndNoNumber) {
  EXPECT_TRUE(isNull(kNull));
  EXPECT_EQ(asText(kNull), "");
  EXPECT_EQ(asNumber(kNull), std::nullopt);
}

TEST(Value, NumbersReadAsDecimalText) {
  EXPECT_EQ(asText(std::int64_t{-42}), "-42");
  EXPECT_EQ(asText(2.5), "2.5");
  EXPECT_EQ(asText(Blob{"ab"}), "ab");
}

TEST(Value, ATextThatIsANumberCounts) {
  EXPECT_EQ(asNumber(text("12")), 12);
  EXPECT_EQ(asNumber(text("  -3.5 ")), -3.5);
  EXPECT_EQ(asNumber(text("+7")), 7);
  EXPECT_EQ(asNumber(text("1e3")), 1000);
}

TEST(Value, AnyOtherTextIsNoNumber) {
  for (const char* garbage :
       {"", " ", "abc", "12 min", "+-1", "--1", "0x10", "nan", "inf", "1e999"}) {
    EXPECT_EQ(asNumber(text(garbage)), std::nullopt) << garbage;
  }
  EXPECT_EQ(asNumber(Blob{"12"}), std::nullopt);
}

TEST(Value, OnlyTheNumberOneIsTrue) {
  EXPECT_TRUE(isOne(std::int64_t{1}));
  EXPECT_TRUE(isOne(1.0));
  EXPECT_TRUE(isOne(text(" 1 ")));
  for (const Value& other : {Value(std::int64_t{0}), Value(std::int64_t{-1}), Value(1.2),
                             text("true"), text(""), kNull}) {
    EXPECT_FALSE(isOne(other)) << asText(other);
  }
}

TEST(Value, HalvesRoundToTheEvenNeighbour) {
  EXPECT_EQ(asInteger<std::int32_t>(2.5, -1), 2);
  EXPECT_EQ(asInteger<std::int32_t>(text("3.5"), -1), 4);
}

TEST(Value, WhatDoesNotFitGivesTheFallback) {
  EXPECT_EQ(asInteger<std::int16_t>(std::int64_t{32767}, 30), 32767);
  EXPECT_EQ(asInteger<std::int16_t>(std::int64_t{32768}, 30), 30);
  EXPECT_EQ(asInteger<std::int16_t>(std::int64_t{-32769}, 30), 30);
  EXPECT_EQ(asInteger<std::int32_t>(std::int64_t{1} << 40, 5), 5);
  EXPECT_EQ(asInteger<std::int32_t>(1e300, 5), 5);
  EXPECT_EQ(asInteger<std::int32_t>(text("9e18"), 5), 5);
  EXPECT_EQ(asInteger<std::int32_t>(kNull, 5), 5);
}

}  // namespace
}  // namespace tessivo
