#include "app/Request.h"

#include <gtest/gtest.h>

#include "base/Utf16Bytes.h"

namespace tessivo {
namespace {

using Bytes = std::vector<std::uint8_t>;

TEST(RequestTest, TheRecordIsTheTextAndOneByteMore) {
  EXPECT_EQ(request::encode("-SMF"), (Bytes{'-', 0, 'S', 0, 'M', 0, 'F', 0, 0}));
  EXPECT_EQ(request::encode("中"), (Bytes{0x2D, 0x4E, 0}));
  EXPECT_EQ(request::kNumber, 1U);
  EXPECT_STREQ(request::kWindowTitle, "play27182831415");
}

TEST(RequestTest, NineHundredNinetyNineCharactersFitAndAThousandDoNot) {
  const auto longest = request::encode(std::string(999, 'x'));
  ASSERT_TRUE(longest);
  EXPECT_EQ(longest->size(), 1999U);
  EXPECT_EQ(request::decode(*longest), std::string(999, 'x'));
  EXPECT_FALSE(request::encode(std::string(1000, 'x')));
  EXPECT_FALSE(request::encode(std::string(5000, 'x')));
}

TEST(RequestTest, CharactersCountAndNotTheirBytesInOurTexts) {
  std::string text;
  for (int i = 0; i < 999; ++i) text += "中";
  EXPECT_TRUE(request::encode(text));
  EXPECT_FALSE(request::encode(text + "中"));
  EXPECT_FALSE(request::encode(text + "🎬"));
}

TEST(RequestTest, TheTextEndsAtTheFirstNul) {
  EXPECT_EQ(request::decode(toUtf16Bytes(std::string("C:\\a\0rest", 9))), "C:\\a");
  EXPECT_EQ(request::decode(toUtf16Bytes(std::string("\0rest", 5))), "");
  EXPECT_EQ(request::decode({}), "");
}

TEST(RequestTest, AnOddByteThatIsNotZeroIsHalfACharacter) {
  EXPECT_EQ(request::decode(Bytes{'-', 0, 'S', 0, 'x'}), "-Sx");
  EXPECT_EQ(request::decode(Bytes{'x'}), "x");
}

TEST(RequestTest, TwoThousandBytesAreReadAndMoreAreRefused) {
  const Bytes full = toUtf16Bytes(std::string(1000, 'x'));
  EXPECT_EQ(request::decode(full), std::string(1000, 'x'));
  Bytes more = full;
  more.push_back(0);
  EXPECT_FALSE(request::decode(more));
  EXPECT_FALSE(request::decode(Bytes(1'000'000)));
}

}  // namespace
}  // namespace tessivo
