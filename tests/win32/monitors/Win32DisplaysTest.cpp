#include "platform/win32/Win32Displays.h"

#include <gtest/gtest.h>

namespace tessivo {
namespace {

TEST(Win32DisplaysTest, EveryReportedMonitorCanBeRead) {
  const Win32Displays displays;
  const auto handles = displays.enumerate();
  ASSERT_FALSE(handles.empty());
  for (const MonitorHandle handle : handles) {
    const auto info = displays.info(handle);
    ASSERT_TRUE(info);
    EXPECT_GT(info->monitor.width, 0);
    EXPECT_GT(info->monitor.height, 0);
    EXPECT_FALSE(info->name.empty());
  }
}

TEST(Win32DisplaysTest, ExactlyOneMonitorIsThePrimaryAndItStartsAtZero) {
  const Win32Displays displays;
  int primaries = 0;
  for (const MonitorHandle handle : displays.enumerate()) {
    const auto info = displays.info(handle);
    if (!info || !info->isPrimary) continue;
    ++primaries;
    EXPECT_EQ(info->monitor, displays.primaryScreen());
  }
  EXPECT_EQ(primaries, 1);
}

TEST(Win32DisplaysTest, GivesNothingForAHandleOfNoMonitor) {
  EXPECT_FALSE(Win32Displays().info(0));
  EXPECT_FALSE(Win32Displays().info(0x7FFF0001));
}

TEST(Win32DisplaysTest, ThePointZeroIsOnThePrimaryMonitor) {
  const Win32Displays displays;
  const auto info = displays.info(displays.fromPoint({0, 0}));
  ASSERT_TRUE(info);
  EXPECT_TRUE(info->isPrimary);
}

TEST(Win32DisplaysTest, APointFarAwayIsOnNoMonitor) {
  EXPECT_EQ(Win32Displays().fromPoint({-100000, 100000}), 0U);
}

TEST(Win32DisplaysTest, AtTheUsualResolutionAPixelTakesFifteenTwips) {
  const TwipsPerPixel twips = Win32Displays().twipsPerPixel();
  EXPECT_DOUBLE_EQ(twips.x, 15.0);
  EXPECT_DOUBLE_EQ(twips.y, 15.0);
}

}  // namespace
}  // namespace tessivo
