#include "monitors/cMonitors2.h"

#include <gtest/gtest.h>

#include <string>

#include "fakes/FakeDisplays.h"

namespace tessivo {
namespace {

struct OrderCase {
  const char* layout;  ///< one letter a monitor in the system's order: 'P' primary, 'o' other
  const char* order;   ///< the expected numbers in the system's order, as shown to the user
};

void PrintTo(const OrderCase& c, std::ostream* out) {
  *out << '"' << c.layout << '"';
}

void layOut(FakeDisplays& displays, const std::string& layout) {
  for (std::size_t i = 0; i < layout.size(); ++i) {
    displays.add({static_cast<std::int32_t>(i) * 800, 0, 800, 600}, layout[i] == 'P');
  }
}

std::string orderOf(const cMonitors2& monitors) {
  std::string order;
  for (std::int32_t i = 1; i <= monitors.lngMonitorsCount(); ++i) {
    order += std::to_string(monitors.objGetAMonitorByIndex(i)->Left() / 800 + 1);
  }
  return order;
}

class cMonitors2OrderTest : public testing::TestWithParam<OrderCase> {};

TEST_P(cMonitors2OrderTest, PutsThePrimaryFirstAndKeepsTheOthersInOrder) {
  FakeDisplays displays;
  layOut(displays, GetParam().layout);
  cMonitors2 monitors(displays);
  monitors.GetMonitorArray();
  EXPECT_EQ(orderOf(monitors), GetParam().order);
}

INSTANTIATE_TEST_SUITE_P(Layouts, cMonitors2OrderTest,
                         testing::Values(OrderCase{"", ""}, OrderCase{"P", "1"},
                                         OrderCase{"o", "1"}, OrderCase{"Po", "12"},
                                         OrderCase{"oP", "21"}, OrderCase{"oo", "12"},
                                         OrderCase{"Poo", "123"}, OrderCase{"oPo", "213"},
                                         OrderCase{"ooP", "312"}, OrderCase{"ooo", "123"},
                                         OrderCase{"Pooo", "1234"}, OrderCase{"oPoo", "2134"},
                                         OrderCase{"ooPo", "3124"}, OrderCase{"oooP", "4123"}));

TEST(cMonitors2Test, IsEmptyUntilItIsBuilt) {
  FakeDisplays displays;
  layOut(displays, "Po");
  const cMonitors2 monitors(displays);
  EXPECT_EQ(monitors.lngMonitorsCount(), 0);
  EXPECT_FALSE(monitors.objGetAMonitorByIndex(1));
}

TEST(cMonitors2Test, GivesNoMonitorOutsideTheList) {
  FakeDisplays displays;
  layOut(displays, "oP");
  cMonitors2 monitors(displays);
  monitors.GetMonitorArray();
  EXPECT_FALSE(monitors.objGetAMonitorByIndex(0));
  EXPECT_FALSE(monitors.objGetAMonitorByIndex(-1));
  EXPECT_FALSE(monitors.objGetAMonitorByIndex(3));
}

TEST(cMonitors2Test, BuildsAnewFromTheMonitorsAsTheyAreNow) {
  FakeDisplays displays;
  layOut(displays, "oP");
  cMonitors2 monitors(displays);
  monitors.GetMonitorArray();
  displays.remove(displays.enumerate().back());
  monitors.GetMonitorArray();
  EXPECT_EQ(orderOf(monitors), "1");
}

TEST(cMonitors2Test, BecomesEmptyWhenTheLastMonitorIsGone) {
  FakeDisplays displays;
  layOut(displays, "P");
  cMonitors2 monitors(displays);
  monitors.GetMonitorArray();
  displays.remove(displays.enumerate().front());
  monitors.GetMonitorArray();
  EXPECT_EQ(monitors.lngMonitorsCount(), 0);
}

}  // namespace
}  // namespace tessivo
