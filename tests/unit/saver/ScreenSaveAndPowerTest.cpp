#include "saver/ScreenSaveAndPower.h"

#include <gtest/gtest.h>

#include "fakes/FakeSaverSystem.h"

namespace tessivo {
namespace {

class ScreenSaveAndPowerTest : public testing::Test {
 protected:
  Trace trace;
  FakeSystemPower system{trace};
  ScreenSaveAndPower power{system};
};

TEST_F(ScreenSaveAndPowerTest, SwitchesTheScreenSaverOffAndOnInTheProfileAndForEveryWindow) {
  power.CloseScreenSave();
  EXPECT_EQ(trace.take(), "parameters 17 0 0 3");
  power.OpenScreenSave();
  EXPECT_EQ(trace.take(), "parameters 17 1 0 3");
}

TEST_F(ScreenSaveAndPowerTest, AsksWhetherTheScreenSaverIsOn) {
  system.answer = 1;
  EXPECT_TRUE(power.boolCurrentScreenSaveState());
  EXPECT_EQ(trace.take(), "parameters 16 0 0 0");
  system.answer = 0;
  EXPECT_FALSE(power.boolCurrentScreenSaveState());
  system.answer = 0x80000000;
  EXPECT_TRUE(power.boolCurrentScreenSaveState());
}

TEST_F(ScreenSaveAndPowerTest, ARefusedQuestionMeansOff) {
  system.fails = true;
  system.answer = 1;
  EXPECT_FALSE(power.boolCurrentScreenSaveState());
}

TEST_F(ScreenSaveAndPowerTest, SetsTheScreenSaversTimeInSeconds) {
  power.SetScreenSaveTimeout(900);
  EXPECT_EQ(trace.take(), "parameters 15 900 0 3");
}

TEST_F(ScreenSaveAndPowerTest, KeepsTheSystemAndItsDisplaysAwakeUntilToldOtherwise) {
  power.DisEnablePowerSaver();
  EXPECT_EQ(trace.take(), "execution state 80000003");
  power.EnablePowerSaver();
  EXPECT_EQ(trace.take(), "execution state 80000000");
}

TEST_F(ScreenSaveAndPowerTest, WhatTheSystemRefusesIsIgnored) {
  system.fails = true;
  power.CloseScreenSave();
  power.DisEnablePowerSaver();
  EXPECT_EQ(trace.take(), "parameters 17 0 0 3 | execution state 80000003");
}

}  // namespace
}  // namespace tessivo
