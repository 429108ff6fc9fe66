#include "platform/RegistryValue.h"

#include <gtest/gtest.h>

#include "base/Utf16Bytes.h"

namespace tessivo {
namespace {

using Bytes = std::vector<std::uint8_t>;

constexpr std::uint32_t kText = 1;
constexpr std::uint32_t kNumber = 4;

TEST(RegistryValueTest, ATextEndsAtItsFirstNul) {
  EXPECT_EQ(registryValueText(kText, toUtf16Bytes(std::string("默认\0x", 8))), "默认");
  EXPECT_EQ(registryValueText(2, toUtf16Bytes(std::string("%X%\0", 4))), "%X%");
}

TEST(RegistryValueTest, ATextWithoutNulGoesToItsEnd) {
  EXPECT_EQ(registryValueText(kText, toUtf16Bytes("abc")), "abc");
  EXPECT_EQ(registryValueText(kText, Bytes{}), "");
}

TEST(RegistryValueTest, HalfACharacterIsNone) {
  EXPECT_EQ(registryValueText(kText, Bytes{'a', 0, 'b'}), "a");
  EXPECT_EQ(registryValueText(kText, Bytes{'b'}), "");
}

TEST(RegistryValueTest, ANumberIsToldWithItsSign) {
  EXPECT_EQ(registryValueText(kNumber, Bytes{42, 0, 0, 0}), "42");
  EXPECT_EQ(registryValueText(kNumber, Bytes{0, 1, 2, 3}), "50462976");
  EXPECT_EQ(registryValueText(kNumber, Bytes{0xFF, 0xFF, 0xFF, 0xFF}), "-1");
}

TEST(RegistryValueTest, ANumberOfAnotherSizeIsZero) {
  for (const std::size_t size : {0, 1, 3, 5, 8}) {
    EXPECT_EQ(registryValueText(kNumber, Bytes(size, 1)), "0") << size;
  }
}

TEST(RegistryValueTest, OtherKindsHaveNoText) {
  for (const std::uint32_t kind : {0U, 3U, 5U, 6U, 7U, 11U, 0xFFFFFFFFU}) {
    EXPECT_EQ(registryValueText(kind, Bytes{42, 0, 0, 0}), std::nullopt) << kind;
  }
}

}  // namespace
}  // namespace tessivo
