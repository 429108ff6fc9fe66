#include "monitors/cMonitor.h"

#include <gtest/gtest.h>

#include "fakes/FakeDisplays.h"

namespace tessivo {
namespace {

TEST(cMonitorTest, HoldsWhatTheSystemSaysOfTheMonitor) {
  FakeDisplays displays;
  const auto handle = displays.add({-1280, 16, 1280, 1024}, true, Rect{-1240, 20, 1200, 980});

  const auto monitor = cMonitor::read(displays, handle);

  ASSERT_TRUE(monitor);
  EXPECT_TRUE(monitor->IsPrimary());
  EXPECT_EQ(monitor->hMonitor(), handle);
  EXPECT_EQ(monitor->name(), R"(\\.\DISPLAY1)");
  EXPECT_EQ(monitor->Left(), -1280);
  EXPECT_EQ(monitor->Top(), 16);
  EXPECT_EQ(monitor->Width(), 1280);
  EXPECT_EQ(monitor->Height(), 1024);
  EXPECT_EQ(monitor->WorkLeft(), -1240);
  EXPECT_EQ(monitor->WorkTop(), 20);
  EXPECT_EQ(monitor->WorkWidth(), 1200);
  EXPECT_EQ(monitor->WorkHeight(), 980);
}

TEST(cMonitorTest, SaysThatAMonitorIsNotThePrimaryOne) {
  FakeDisplays displays;
  const auto handle = displays.add({0, 0, 800, 600}, false);
  EXPECT_FALSE(cMonitor::read(displays, handle)->IsPrimary());
}

TEST(cMonitorTest, GivesNothingForAHandleOfNoMonitor) {
  FakeDisplays displays;
  displays.add({0, 0, 800, 600}, true);
  EXPECT_FALSE(cMonitor::read(displays, 999));
  EXPECT_FALSE(cMonitor::read(displays, 0));
}

TEST(cMonitorTest, KeepsItsValuesWhenTheMonitorIsUnplugged) {
  FakeDisplays displays;
  const auto handle = displays.add({5, 6, 800, 600}, true);
  const auto monitor = cMonitor::read(displays, handle);
  displays.remove(handle);
  EXPECT_EQ(monitor->Left(), 5);
}

}  // namespace
}  // namespace tessivo
