// The monitor classes against a real desktop. run-layouts.sh lays the monitors out, says in the
// environment what is to be seen, and runs these tests once for each layout.
#include <gtest/gtest.h>
#include <windows.h>

#include <cstdlib>
#include <sstream>
#include <string>
#include <vector>

#include "monitors/AimMonitor.h"
#include "monitors/cMonitors.h"
#include "monitors/cMonitors2.h"
#include "platform/win32/Win32Displays.h"

namespace tessivo {
namespace {

/// An environment variable that the script must have set.
std::string expected(const char* variable) {
  const char* value = std::getenv(variable);
  if (value == nullptr) ADD_FAILURE() << variable << " is not set; run run-layouts.sh";
  return value == nullptr ? "" : value;
}

std::string text(const cMonitor& monitor) {
  std::ostringstream out;
  out << monitor.Left() << ',' << monitor.Top() << ',' << monitor.Width() << ','
      << monitor.Height();
  if (monitor.IsPrimary()) out << ",primary";
  return out.str();
}

std::string text(const std::vector<cMonitor>& monitors) {
  std::string out;
  for (const cMonitor& monitor : monitors) {
    if (!out.empty()) out += ';';
    out += text(monitor);
  }
  return out;
}

std::vector<cMonitor> listed(const cMonitors& monitors) {
  std::vector<cMonitor> list;
  for (int i = 1; i <= monitors.MonitorCount(); ++i) list.push_back(*monitors.Monitor(i));
  return list;
}

/// A hidden window of 200 × 100 pixels in the middle of a monitor.
class WindowOn {
 public:
  explicit WindowOn(const cMonitor& monitor)
      : handle_(CreateWindowExW(0, L"STATIC", L"", WS_POPUP,
                                monitor.Left() + monitor.Width() / 2 - 100,
                                monitor.Top() + monitor.Height() / 2 - 50, 200, 100, nullptr,
                                nullptr, nullptr, nullptr)) {}
  ~WindowOn() { DestroyWindow(handle_); }
  WindowOn(const WindowOn&) = delete;
  WindowOn& operator=(const WindowOn&) = delete;
  WindowHandle handle() const { return reinterpret_cast<WindowHandle>(handle_); }
  void moveTo(int x, int y) {
    SetWindowPos(handle_, nullptr, x, y, 200, 100, SWP_NOZORDER | SWP_NOACTIVATE);
  }

