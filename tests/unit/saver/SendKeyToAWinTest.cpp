#include "saver/SendKeyToAWin.h"

#include <gtest/gtest.h>

#include <tuple>
#include <vector>

namespace tessivo {
namespace {

struct FakeKeyPosting : KeyPosting {
  using Posted = std::tuple<WindowHandle, std::uint32_t, std::uint32_t, std::uint32_t>;
  std::uint32_t scanCodeOf(std::uint32_t virtualKey) const override {
    return virtualKey == 'A' ? 0x1E : virtualKey == 'B' ? 0x130 : 5;
  }
  void post(WindowHandle window, std::uint32_t message, std::uint32_t virtualKey,
            std::int32_t keyData) override {
    posted.emplace_back(window, message, virtualKey, static_cast<std::uint32_t>(keyData));
  }
  std::vector<Posted> posted;
};

class SendKeyTest : public testing::Test {
 protected:
  FakeKeyPosting keys;
  SendKeyToAWin sender{keys};
};

TEST_F(SendKeyTest, PostsTheKeyGoingDownAndComingUp) {
  sender.SendKey(77, "A");
  EXPECT_EQ(keys.posted, (std::vector<FakeKeyPosting::Posted>{{77, 256, 'A', 0x001E0001},
                                                              {77, 257, 'A', 0xC01E0001}}));
}

TEST_F(SendKeyTest, TheFirstCharacterInUpperCaseCounts) {
  sender.SendKey(77, "abc");
  ASSERT_EQ(keys.posted.size(), 2U);
  EXPECT_EQ(keys.posted[0], (FakeKeyPosting::Posted{77, 256, 'A', 0x001E0001}));
  EXPECT_EQ(keys.posted[1], (FakeKeyPosting::Posted{77, 257, 'A', 0xC01E0001}));
}

TEST_F(SendKeyTest, AScanCodeHasTwoDigits) {
  sender.SendKey(1, "4");
  ASSERT_EQ(keys.posted.size(), 2U);
  EXPECT_EQ(keys.posted[0], (FakeKeyPosting::Posted{1, 256, '4', 0x00050001}));
  EXPECT_EQ(keys.posted[1], (FakeKeyPosting::Posted{1, 257, '4', 0xC0050001}));
  sender.SendKey(1, "B");  // of a longer one the last two count
  EXPECT_EQ(keys.posted[2], (FakeKeyPosting::Posted{1, 256, 'B', 0x00300001}));
}

TEST_F(SendKeyTest, WhatIsNoKeySendsNothing) {
  sender.SendKey(1, "");
  sender.SendKey(1, "时");
  EXPECT_TRUE(keys.posted.empty());
}

}  // namespace
}  // namespace tessivo
