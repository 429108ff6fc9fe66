#include "base/Utf16Bytes.h"

#include <gtest/gtest.h>

namespace tessivo {
namespace {

using Bytes = std::vector<std::uint8_t>;

TEST(Utf16BytesTest, TheLowByteComesFirstAndNothingFollows) {
  EXPECT_EQ(toUtf16Bytes("-中"), (Bytes{0x2D, 0x00, 0x2D, 0x4E}));
  EXPECT_EQ(toUtf16Bytes(""), Bytes{});
}

TEST(Utf16BytesTest, AnOddByteAtTheEndIsNoCharacter) {
  EXPECT_EQ(fromUtf16Bytes(Bytes{0x2D, 0x00, 0x41}), "-");
  EXPECT_EQ(fromUtf16Bytes(Bytes{0x41}), "");
}

TEST(Utf16BytesTest, NulsAreKept) {
  EXPECT_EQ(fromUtf16Bytes(Bytes{0x41, 0, 0, 0, 0x42, 0}), std::string("A\0B", 3));
}

TEST(Utf16BytesTest, AHalfOfAPairComesBackAsItWas) {
  const Bytes lone{0x41, 0x00, 0x00, 0xD8, 0x42, 0x00};
  EXPECT_EQ(toUtf16Bytes(fromUtf16Bytes(lone)), lone);
}

TEST(Utf16BytesTest, CharactersBeyondTheFirstPlaneTakeTwoUnits) {
  EXPECT_EQ(fromUtf16Bytes(toUtf16Bytes("🎬片.avi")), "🎬片.avi");
  EXPECT_EQ(toUtf16Bytes("🎬").size(), 4U);
}

}  // namespace
}  // namespace tessivo
