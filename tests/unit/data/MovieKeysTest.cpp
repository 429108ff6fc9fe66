#include "data/MovieKeys.h"

#include <gtest/gtest.h>

#include <set>
#include <string>
#include <vector>

#include "data/Movie.h"
#include "fakes/VirtualTime.h"

namespace tessivo {
namespace {

class MovieKeysTest : public testing::Test {
 protected:
  void setTime(int year, int month, int day, int msOfDay) {
    time.setDate({year, month, day, msOfDay});
  }
  VirtualTime time;
  MovieKeys keys{time};
};

TEST_F(MovieKeysTest, AKeyIsDateWithoutPaddingAndEightDigitsOfMilliseconds) {
  setTime(2007, 8, 15, 123456);
  EXPECT_EQ(keys.newKey(), "F200781500123456");
}

TEST_F(MovieKeysTest, MidnightIsEightZeros) {
  setTime(2026, 12, 31, 0);
  EXPECT_EQ(keys.newKey(), "F2026123100000000");
}

TEST_F(MovieKeysTest, AMovieHasItsKeyFromTheStart) {
  setTime(2007, 8, 15, 123456);
  const Movie movie(keys);
  EXPECT_EQ(movie.strKey, "F200781500123456");
  EXPECT_FALSE(movie.boolIsPlayItem);
  EXPECT_FALSE(movie.boolIsActItem);
}

TEST_F(MovieKeysTest, InTheSameMillisecondTheNextNumberIsTaken) {
  setTime(2007, 8, 15, 5);
  EXPECT_EQ(keys.newKey(), "F200781500000005");
  EXPECT_EQ(keys.newKey(), "F200781500000006");
  time.advance(1);
  EXPECT_EQ(keys.newKey(), "F200781500000007");
  time.advance(10);
  EXPECT_EQ(keys.newKey(), "F200781500000016");
}

TEST_F(MovieKeysTest, WhateverTheClockDoesNoKeyComesTwice) {
  std::set<std::string> given;
  // On over the end of the year, back to the beginning, on by a year, and back by an hour.
  const std::vector<LocalTime> moments{{2026, 12, 31, 86'399'999},
                                       {2027, 1, 1, 0},
                                       {2026, 12, 31, 86'399'999},
                                       {2028, 1, 1, 3'600'000},
                                       {2028, 1, 1, 0},
                                       {2026, 1, 11, 7},
                                       {2026, 11, 1, 7}};
  for (int round = 0; round < 3; ++round) {
    for (const LocalTime& moment : moments) {
      time.setDate(moment);
      EXPECT_TRUE(given.insert(keys.newKey()).second) << moment.year << ' ' << moment.msOfDay;
    }
  }
}

TEST_F(MovieKeysTest, AReservedKeyIsNotGivenOut) {
  setTime(2007, 8, 15, 5);
  keys.reserve("f200781500000005");
  keys.reserve("F200781500000006");
  EXPECT_EQ(keys.newKey(), "F200781500000007");
}

TEST_F(MovieKeysTest, ReservingForeignKeysIsHarmless) {
  setTime(2007, 8, 15, 5);
  for (const char* foreign : {"", "F", "00000005", "movie", "F2007815x0000005"}) {
    keys.reserve(foreign);
  }
  EXPECT_EQ(keys.newKey(), "F200781500000005");
}

TEST_F(MovieKeysTest, WhenTheClockGoesBackTheFirstFreeNumberFromThereIsTaken) {
  setTime(2007, 8, 15, 100);
  EXPECT_EQ(keys.newKey(), "F200781500000100");
  setTime(2007, 8, 15, 99);
  EXPECT_EQ(keys.newKey(), "F200781500000099");
  EXPECT_EQ(keys.newKey(), "F200781500000101");
}

TEST_F(MovieKeysTest, DatesThatReadAlikeShareTheirNumbers) {
  setTime(2007, 1, 11, 5);
  EXPECT_EQ(keys.newKey(), "F200711100000005");
  setTime(2007, 11, 1, 5);
  EXPECT_EQ(keys.newKey(), "F200711100000006");
}

TEST_F(MovieKeysTest, PastTheLastMillisecondOfTheDayTheNumbersGoOn) {
  setTime(2007, 8, 15, 86399999);
  EXPECT_EQ(keys.newKey(), "F200781586399999");
  EXPECT_EQ(keys.newKey(), "F200781586400000");
}

TEST_F(MovieKeysTest, AfterTheLastEightDigitNumberTheSearchGoesOnAtZero) {
  setTime(2007, 8, 15, 86399999);
  for (std::uint32_t number = 86399999; number < 86400003; ++number) {
    keys.reserve("F2007815" + std::to_string(number));
  }
  keys.reserve("F200781500000000");
  setTime(2007, 8, 15, 99999999);
  EXPECT_EQ(keys.newKey(), "F200781599999999");
  EXPECT_EQ(keys.newKey(), "F200781500000001");
}

TEST_F(MovieKeysTest, AHundredThousandInOneMillisecondAreAllDifferent) {
  setTime(2026, 11, 20, 36000000);
  std::set<std::string> all;
  for (int i = 0; i < 100000; ++i) all.insert(keys.newKey());
  EXPECT_EQ(all.size(), 100000u);
  EXPECT_EQ(*all.rbegin(), "F2026112036099999");
}

}  // namespace
}  // namespace tessivo
