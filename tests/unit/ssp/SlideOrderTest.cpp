#include "ssp/SlideOrder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>

namespace tessivo::ssp {
namespace {

std::vector<std::string> round(SlideOrder& order) {
  std::vector<std::string> all;
  while (const auto name = order.next()) all.push_back(*name);
  return all;
}

TEST(PictureNameTest, EndingSaysWhatIsAPicture) {
  for (const char* name : {"a.jpg", "b.JPEG", "照片.Png", "x.y.bmp", "c.gif", "d.tif", "e.TIFF"}) {
    EXPECT_TRUE(isPictureName(name)) << name;
  }
  for (const char* name : {"jpg", "a.jpgx", "a.webp", "a.png.txt", "a.", "", "Thumbs.db"}) {
    EXPECT_FALSE(isPictureName(name)) << name;
  }
}

TEST(SlideOrderTest, ByNameCaseDoesNotMatter) {
  SlideOrder order(1);
  order.begin({"b.jpg", "C.jpg", "中.jpg", "A.jpg", "a.jpg", "10.jpg", "9.jpg"},
              PictureOrder::byName);
  EXPECT_EQ(round(order), (std::vector<std::string>{"10.jpg", "9.jpg", "A.jpg", "a.jpg", "b.jpg",
                                                    "C.jpg", "中.jpg"}));
}

TEST(SlideOrderTest, RoundWithoutNamesIsOverAtOnce) {
  SlideOrder order(1);
  EXPECT_FALSE(order.next());
  order.begin({}, PictureOrder::random);
  EXPECT_FALSE(order.next());
}

TEST(SlideOrderTest, RandomRoundHasEachOnce) {
  SlideOrder order(7);
  const std::vector<std::string> names{"a", "b", "c", "d", "e"};
  for (int i = 0; i < 50; ++i) {
    order.begin(names, PictureOrder::random);
    auto all = round(order);
    std::sort(all.begin(), all.end());
    EXPECT_EQ(all, names);
  }
}

TEST(SlideOrderTest, RandomNeverShowsTheSameTwiceInARow) {
  for (std::uint32_t seed = 0; seed < 50; ++seed) {
    SlideOrder order(seed);
    std::string last;
    for (int i = 0; i < 50; ++i) {
      order.begin({"a", "b", "c"}, PictureOrder::random);
      for (const auto& name : round(order)) {
        ASSERT_NE(name, last);
        last = name;
      }
    }
  }
}

TEST(SlideOrderTest, RandomOrdersDiffer) {
  SlideOrder order(3);
  std::set<std::vector<std::string>> seen;
  for (int i = 0; i < 200; ++i) {
    order.begin({"a", "b", "c"}, PictureOrder::random);
    seen.insert(round(order));
  }
  EXPECT_EQ(seen.size(), 6U);
}

TEST(SlideOrderTest, SameSeedGivesTheSameOrder) {
  SlideOrder one(11);
  SlideOrder other(11);
  for (SlideOrder* order : {&one, &other}) {
    order->begin({"a", "b", "c", "d", "e", "f"}, PictureOrder::random);
  }
  EXPECT_EQ(round(one), round(other));
}

TEST(SlideOrderTest, SinglePictureComesEachRound) {
  SlideOrder order(1);
  for (int i = 0; i < 3; ++i) {
    order.begin({"a"}, PictureOrder::random);
    EXPECT_EQ(round(order), std::vector<std::string>{"a"});
  }
}

}  // namespace
}  // namespace tessivo::ssp
