#include "platform/LimitedLog.h"

#include <gtest/gtest.h>

#include "fakes/FakeLog.h"
#include "fakes/VirtualTime.h"

namespace tessivo {
namespace {

class LimitedLogTest : public testing::Test {
 protected:
  void write(int lines) {
    for (int i = 0; i < lines; ++i) limited.info("request");
  }
  std::size_t taken() { return std::exchange(log.lines, {}).size(); }

  FakeLog log;
  VirtualTime time;
  LimitedLog limited{log, time};
};

TEST_F(LimitedLogTest, PassesOnWhatComesNowAndThen) {
  limited.info("a");
  limited.error("b");
  EXPECT_EQ(log.lines, (std::vector<std::string>{"info a", "error b"}));
}

TEST_F(LimitedLogTest, OfAFloodTheFirstFiveHundredLinesPass) {
  write(100000);
  EXPECT_EQ(taken(), 500U);
}

TEST_F(LimitedLogTest, ThenOneEveryThreeSecondsWithTheCountOfTheOthers) {
  write(510);
  taken();
  time.advance(2999);
  write(1);
  EXPECT_EQ(taken(), 0U);
  time.advance(1);
  write(2);
  EXPECT_EQ(log.lines, (std::vector<std::string>{"info requests not logged: 11", "info request"}));
}

TEST_F(LimitedLogTest, WhatStaysAwayForLongMayComeInNumbersAgain) {
  write(1000);
  taken();
  time.advance(24 * 60 * 60 * 1000);
  write(1000);
  EXPECT_EQ(taken(), 501U);  // and the count
}

TEST_F(LimitedLogTest, AClockThatBeganLongAgoGivesNoMore) {
  time.advance(1000000000);
  write(1000);
  EXPECT_EQ(taken(), 500U);
}

}  // namespace
}  // namespace tessivo
