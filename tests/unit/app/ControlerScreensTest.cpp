// Monitors and sound, as the control panel's buttons and menus ask for them.
#include "unit/app/ControlerFixture.h"

namespace tessivo {
namespace {

constexpr Rect kPrimary{0, 0, 1280, 1024};
constexpr Rect kRight{1280, 0, 1920, 1080};

class ControlerScreensTest : public ControlerFixture {};

TEST_F(ControlerScreensTest, TheMonitorsAreCountedAsTheyAreNow) {
  EXPECT_EQ(controler.lngMonitorCount(), 2);
  displays.add({3200, 0, 800, 600});
  EXPECT_EQ(controler.lngMonitorCount(), 3);
  displays.remove(102);
  displays.remove(103);
  EXPECT_EQ(controler.lngMonitorCount(), 1);
  displays.remove(101);
  EXPECT_EQ(controler.lngMonitorCount(), 0);
}

TEST_F(ControlerScreensTest, FullScreenFillsTheWholeMonitorUnderThePanel) {
  EXPECT_TRUE(controler.showOnMonitor(2));
  EXPECT_TRUE(screen.boolMaxSize());
  EXPECT_EQ(screen.windowRect(), kRight);
  EXPECT_TRUE(trace.take().ends_with("panel on top | state 6"));
}

TEST_F(ControlerScreensTest, MonitorOneIsThePrimaryWhereverTheSystemReportsIt) {
  FakeDisplays other;
  other.add(kRight);
  other.add(kPrimary, true);
  displays = other;
  EXPECT_TRUE(controler.showOnMonitor(1));
  EXPECT_EQ(screen.windowRect(), kPrimary);
  EXPECT_TRUE(controler.showOnMonitor(2));
  EXPECT_EQ(screen.windowRect(), kRight);
}

TEST_F(ControlerScreensTest, FullScreenMovesToAnotherMonitorAndBackToTheWindowItWas) {
  const Rect window = screen.windowRect();
  controler.showOnMonitor(2);
  EXPECT_TRUE(controler.showOnMonitor(1));
  EXPECT_TRUE(screen.boolMaxSize());
  EXPECT_EQ(screen.windowRect(), kPrimary);
  trace.take();
  controler.leaveFullScreen();
  EXPECT_FALSE(screen.boolMaxSize());
  EXPECT_EQ(screen.windowRect(), window);
  EXPECT_TRUE(trace.take().ends_with("panel normal | state 7"));
}

TEST_F(ControlerScreensTest, AMonitorThatIsNotThereChangesNothing) {
  const Rect maximum = screen.maximum();
  displays.remove(102);
  for (const std::int32_t number : {-1, 0, 2, 3}) {
    EXPECT_FALSE(controler.showOnMonitor(number)) << number;
  }
  EXPECT_FALSE(screen.boolMaxSize());
  EXPECT_EQ(screen.maximum(), maximum);
  EXPECT_EQ(trace.take(), "");
}

TEST_F(ControlerScreensTest, AMonitorThatIsNotThereDoesNotEndTheFullScreenOnAnother) {
  controler.showOnMonitor(1);
  displays.remove(102);
  trace.take();
  EXPECT_FALSE(controler.showOnMonitor(2));
  EXPECT_EQ(screen.windowRect(), kPrimary);
  EXPECT_EQ(trace.take(), "");
}

TEST_F(ControlerScreensTest, ThePanelStaysWhereItIsWhenThePointerIsOnNoMonitor) {
  pointer.at = {-5000, 0};
  controler.showMainFace();
  EXPECT_EQ(trace.take(), "panel restored | panel front");
}

TEST_F(ControlerScreensTest, ThePanelComesToAMonitorLeftOfAndAboveThePrimary) {
  displays.add({-1000, -800, 1000, 800});
  pointer.at = {-500, -400};
  controler.resetMainFrmPosiByMousePosi();
  EXPECT_EQ(trace.take(), "panel to -700,-570");  // work area 1000 x 760, panel 400 x 300
}

TEST_F(ControlerScreensTest, APanelWhoseMiddleIsOnThePointersMonitorStays) {
  panel.rect = {1100, 100, 400, 300};  // the middle is at 1300
  pointer.at = {2000, 500};
  controler.resetMainFrmPosiByMousePosi();
  EXPECT_EQ(trace.take(), "");
}

TEST_F(ControlerScreensTest, OfAPanelLargerThanTheMonitorsWorkAreaTheUpperLeftCornerIsSeen) {
  displays.add({4000, 0, 300, 240});  // work area 300 x 200
  pointer.at = {4100, 100};
  controler.resetMainFrmPosiByMousePosi();
  EXPECT_EQ(trace.take(), "panel to 4000,0");
}

TEST_F(ControlerScreensTest, AVolumeSetWhileMutedIsKeptAndTheSoundStaysOff) {
  controler.setMute(true);
  trace.take();
  controler.setVolume(55);
  EXPECT_TRUE(controler.boolGetMuteValue());
  EXPECT_EQ(trace.take(), "wmp volume 55 | real volume 55");
  controler.setMute(false);
  EXPECT_FALSE(controler.boolGetMuteValue());
  EXPECT_EQ(screen.intVolume(), 55);
  EXPECT_EQ(controler.config().intVolumeValue(), 55);
}

TEST_F(ControlerScreensTest, MutingIsNotASettingAndEndsWithTheProgram) {
  controler.setVolume(55);
  controler.setMute(true);
  controler.exitSys();
  SysConfig stored;
  stored.strDBFilePath(database);
  ASSERT_TRUE(stored.boolGetData());
  EXPECT_EQ(stored.intVolumeValue(), 55);
  EXPECT_FALSE(screen.boolMute());
}

TEST_F(ControlerScreensTest, ChangingTheRuleStopsWhatPlaysAndKeepsTheItemLoaded) {
  addThree();
  controler.PlayAMovieByFlag(key(2));
  time.advance(1);
  real().notify(RealPlayState::playing);
  controler.setPlayRuler(playRule::kMediaOnly);
  EXPECT_EQ(screen.lngState(), playState::kStopped);
  EXPECT_EQ(screen.strFilePath(), "C:\\v\\b.avi");
  EXPECT_EQ(order(), "a!b*c");
}

TEST_F(ControlerScreensTest, ASeekGoesToBothEnginesInTheirUnits) {
  trace.take();
  controler.setJinDu(12);
  EXPECT_EQ(trace.take(), "wmp position 12 | real position 12000");
}

}  // namespace
}  // namespace tessivo
