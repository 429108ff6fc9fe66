// A monitor is unplugged while the program runs. run-layouts.sh starts this with two monitors and
// says in TESSIVO_TEST_UNPLUG which command takes the second one away.
#include <gtest/gtest.h>
#include <windows.h>

#include <chrono>
#include <cstdlib>
#include <string>

#include "monitors/AimMonitor.h"
#include "monitors/cMonitors.h"
#include "monitors/cMonitors2.h"
#include "platform/win32/Win32Displays.h"

namespace tessivo {
namespace {

void startHostCommand(std::string command) {
  STARTUPINFOA startup{};
  startup.cb = sizeof startup;
  PROCESS_INFORMATION process{};
  const BOOL started = CreateProcessA(nullptr, command.data(), nullptr, nullptr, FALSE, 0, nullptr,
                                      nullptr, &startup, &process);
  ASSERT_TRUE(started) << command << ": error " << GetLastError();
  CloseHandle(process.hThread);
  CloseHandle(process.hProcess);
}

void waitForMonitorCount(int count) {
  using std::chrono::steady_clock;
  const auto deadline = steady_clock::now() + std::chrono::seconds(20);
  while (GetSystemMetrics(SM_CMONITORS) != count && steady_clock::now() < deadline) Sleep(20);
}

TEST(MonitorChangeOnDesktop, FollowsAMonitorThatIsUnplugged) {
  const char* unplug = std::getenv("TESSIVO_TEST_UNPLUG");
  ASSERT_NE(unplug, nullptr) << "run run-layouts.sh";
  const Win32Displays displays;
  cMonitors monitors(displays);
  cMonitors2 ordered(displays);
  AimMonitor aim(displays);
  ASSERT_EQ(monitors.MonitorCount(), 2);
  ASSERT_EQ(aim.GetAimMonitorIndex(), 2);

  ASSERT_NO_FATAL_FAILURE(startHostCommand(unplug));
  waitForMonitorCount(1);

  EXPECT_EQ(monitors.MonitorCount(), 2);
  monitors.Refresh();
  EXPECT_EQ(monitors.MonitorCount(), 1);
  EXPECT_EQ(aim.GetAimMonitorIndex(), 1);
  EXPECT_EQ(aim.Left(), 0);
  ordered.GetMonitorArray();
  EXPECT_EQ(ordered.lngMonitorsCount(), 1);
  EXPECT_FALSE(monitors.MonitorForPoint(1300, 10));
}

}  // namespace
}  // namespace tessivo
