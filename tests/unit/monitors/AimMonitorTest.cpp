#include "monitors/AimMonitor.h"

#include <gtest/gtest.h>

#include <string>

#include "fakes/FakeDisplays.h"

namespace tessivo {
namespace {

struct TargetCase {
  const char* layout;  ///< one letter a monitor in the system's order: 'P' primary, 'o' other
  std::int16_t target;
};

void PrintTo(const TargetCase& c, std::ostream* out) {
  *out << '"' << c.layout << '"';
}

void layOut(FakeDisplays& displays, const std::string& layout) {
  for (std::size_t i = 0; i < layout.size(); ++i) {
    displays.add({static_cast<std::int32_t>(i) * 800, 0, 800, 600}, layout[i] == 'P');
  }
}

class AimMonitorTargetTest : public testing::TestWithParam<TargetCase> {};

TEST_P(AimMonitorTargetTest, IsTheOneAfterThePrimaryOrBeforeItWhenThatIsLast) {
  FakeDisplays displays;
  layOut(displays, GetParam().layout);
  AimMonitor aim(displays);
  EXPECT_EQ(aim.GetAimMonitorIndex(), GetParam().target);
}

INSTANTIATE_TEST_SUITE_P(Layouts, AimMonitorTargetTest,
                         testing::Values(TargetCase{"", -1}, TargetCase{"P", 1}, TargetCase{"o", 1},
                                         TargetCase{"Po", 2}, TargetCase{"oP", 1},
                                         TargetCase{"oo", 1}, TargetCase{"Poo", 2},
                                         TargetCase{"oPo", 3}, TargetCase{"ooP", 2},
                                         TargetCase{"ooo", 1}, TargetCase{"Pooo", 2},
                                         TargetCase{"oPoo", 3}, TargetCase{"ooPo", 4},
                                         TargetCase{"oooP", 3}));

TEST(AimMonitorTest, HasThePropertiesOfTheTarget) {
  FakeDisplays displays;
  displays.add({0, 0, 1280, 1024}, true);
  const auto target = displays.add({-800, -16, 800, 600}, false, Rect{-790, -10, 780, 560});
  AimMonitor aim(displays);

  aim.GetAimMonitorIndex();

  EXPECT_EQ(aim.hMonitor(), target);
  EXPECT_EQ(aim.name(), R"(\\.\DISPLAY2)");
  EXPECT_EQ(aim.Left(), -800);
  EXPECT_EQ(aim.Top(), -16);
  EXPECT_EQ(aim.Width(), 800);
  EXPECT_EQ(aim.Height(), 600);
  EXPECT_EQ(aim.WorkLeft(), -790);
  EXPECT_EQ(aim.WorkTop(), -10);
  EXPECT_EQ(aim.WorkWidth(), 780);
  EXPECT_EQ(aim.WorkHeight(), 560);
}

TEST(AimMonitorTest, HasNoPropertiesWithoutATarget) {
  const FakeDisplays displays;
  AimMonitor aim(displays);

  aim.GetAimMonitorIndex();

  EXPECT_FALSE(aim.hMonitor() || aim.name());
  EXPECT_FALSE(aim.Left() || aim.Top() || aim.Width() || aim.Height());
  EXPECT_FALSE(aim.WorkLeft() || aim.WorkTop() || aim.WorkWidth() || aim.WorkHeight());
}

TEST(AimMonitorTest, HasNoTargetBeforeItIsAskedFor) {
  FakeDisplays displays;
  layOut(displays, "Po");
  const AimMonitor aim(displays);
  EXPECT_FALSE(aim.Left());
  EXPECT_EQ(aim.intMonitorCount(), 2);
}

TEST(AimMonitorTest, FollowsAddedAndRemovedMonitorsAtEachCall) {
  FakeDisplays displays;
  layOut(displays, "P");
  AimMonitor aim(displays);
  EXPECT_EQ(aim.GetAimMonitorIndex(), 1);

  const auto added = displays.add({800, 0, 640, 480});
  EXPECT_EQ(aim.GetAimMonitorIndex(), 2);
  EXPECT_EQ(aim.intMonitorCount(), 2);
  EXPECT_EQ(aim.Width(), 640);

  displays.remove(added);
  EXPECT_EQ(aim.GetAimMonitorIndex(), 1);
  EXPECT_EQ(aim.intMonitorCount(), 1);
}

TEST(AimMonitorTest, ForgetsTheTargetWhenTheLastMonitorIsGone) {
  FakeDisplays displays;
  layOut(displays, "P");
  AimMonitor aim(displays);
  aim.GetAimMonitorIndex();
  displays.remove(displays.enumerate().front());
  EXPECT_EQ(aim.GetAimMonitorIndex(), -1);
  EXPECT_FALSE(aim.Left());
}

}  // namespace
}  // namespace tessivo
