#include "ssp/WanderPath.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

namespace tessivo::ssp {
namespace {

struct Case {
  Size area;
  Size block;
};

std::ostream& operator<<(std::ostream& out, const Case& c) {
  return out << c.area.width << "x" << c.area.height << " with " << c.block.width << "x"
             << c.block.height;
}

class WanderPathTest : public ::testing::TestWithParam<Case> {
 protected:
  static constexpr int kSeconds = 20'000;  ///< some five and a half hours
  const Size area = GetParam().area;
  const Size block = GetParam().block;
  WanderPath path{area, block};
};

TEST_P(WanderPathTest, NeverLeavesTheArea) {
  for (int i = 0; i < kSeconds; ++i, path.advance()) {
    const Point at = path.position();
    ASSERT_GE(at.x, 0);
    ASSERT_GE(at.y, 0);
    ASSERT_LE(at.x + block.width, area.width) << i;
    ASSERT_LE(at.y + block.height, area.height) << i;
  }
}

TEST_P(WanderPathTest, NeverStandsStillNorJumps) {
  for (int i = 0; i < kSeconds; ++i) {
    const Point before = path.position();
    path.advance();
    const Point after = path.position();
    ASSERT_NE(before, after) << i;
    ASSERT_LE(std::abs(after.x - before.x), 4);
    ASSERT_LE(std::abs(after.y - before.y), block.height);
  }
}

TEST_P(WanderPathTest, CoversTheWholeArea) {
  // By columns and rows of the area: covered(x, y) is kept as a grid of bytes.
  std::vector<char> covered(static_cast<std::size_t>(area.width) *
                            static_cast<std::size_t>(area.height));
  for (int i = 0; i < kSeconds; ++i, path.advance()) {
    const Point at = path.position();
    for (std::int32_t y = at.y; y < at.y + block.height; ++y) {
      const auto row = covered.begin() + std::ptrdiff_t{y} * area.width + at.x;
      std::fill(row, row + block.width, 1);
    }
  }
  EXPECT_EQ(std::count(covered.begin(), covered.end(), 0), 0);
}

INSTANTIATE_TEST_SUITE_P(Areas, WanderPathTest,
                         ::testing::Values(Case{{320, 256}, {160, 56}}, Case{{256, 320}, {90, 32}},
                                           Case{{101, 77}, {20, 11}}, Case{{60, 60}, {50, 10}},
                                           Case{{8000, 10}, {60, 9}}, Case{{10, 4000}, {9, 12}},
                                           Case{{40, 20}, {36, 20}}, Case{{40, 20}, {40, 18}},
                                           Case{{3, 2}, {1, 1}}, Case{{2, 1}, {1, 1}}));

TEST(WanderPathLimits, BlockAsLargeAsTheAreaStays) {
  WanderPath path({40, 20}, {40, 20});
  path.advance();
  EXPECT_EQ(path.position(), (Point{0, 0}));
}

TEST(WanderPathLimits, BlockLargerThanTheAreaStaysInTheCorner) {
  WanderPath path({1, 1}, {30, 12});
  for (int i = 0; i < 10; ++i) path.advance();
  EXPECT_EQ(path.position(), (Point{0, 0}));
}

TEST(WanderPathLimits, ABlockThatGrowsStaysInside) {
  WanderPath path({100, 100}, {10, 10});
  for (int i = 0; i < 20; ++i) path.advance();
  const Point before = path.position();
  EXPECT_EQ(before.x, 80);
  path.setBlock({50, 99});
  EXPECT_EQ(path.position().x, 50);
  EXPECT_LE(path.position().y, 1);
}

TEST(WanderPathLimits, ABlockThatShrinksStaysWhereItIs) {
  WanderPath path({100, 100}, {50, 50});
  for (int i = 0; i < 5; ++i) path.advance();
  const Point before = path.position();
  path.setBlock({40, 40});
  EXPECT_EQ(path.position(), before);
}

}  // namespace
}  // namespace tessivo::ssp
