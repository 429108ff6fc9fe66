#include "platform/win32/Win32Displays.h"
#include "win32/ui/OpenForm.h"

namespace tessivo::ui {
namespace {

/// Full screen is a form without a frame that has exactly the rectangle of a monitor.
class FullScreenTest : public OpenForm {
 protected:
  void enter(const Rect& monitor) {
    form.setFrameStyle(0);
    form.setWindowPos({form.windowRect().left, form.windowRect().top, 600, 400});
    form.setTop(monitor.top * 15);
    form.setLeft(monitor.left * 15);
    form.setWidth(monitor.width * 15);
    form.setHeight(monitor.height * 15);
  }
  Rect innerRect() const {
    RECT inner{};
    GetClientRect(window(), &inner);
    MapWindowPoints(window(), nullptr, reinterpret_cast<POINT*>(&inner), 2);
    return toRectOf(inner);
  }
  static Rect toRectOf(const RECT& r) {
    return {r.left, r.top, r.right - r.left, r.bottom - r.top};
  }
};

TEST_F(FullScreenTest, CoversEachMonitorExactlyAndLeavesAgain) {
  const Win32Displays displays;
  form.show();
  const Rect normal = form.windowRect();
  for (const MonitorHandle monitor : displays.enumerate()) {
    const Rect target = displays.info(monitor)->monitor;
    enter(target);
    // The window manager of the test bed may answer late.
    EXPECT_TRUE(eventually([&] { return form.windowRect() == target; }));
    EXPECT_EQ(innerRect(), target);
    EXPECT_EQ(form.bounds(),
              (Rect{target.left * 15, target.top * 15, target.width * 15, target.height * 15}));
    form.setFrameStyle(frame::kAll);
    form.setWindowPos(normal);
    EXPECT_TRUE(eventually([&] { return form.windowRect() == normal; }));
  }
}

TEST_F(FullScreenTest, NegativeCoordinatesAreKept) {
  const Rect leftOfPrimary{-1920, -56, 1920, 1080};
  enter(leftOfPrimary);
  EXPECT_EQ(form.windowRect(), leftOfPrimary);
  EXPECT_EQ(innerRect(), leftOfPrimary);
}

}  // namespace
}  // namespace tessivo::ui
