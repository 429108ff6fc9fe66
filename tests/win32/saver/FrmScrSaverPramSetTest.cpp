// The waiter with a real window, and a real program whose settings it waits for.
#include "saver/frmScrSaverPramSet.h"

#include <gtest/gtest.h>
#include <windows.h>

#include <functional>
#include <string>

#include "fakes/FakeLog.h"
#include "platform/win32/Win32Clock.h"
#include "platform/win32/Win32Processes.h"
#include "platform/win32/Win32TimerService.h"
#include "ui/win32/Win32Toolkit.h"
#include "win32/saver/StandInSavers.h"
#include "win32/ui/RealControls.h"

namespace tessivo {
namespace {

using ui::windowOf;

constexpr int kLookMs = 30;
constexpr ULONGLONG kDeadlineMs = 15000;

class FrmScrSaverPramSetTest : public testing::Test {
 protected:
  void SetUp() override {
    owner.setBounds({1500, 1500, 6000, 4500});
    toolkit.open(owner);
    owner.show();
    waiter.strProcName("settings");
    waiter.lngFaceLeft(300 * 15);
    waiter.lngFaceTop(200 * 15);
  }

  /// Shows the waiter, and calls `look` again and again until that says it is enough. One that
  /// does not go is a failure.
  void showOver(const std::function<bool()>& look) {
    const ULONGLONG deadline = GetTickCount64() + kDeadlineMs;
    bool isEnough = false;
    ui::Timer looking(timers, "timLooking", kLookMs);
    looking.onTimer.listen([&] {
      isEnough = isEnough || look();
      if (GetTickCount64() < deadline) return;
      ADD_FAILURE() << "it does not go";
      looking.setEnabled(false);
      waiter.unload();
    });
    looking.setEnabled(true);
    waiter.showOver(toolkit, owner);
  }
  std::string start(const std::string& name, std::int32_t x, std::int32_t y,
                    const std::string& caption) {
    place = {x, y};
    processes.start(savers.path(name), "SHOW_CONFIG_FACE##" + caption, WindowStyle::normal);
    return savers.path(name);
  }
  bool isOwnerOn() const { return IsWindowEnabled(windowOf(owner)) != 0; }

  FakeLog log;
  Win32Clock clock;
  Win32Processes processes;
  Win32TimerService timers{log};
  ui::Win32Toolkit toolkit{TwipsPerPixel{}, log};
  StandInSavers savers;
  ui::Form owner{"owner", "owner", TwipsPerPixel{}};
  Point place;
  frmScrSaverPramSet waiter{
      {timers, clock, processes,
       [this](const std::string& name, std::int32_t x, std::int32_t y, const std::string& caption) {
         return start(name, x, y, caption);
       }},
      TwipsPerPixel{}};
};

TEST_F(FrmScrSaverPramSetTest, WindowIsThereButHasNoSize) {
  savers.add("settings");
  RECT rect{1, 1, 1, 1};
  LONG_PTR style = 0;
  HWND found = nullptr;
  HWND window = nullptr;
  HWND above = nullptr;
  showOver([&] {
    if (savers.noted("settings", "window") < 1) return false;
    window = windowOf(waiter);
    GetWindowRect(window, &rect);
    style = GetWindowLongPtrW(window, GWL_STYLE);
    above = GetWindow(window, GW_OWNER);
    found = FindWindowW(nullptr, toWide(waiter.caption()).c_str());
    savers.endOne("settings");
    return true;
  });
  EXPECT_EQ(rect.left, 300);
  EXPECT_EQ(rect.top, 200);
  EXPECT_EQ(rect.right, 300);
  EXPECT_EQ(rect.bottom, 200);
  EXPECT_EQ(style & (WS_CAPTION | WS_THICKFRAME | WS_SYSMENU), 0);
  EXPECT_TRUE(waiter.caption().ends_with("213ScrSavPramSet"));
  EXPECT_EQ(found, window);
  EXPECT_EQ(above, windowOf(owner));
  EXPECT_EQ(place, (Point{300, 200}));
  EXPECT_EQ(savers.noted("settings", "owner yes"), 1);
  EXPECT_TRUE(log.lines.empty());
}

TEST_F(FrmScrSaverPramSetTest, OwnerIsOffUntilTheProgramHasEnded) {
  savers.add("settings");
  bool offBefore = false;
  bool onWhileItRan = false;
  showOver([&] {
    offBefore = offBefore || !isOwnerOn();
    onWhileItRan = onWhileItRan || isOwnerOn();
    if (savers.noted("settings", "window") < 1) return false;
    savers.endOne("settings");
    return true;
  });
  EXPECT_EQ(savers.noted("settings", "end"), 1);
  EXPECT_TRUE(offBefore);
  EXPECT_FALSE(onWhileItRan);
  EXPECT_TRUE(isOwnerOn());
  EXPECT_FALSE(waiter.isOpen());
}

TEST_F(FrmScrSaverPramSetTest, LastOfTwoCopiesCounts) {
  savers.add("settings");
  start("settings", 0, 0, "first");
  ASSERT_TRUE(savers.waitForNotes("settings", "window"));
  ULONGLONG firstEnd = 0;
  bool stillOff = false;
  showOver([&] {
    if (savers.noted("settings", "window") < 2) return false;
    if (firstEnd == 0) {
      firstEnd = GetTickCount64();
      savers.endOne("settings");
    }
    if (GetTickCount64() - firstEnd < 1000) return false;  // several looks of the waiter
    stillOff = savers.noted("settings", "end") == 1 && !isOwnerOn();
    savers.endOne("settings");
    return true;
  });
  EXPECT_TRUE(stillOff);
  EXPECT_EQ(savers.noted("settings", "end"), 2);
  EXPECT_TRUE(isOwnerOn());
}

TEST_F(FrmScrSaverPramSetTest, WithoutTheProgramItGoesAtItsFirstLook) {
  const ULONGLONG before = GetTickCount64();
  showOver([] { return false; });
  const ULONGLONG took = GetTickCount64() - before;
  EXPECT_GE(took, 480U);
  EXPECT_LE(took, 3000U);
  EXPECT_TRUE(isOwnerOn());
}

TEST_F(FrmScrSaverPramSetTest, ClosingItEndsTheWaiting) {
  savers.add("settings");
  showOver([&] {
    if (savers.noted("settings", "window") < 1) return false;
    PostMessageW(windowOf(waiter), WM_CLOSE, 0, 0);
    return true;
  });
  EXPECT_EQ(savers.noted("settings", "end"), 0);
  EXPECT_TRUE(isOwnerOn());
  EXPECT_TRUE(savers.end("settings"));
}

/// Opened, closed and opened again, as the settings do.
TEST_F(FrmScrSaverPramSetTest, ItCanBeShownAgain) {
  for (int round = 0; round < 2; ++round) {
    showOver([] { return false; });
    EXPECT_TRUE(isOwnerOn());
    EXPECT_FALSE(waiter.isOpen());
  }
}

}  // namespace
}  // namespace tessivo
