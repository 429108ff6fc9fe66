#include "base/Text.h"

#include <gtest/gtest.h>

#include <random>

namespace tessivo {
namespace {

constexpr char16_t kReplacement = 0xFFFD;

TEST(TextTest, ChineseAndEmojiGoThereAndBack) {
  const std::string text = "泰思维 Tessivo \xF0\x9F\x8E\xAC";
  EXPECT_EQ(toUtf16(text), u"泰思维 Tessivo \xD83C\xDFAC");
  EXPECT_EQ(toUtf8(toUtf16(text)), text);
}

TEST(TextTest, EveryCodePointGoesThereAndBack) {
  for (char32_t c = 0; c <= 0x10FFFF; ++c) {
    if (c >= 0xD800 && c <= 0xDFFF) continue;
    std::u16string text;
    if (c < 0x10000) {
      text = {static_cast<char16_t>(c)};
    } else {
      text = {static_cast<char16_t>(0xD800 + ((c - 0x10000) >> 10)),
              static_cast<char16_t>(0xDC00 + ((c - 0x10000) & 0x3FF))};
    }
    ASSERT_EQ(toUtf16(toUtf8(text)), text) << std::hex << static_cast<std::uint32_t>(c);
  }
}

TEST(TextTest, LoneSurrogatesGoThereAndBack) {
  const std::u16string high = {u'a', 0xD800, u'b'};
  const std::u16string low = {0xDFFF};
  const std::u16string reversed = {0xDC00, 0xD800};
  EXPECT_EQ(toUtf16(toUtf8(high)), high);
  EXPECT_EQ(toUtf16(toUtf8(low)), low);
  EXPECT_EQ(toUtf16(toUtf8(reversed)), reversed);
  EXPECT_EQ(toUtf8(low), "\xED\xBF\xBF");
}

TEST(TextTest, AnyUtf16GoesThereAndBack) {
  std::mt19937 random(20260131);
  std::uniform_int_distribution<int> unit(0, 0xFFFF);
  for (int round = 0; round < 2000; ++round) {
    std::u16string text;
    for (int i = 0; i < 12; ++i) text.push_back(static_cast<char16_t>(unit(random)));
    ASSERT_EQ(toUtf16(toUtf8(text)), text);
  }
}

TEST(TextTest, BytesThatStartNoSequenceBecomeReplacements) {
  EXPECT_EQ(toUtf16("a\xFFz"), (std::u16string{u'a', kReplacement, u'z'}));
  EXPECT_EQ(toUtf16("\x80"), (std::u16string{kReplacement}));
  EXPECT_EQ(toUtf16("\xC0\xAF"), (std::u16string{kReplacement, kReplacement}));  // overlong '/'
  EXPECT_EQ(toUtf16("\xE6\xB3"), (std::u16string{kReplacement, kReplacement}));  // cut off
  EXPECT_EQ(toUtf16("\xF4\x90\x80\x80"), std::u16string(4, kReplacement));       // above U+10FFFF
}

TEST(TextTest, EmbeddedNulStays) {
  EXPECT_EQ(toUtf16(std::string("a\0b", 3)), std::u16string(u"a\0b", 3));
  EXPECT_EQ(toUtf8(std::u16string(u"a\0b", 3)), std::string("a\0b", 3));
}

TEST(TextTest, TrimTakesBlanksOnly) {
  EXPECT_EQ(trim("  a b  "), "a b");
  EXPECT_EQ(trim("\ta "), "\ta");
  EXPECT_EQ(trim("   "), "");
  EXPECT_EQ(trim(""), "");
}

TEST(TextTest, UpperCaseIsForAsciiLettersOnly) {
  EXPECT_EQ(toUpper("aZ09-é泰"), "AZ09-é泰");
}

TEST(TextTest, ContainsIgnoresCase) {
  EXPECT_TRUE(containsNoCase("see HTTP://x", "http"));
  EXPECT_TRUE(containsNoCase("abc", ""));
  EXPECT_FALSE(containsNoCase("htt", "http"));
}

TEST(TextTest, FileNameIsWhatFollowsTheLastBackslash) {
  EXPECT_EQ(fileNameOf("C:\\片\\一.avi"), "一.avi");
  EXPECT_EQ(fileNameOf("一.avi"), "一.avi");
  EXPECT_EQ(fileNameOf("C:\\"), "");
}

}  // namespace
}  // namespace tessivo