 private:
  HWND handle_;
};

class MonitorLayoutOnDesktop : public testing::Test {
 protected:
  Win32Displays displays_;
  cMonitors monitors_{displays_};
};

TEST_F(MonitorLayoutOnDesktop, ListsTheMonitorsWithTheirRectangles) {
  EXPECT_EQ(text(listed(monitors_)), expected("TESSIVO_TEST_LAYOUT"));
}

TEST_F(MonitorLayoutOnDesktop, NamesEachMonitorDifferently) {
  ASSERT_GT(monitors_.MonitorCount(), 0);
  for (int i = 1; i <= monitors_.MonitorCount(); ++i) {
    EXPECT_EQ(monitors_.Monitor(i)->name(), R"(\\.\DISPLAY)" + std::to_string(i));
  }
}

TEST_F(MonitorLayoutOnDesktop, WorkAreasLieInsideTheMonitors) {
  ASSERT_GT(monitors_.MonitorCount(), 0);
  for (const cMonitor& monitor : listed(monitors_)) {
    EXPECT_GE(monitor.WorkLeft(), monitor.Left());
    EXPECT_GE(monitor.WorkTop(), monitor.Top());
    EXPECT_GT(monitor.WorkWidth(), 0);
    EXPECT_GT(monitor.WorkHeight(), 0);
    EXPECT_LE(monitor.WorkLeft() + monitor.WorkWidth(), monitor.Left() + monitor.Width());
    EXPECT_LE(monitor.WorkTop() + monitor.WorkHeight(), monitor.Top() + monitor.Height());
  }
}

TEST_F(MonitorLayoutOnDesktop, MeasuresTheVirtualScreen) {
  ASSERT_TRUE(monitors_.VirtualScreenLeft() && monitors_.VirtualScreenTop());
  std::ostringstream seen;
  seen << *monitors_.VirtualScreenLeft() << ',' << *monitors_.VirtualScreenTop() << ','
       << monitors_.VirtualScreenWidth() << ',' << monitors_.VirtualScreenHeight();
  EXPECT_EQ(seen.str(), expected("TESSIVO_TEST_VIRTUAL_SCREEN"));
}

TEST_F(MonitorLayoutOnDesktop, CountsTheMonitorsAsTheSystemDoes) {
  EXPECT_EQ(monitors_.DisplayMonitorCount(), monitors_.MonitorCount());
  EXPECT_TRUE(monitors_.AllMonitorsSame());
}

TEST_F(MonitorLayoutOnDesktop, ShowsThePrimaryFirst) {
  cMonitors2 ordered(displays_);
  ordered.GetMonitorArray();
  std::vector<cMonitor> list;
  for (int i = 1; i <= ordered.lngMonitorsCount(); ++i) {
    list.push_back(*ordered.objGetAMonitorByIndex(i));
  }
  EXPECT_EQ(text(list), expected("TESSIVO_TEST_ORDER"));
}

TEST_F(MonitorLayoutOnDesktop, AimsAtTheMonitorBesideThePrimary) {
  AimMonitor aim(displays_);
  const auto target = monitors_.Monitor(aim.GetAimMonitorIndex());
  ASSERT_TRUE(target);
  EXPECT_EQ(text(*target), expected("TESSIVO_TEST_TARGET"));
  EXPECT_EQ(aim.hMonitor(), target->hMonitor());
}

TEST_F(MonitorLayoutOnDesktop, FindsEachMonitorByItsCorners) {
  for (const cMonitor& monitor : listed(monitors_)) {
    const int right = monitor.Left() + monitor.Width() - 1;
    const int bottom = monitor.Top() + monitor.Height() - 1;
    const auto topLeft = monitors_.MonitorForPoint(monitor.Left(), monitor.Top());
    const auto bottomRight = monitors_.MonitorForPoint(right, bottom);
    ASSERT_TRUE(topLeft && bottomRight) << text(monitor);
    EXPECT_EQ(topLeft->hMonitor(), monitor.hMonitor());
    EXPECT_EQ(bottomRight->hMonitor(), monitor.hMonitor());
  }
}

TEST_F(MonitorLayoutOnDesktop, FindsNoMonitorFarFromAll) {
  EXPECT_FALSE(monitors_.MonitorForPoint(30000, 30000));
  EXPECT_FALSE(monitors_.MonitorForPoint(-30000, 0));
}

TEST_F(MonitorLayoutOnDesktop, FindsTheMonitorOfAWindow) {
  for (const cMonitor& monitor : listed(monitors_)) {
    const WindowOn window(monitor);
    const auto found = monitors_.MonitorForWindow(window.handle());
    ASSERT_TRUE(found) << text(monitor);
    EXPECT_EQ(found->hMonitor(), monitor.hMonitor());
  }
}

TEST_F(MonitorLayoutOnDesktop, FindsNoMonitorOfAWindowOutsideAll) {
  ASSERT_GT(monitors_.MonitorCount(), 0);
  WindowOn window(*monitors_.Monitor(1));
  window.moveTo(20000, 20000);
  EXPECT_FALSE(monitors_.MonitorForWindow(window.handle()));
}

TEST_F(MonitorLayoutOnDesktop, FindsNoMonitorOfNoWindow) {
  EXPECT_FALSE(monitors_.MonitorForWindow(0));
}

TEST_F(MonitorLayoutOnDesktop, ThePrimaryScreenIsThePrimaryMonitor) {
  const auto primary = monitors_.Monitor(monitors_.primaryIndex());
  ASSERT_TRUE(primary);
  EXPECT_EQ(displays_.primaryScreen(),
            (Rect{primary->Left(), primary->Top(), primary->Width(), primary->Height()}));
}

}  // namespace
}  // namespace tessivo
