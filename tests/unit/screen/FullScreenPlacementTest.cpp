#include "screen/FullScreenPlacement.h"

#include "unit/screen/ScreenFixture.h"

namespace tessivo {
namespace {

constexpr Rect kNormalPixels{100, 60, 800, 600};
constexpr Rect kTarget{1280, 0, 1920, 1080};

class FullScreenPlacementTest : public ScreenFixture {
 protected:
  void SetUp() override {
    ScreenFixture::SetUp();
    screen.noteMoved(inTwips(kNormalPixels));
    screen.setMaximum(kTarget);
    trace.take();
  }
};

TEST_F(FullScreenPlacementTest, EnteringCoversTheTargetWithoutAFrame) {
  screen.boolMaxSize(true);
  EXPECT_EQ(screen.bounds(), inTwips(kTarget));
  EXPECT_EQ(screen.frameStyle() & ui::frame::kAll, 0U);
  EXPECT_TRUE(screen.topmost());
  EXPECT_EQ(screen.normal(), kNormalPixels);
}

TEST_F(FullScreenPlacementTest, LeavingRestoresPlacementAndFrame) {
  screen.boolMaxSize(true);
  screen.boolMaxSize(false);
  EXPECT_EQ(screen.bounds(), inTwips(kNormalPixels));
  EXPECT_EQ(screen.frameStyle() & ui::frame::kAll, ui::frame::kAll);
  EXPECT_FALSE(screen.topmost());
}

TEST_F(FullScreenPlacementTest, LeavingAfterMaximisedRestoresThePlacementSavedAtEntry) {
  screen.boolMaxSize(true);
  screen.noteWindowState(ui::WindowState::maximised);
  screen.boolMaxSize(false);
  EXPECT_EQ(screen.windowState(), ui::WindowState::normal);
  EXPECT_EQ(screen.bounds(), inTwips(kNormalPixels));
}

TEST_F(FullScreenPlacementTest, EnteringFromMinimisedMakesTheWindowNormalFirst) {
  screen.noteWindowState(ui::WindowState::minimised);
  screen.boolMaxSize(true);
  EXPECT_EQ(screen.windowState(), ui::WindowState::normal);
}

TEST_F(FullScreenPlacementTest, AnotherTargetInFullScreenWaitsForTheNextEntry) {
  screen.boolMaxSize(true);
  screen.setMaximum({0, 0, 1280, 1024});
  screen.boolMaxSize(true);
  EXPECT_EQ(screen.bounds(), inTwips(kTarget));
  screen.boolMaxSize(false);
  screen.boolMaxSize(true);
  EXPECT_EQ(screen.bounds(), (Rect{0, 0, 1280 * 15, 1024 * 15}));
}

TEST_F(FullScreenPlacementTest, ANegativeTargetIsReachedExactly) {
  screen.setMaximum({-1920, -56, 1920, 1080});
  screen.boolMaxSize(true);
  EXPECT_EQ(screen.bounds(), (Rect{-1920 * 15, -56 * 15, 1920 * 15, 1080 * 15}));
}

TEST_F(FullScreenPlacementTest, TheScreenMenuHasAnEntryAMonitor) {
  screen.createScreenListMenu();
  ASSERT_EQ(screen.menu().screenCount(), 2U);
  EXPECT_EQ(screen.menu().mnuScreenX(0).caption(), "主屏幕");
  EXPECT_EQ(screen.menu().mnuScreenX(1).caption(), "屏幕2");
  displays.add({-800, 0, 800, 600});
  screen.createScreenListMenu();
  ASSERT_EQ(screen.menu().screenCount(), 3U);
  EXPECT_EQ(screen.menu().mnuScreenX(2).caption(), "屏幕3");
}

TEST_F(FullScreenPlacementTest, ChoosingAScreenGoesThereAndTellsTheOwner) {
  screen.createScreenListMenu();
  screen.setMaximum({});
  screen.menu().mnuScreenX(1).choose();
  EXPECT_EQ(screen.maximum(), kTarget);
  EXPECT_TRUE(screen.boolMaxSize());
  EXPECT_EQ(screen.bounds(), inTwips(kTarget));
  EXPECT_NE(trace.take().find("clickPopuMenu 2"), std::string::npos);
}

TEST_F(FullScreenPlacementTest, ChoosingASecondScreenInFullScreenOnlyTellsTheOwner) {
  screen.createScreenListMenu();
  screen.boolMaxSize(true);
  trace.take();
  screen.menu().mnuScreenX(0).choose();
  EXPECT_EQ(screen.maximum(), (Rect{0, 0, 1280, 1024}));
  EXPECT_EQ(screen.bounds(), inTwips(kTarget));
  EXPECT_EQ(trace.take(), "clickPopuMenu 2");
}

/// The menu on a desktop of its own.
class ScreenMenuOfTest : public testing::Test {
 protected:
  FakeDisplays displays;
};

TEST_F(ScreenMenuOfTest, OneMonitorGivesOneEntry) {
  displays.add({0, 0, 800, 600}, true);
  ScreenMenu menu(displays);
  ASSERT_EQ(menu.screenCount(), 1U);
  EXPECT_EQ(menu.mnuScreenX(0).caption(), "主屏幕");
}

TEST_F(ScreenMenuOfTest, NoMonitorGivesAnEntryThatDoesNothing) {
  ScreenMenu menu(displays);
  ASSERT_EQ(menu.screenCount(), 1U);
  EXPECT_EQ(menu.mnuScreenX(0).caption(), "取消");
  int raised = 0;
  menu.screenChosen.listen([&raised](const cMonitor&) { ++raised; });
  menu.chosen.listen([&raised](std::int32_t) { ++raised; });
  menu.mnuScreenX(0).choose();
  EXPECT_EQ(raised, 0);
}

TEST_F(ScreenMenuOfTest, TheFirstEntryIsThePrimaryMonitor) {
  displays.add({-800, 0, 800, 600});
  displays.add({0, 0, 1280, 1024}, true);
  ScreenMenu menu(displays);
  std::vector<std::int32_t> lefts;
  menu.screenChosen.listen([&lefts](const cMonitor& monitor) { lefts.push_back(monitor.Left()); });
  menu.mnuScreenX(0).choose();
  menu.mnuScreenX(1).choose();
  EXPECT_EQ(lefts, (std::vector<std::int32_t>{0, -800}));
}

TEST(ShowTitleBar, ShowsOnlyWhatTheFormHas) {
  ui::Form form("f", "", {});
  form.setBoxes(true, false, false);
  form.setFrameStyle(0);
  showTitleBar(form, true);
  EXPECT_EQ(form.frameStyle(), ui::frame::kSystemMenu | ui::frame::kSizingFrame);
  form.setBoxes(false, true, true);
  form.setCaption("x");
  form.setFrameStyle(0);
  showTitleBar(form, true);
  EXPECT_EQ(form.frameStyle(), ui::frame::kMaximiseBox | ui::frame::kMinimiseBox |
                                   ui::frame::kCaption | ui::frame::kSizingFrame);
}

TEST(ShowTitleBar, TheOuterSizeBecomesTheFormerInnerSize) {
  ui::Form form("f", "x", {});
  form.noteMoved({150, 300, 6000, 4500});
  const std::int32_t innerWidth = form.scaleWidth();
  const std::int32_t innerHeight = form.scaleHeight();
  ASSERT_LT(innerWidth, 6000);
  showTitleBar(form, false);
  EXPECT_EQ(form.bounds(), (Rect{150, 300, innerWidth, innerHeight}));
}

class InitialGeometryTest : public ScreenFixture {};

TEST_F(InitialGeometryTest, TheTargetIsTheMonitorAfterThePrimary) {
  AimMonitor target(displays);
  setInitialGeometry(screen, target, displays);
  EXPECT_EQ(screen.maximum(), (Rect{1280, 0, 1920, 1080}));
  EXPECT_EQ(screen.normal(), (Rect{160, 128, 960, 768}));
  EXPECT_FALSE(screen.boolMaxSize());
}

TEST_F(InitialGeometryTest, OddSizesAreRoundedHalfToEven) {
  FakeDisplays odd;
  odd.add({0, 0, 1366, 770}, true);
  AimMonitor target(odd);
  setInitialGeometry(screen, target, odd);
  // 170.75, 96.25, 1024.5, 577.5
  EXPECT_EQ(screen.normal(), (Rect{171, 96, 1024, 578}));
}

}  // namespace
}  // namespace tessivo
