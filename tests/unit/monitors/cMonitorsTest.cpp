#include "monitors/cMonitors.h"

#include <gtest/gtest.h>

#include "fakes/FakeDisplays.h"

namespace tessivo {
namespace {

constexpr std::int32_t kMost = 2147483647;

TEST(cMonitorsTest, ListsTheMonitorsInTheSystemsOrderWhenCreated) {
  FakeDisplays displays;
  const auto first = displays.add({1280, 0, 800, 600});
  const auto second = displays.add({0, 0, 1280, 1024}, true);

  const cMonitors monitors(displays);

  EXPECT_EQ(monitors.MonitorCount(), 2);
  EXPECT_EQ(monitors.Monitor(1)->hMonitor(), first);
  EXPECT_EQ(monitors.Monitor(2)->hMonitor(), second);
}

TEST(cMonitorsTest, GivesNoMonitorOutsideTheList) {
  FakeDisplays displays;
  displays.add({0, 0, 1280, 1024}, true);
  displays.add({1280, 0, 800, 600});
  const cMonitors monitors(displays);
  for (const std::int32_t index : {0, -1, 3, kMost, -kMost - 1}) {
    EXPECT_FALSE(monitors.Monitor(index)) << index;
  }
}

TEST(cMonitorsTest, IsEmptyWithoutMonitors) {
  const FakeDisplays displays;
  const cMonitors monitors(displays);
  EXPECT_EQ(monitors.MonitorCount(), 0);
  EXPECT_FALSE(monitors.Monitor(1));
  EXPECT_FALSE(monitors.VirtualScreenLeft());
  EXPECT_FALSE(monitors.VirtualScreenTop());
  EXPECT_EQ(monitors.primaryIndex(), 0);
}

TEST(cMonitorsTest, SeesAnAddedMonitorOnlyAfterRefresh) {
  FakeDisplays displays;
  displays.add({0, 0, 1280, 1024}, true);
  cMonitors monitors(displays);
  const auto added = displays.add({1280, 0, 800, 600});

  EXPECT_EQ(monitors.MonitorCount(), 1);
  monitors.Refresh();
  EXPECT_EQ(monitors.MonitorCount(), 2);
  EXPECT_EQ(monitors.Monitor(2)->hMonitor(), added);
}

TEST(cMonitorsTest, ForgetsARemovedMonitorAtRefresh) {
  FakeDisplays displays;
  const auto removed = displays.add({0, 0, 1280, 1024}, true);
  const auto kept = displays.add({1280, 0, 800, 600});
  cMonitors monitors(displays);
  displays.remove(removed);
  monitors.Refresh();
  EXPECT_EQ(monitors.MonitorCount(), 1);
  EXPECT_EQ(monitors.Monitor(1)->hMonitor(), kept);
}

TEST(cMonitorsTest, AMonitorTakenFromTheListOutlivesARefresh) {
  FakeDisplays displays;
  const auto handle = displays.add({7, 0, 1280, 1024}, true);
  cMonitors monitors(displays);
  const auto monitor = monitors.Monitor(1);
  displays.remove(handle);
  monitors.Refresh();
  EXPECT_EQ(monitor->Left(), 7);
}

TEST(cMonitorsTest, LeavesOutAMonitorThatVanishesWhileItIsRead) {
  FakeDisplays displays;
  displays.add({0, 0, 1280, 1024}, true);
  const auto gone = displays.add({1280, 0, 800, 600});
  const auto last = displays.add({2080, 0, 800, 600});
  displays.vanish(gone);

  const cMonitors monitors(displays);

  EXPECT_EQ(monitors.MonitorCount(), 2);
  EXPECT_EQ(monitors.Monitor(2)->hMonitor(), last);
}

TEST(cMonitorsTest, VirtualScreenLeftAndTopAreTheSmallestOfTheList) {
  FakeDisplays displays;
  displays.add({0, 0, 1280, 1024}, true);
  displays.add({-800, 100, 800, 600});
  displays.add({1280, -50, 800, 600});
  const cMonitors monitors(displays);
  EXPECT_EQ(monitors.VirtualScreenLeft(), -800);
  EXPECT_EQ(monitors.VirtualScreenTop(), -50);
}

TEST(cMonitorsTest, VirtualScreenLeftAndTopStartWithTheFirstMonitorAndNotWithZero) {
  FakeDisplays displays;
  displays.add({300, 200, 1280, 1024}, true);
  displays.add({1580, 250, 800, 600});
  const cMonitors monitors(displays);
  EXPECT_EQ(monitors.VirtualScreenLeft(), 300);
  EXPECT_EQ(monitors.VirtualScreenTop(), 200);
}

TEST(cMonitorsTest, TakesCountsAndSizesFromTheSystemAndNotFromTheList) {
  FakeDisplays displays;
  displays.add({0, 0, 1280, 1024}, true);
  displays.displayMonitors = 5;
  displays.virtualWidth = 4000;
  displays.virtualHeight = 3000;
  const cMonitors monitors(displays);
  EXPECT_EQ(monitors.DisplayMonitorCount(), 5);
  EXPECT_EQ(monitors.MonitorCount(), 1);
  EXPECT_EQ(monitors.VirtualScreenWidth(), 4000);
  EXPECT_EQ(monitors.VirtualScreenHeight(), 3000);
}

TEST(cMonitorsTest, SaysWhetherAllMonitorsHaveTheSameFormat) {
  FakeDisplays displays;
  const cMonitors monitors(displays);
  displays.sameFormat = true;
  EXPECT_TRUE(monitors.AllMonitorsSame());
  displays.sameFormat = false;
  EXPECT_FALSE(monitors.AllMonitorsSame());
}

TEST(cMonitorsTest, FindsTheMonitorUnderAPoint) {
  FakeDisplays displays;
  const auto primary = displays.add({0, 0, 1280, 1024}, true);
  const auto left = displays.add({-800, 0, 800, 600});
  const cMonitors monitors(displays);
  EXPECT_EQ(monitors.MonitorForPoint(0, 0)->hMonitor(), primary);
  EXPECT_EQ(monitors.MonitorForPoint(1279, 1023)->hMonitor(), primary);
  EXPECT_EQ(monitors.MonitorForPoint(-1, 599)->hMonitor(), left);
}

TEST(cMonitorsTest, FindsNoMonitorUnderAPointOnNone) {
  FakeDisplays displays;
  displays.add({0, 0, 1280, 1024}, true);
  displays.add({-800, 0, 800, 600});
  const cMonitors monitors(displays);
  EXPECT_FALSE(monitors.MonitorForPoint(1280, 0));
  EXPECT_FALSE(monitors.MonitorForPoint(-1, 600));
  EXPECT_FALSE(monitors.MonitorForPoint(-kMost - 1, kMost));
}

TEST(cMonitorsTest, FindsTheMonitorOfAWindow) {
  FakeDisplays displays;
  displays.add({0, 0, 1280, 1024}, true);
  const auto second = displays.add({1280, 0, 800, 600});
  displays.place(77, second);
  const cMonitors monitors(displays);
  EXPECT_EQ(monitors.MonitorForWindow(77)->hMonitor(), second);
}

TEST(cMonitorsTest, FindsNoMonitorOfAWindowOnNone) {
  FakeDisplays displays;
  displays.add({0, 0, 1280, 1024}, true);
  const cMonitors monitors(displays);
  EXPECT_FALSE(monitors.MonitorForWindow(78));
  EXPECT_FALSE(monitors.MonitorForWindow(0));
}

TEST(cMonitorsTest, FindsNoMonitorThatIsNotInTheList) {
  FakeDisplays displays;
  displays.add({0, 0, 1280, 1024}, true);
  const cMonitors monitors(displays);
  displays.place(77, displays.add({1280, 0, 800, 600}));
  EXPECT_FALSE(monitors.MonitorForPoint(1300, 10));
  EXPECT_FALSE(monitors.MonitorForWindow(77));
}

TEST(cMonitorsTest, PrimaryIndexIsTheFirstPrimaryMonitor) {
  FakeDisplays displays;
  displays.add({0, 0, 800, 600});
  EXPECT_EQ(cMonitors(displays).primaryIndex(), 0);
  displays.add({800, 0, 800, 600}, true);
  displays.add({1600, 0, 800, 600}, true);
  EXPECT_EQ(cMonitors(displays).primaryIndex(), 2);
}

}  // namespace
}  // namespace tessivo
