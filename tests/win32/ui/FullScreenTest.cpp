#include "platform/win32/Win32Displays.h"
#include "screen/FullScreenPlacement.h"
#include "win32/ui/OpenForm.h"

namespace tessivo::ui {
namespace {

/// The playback window's placements with a real window. The window manager of a desktop may answer
/// late, therefore the waiting.
class FullScreenTest : public OpenForm {
 protected:
  Rect innerRect() const {
    RECT inner{};
    GetClientRect(window(), &inner);
    MapWindowPoints(window(), nullptr, reinterpret_cast<POINT*>(&inner), 2);
    return {inner.left, inner.top, inner.right - inner.left, inner.bottom - inner.top};
  }
  DWORD frameBits() const {
    return static_cast<DWORD>(GetWindowLongPtrW(window(), GWL_STYLE)) & frame::kAll;
  }

  FullScreenPlacement placement{form};
};

TEST_F(FullScreenTest, CoversEachMonitorExactlyAndLeavesAgain) {
  const Win32Displays displays;
  form.show();
  const Rect normal = form.windowRect();
  for (const MonitorHandle monitor : displays.enumerate()) {
    const Rect target = displays.info(monitor)->monitor;
    placement.setMaximum(target);
    placement.boolMaxSize(true);
    EXPECT_TRUE(eventually([&] { return form.windowRect() == target; }));
    EXPECT_EQ(innerRect(), target);
    EXPECT_EQ(frameBits(), 0U);
    EXPECT_EQ(form.bounds(),
              (Rect{target.left * 15, target.top * 15, target.width * 15, target.height * 15}));
    placement.boolMaxSize(false);
    EXPECT_TRUE(eventually([&] { return form.windowRect() == normal; }));
    EXPECT_EQ(frameBits(), static_cast<DWORD>(frame::kAll));
  }
}

TEST_F(FullScreenTest, NegativeCoordinatesAreKept) {
  const Rect leftOfPrimary{-1920, -56, 1920, 1080};
  placement.setMaximum(leftOfPrimary);
  placement.boolMaxSize(true);
  EXPECT_EQ(form.windowRect(), leftOfPrimary);
  EXPECT_EQ(innerRect(), leftOfPrimary);
}

TEST_F(FullScreenTest, AMaximisedWindowComesBackInThePlacementItHadBeforeMaximising) {
  form.show();
  const Rect normal = form.windowRect();
  ShowWindow(window(), SW_MAXIMIZE);
  ASSERT_TRUE(eventually([&] { return form.windowState() == WindowState::maximised; }));
  const Rect target{0, 0, 700, 500};
  placement.setMaximum(target);
  placement.boolMaxSize(true);
  EXPECT_TRUE(eventually([&] { return form.windowRect() == target; }));
  EXPECT_FALSE(IsZoomed(window()));
  placement.boolMaxSize(false);
  EXPECT_TRUE(eventually([&] { return form.windowRect() == normal; }));
}

TEST_F(FullScreenTest, AClickActivatesOnlyAWindowWithATitleBar) {
  const auto answer = [this] {
    return SendMessageW(window(), WM_MOUSEACTIVATE, reinterpret_cast<WPARAM>(window()),
                        MAKELPARAM(HTCLIENT, WM_LBUTTONDOWN));
  };
  EXPECT_EQ(answer(), MA_ACTIVATE);
  placement.setMaximum({0, 0, 640, 480});
  placement.boolMaxSize(true);
  EXPECT_EQ(answer(), MA_NOACTIVATE);
}

}  // namespace
}  // namespace tessivo::ui
