#include "ssp/InputWatch.h"

#include <gtest/gtest.h>

#include "fakes/VirtualTime.h"

namespace tessivo::ssp {
namespace {

struct Input : IdleInput {
  std::optional<std::uint32_t> lastInputTick() const override { return tick; }
  std::uint32_t tickCount() const override { return 0; }
  std::optional<std::uint32_t> tick = 1000;
};

struct InputWatchTest : ::testing::Test {
  VirtualTime time;
  Input input;
  int ended = 0;
  InputWatch watch{input, time, [this] { ++ended; }};
};

TEST_F(InputWatchTest, WithoutInputItGoesOn) {
  time.advance(3'600'000);
  EXPECT_EQ(ended, 0);
}

TEST_F(InputWatchTest, InputEndsItWithin200Ms) {
  time.advance(5000);
  input.tick = 1001;
  time.advance(200);
  EXPECT_EQ(ended, 1);
}

TEST_F(InputWatchTest, InputIsToldOnce) {
  time.advance(5000);
  input.tick = 1001;
  time.advance(200);
  input.tick = 1002;
  time.advance(5000);
  EXPECT_EQ(ended, 1);
}

TEST_F(InputWatchTest, InputOfTheFirst700MsDoesNotCount) {
  time.advance(699);
  input.tick = 1001;
  time.advance(60'000);
  EXPECT_EQ(ended, 0);
  input.tick = 1002;
  time.advance(200);
  EXPECT_EQ(ended, 1);
}

TEST_F(InputWatchTest, InputRightAfterTheFirst700MsCounts) {
  time.advance(700);
  input.tick = 1001;
  time.advance(200);
  EXPECT_EQ(ended, 1);
}

TEST_F(InputWatchTest, TickThatBeginsAnewCountsToo) {
  time.advance(700);
  input.tick = 3;
  time.advance(200);
  EXPECT_EQ(ended, 1);
}

TEST_F(InputWatchTest, InputOfTheOwnWindowIsToldAtOnceButNotInTheFirst700Ms) {
  time.advance(699);
  watch.noteOwnInput();
  EXPECT_EQ(ended, 0);
  time.advance(1);
  EXPECT_EQ(ended, 0);
  watch.noteOwnInput();
  EXPECT_EQ(ended, 1);
  watch.noteOwnInput();
  input.tick = 1001;
  time.advance(5000);
  EXPECT_EQ(ended, 1);
}

TEST_F(InputWatchTest, SystemThatDoesNotTellEndsNothing) {
  input.tick.reset();
  time.advance(5000);
  input.tick = 7;
  time.advance(5000);
  input.tick.reset();
  time.advance(5000);
  EXPECT_EQ(ended, 0);
  input.tick = 8;
  time.advance(200);
  EXPECT_EQ(ended, 1);
}

}  // namespace
}  // namespace tessivo::ssp
