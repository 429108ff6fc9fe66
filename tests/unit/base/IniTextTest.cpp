#include "base/IniText.h"

#include <gtest/gtest.h>

namespace tessivo {
namespace {

std::string summary(std::string_view text) {
  const auto lines = parseIniText(text);
  if (!lines) return "none";
  std::string all;
  for (const IniLine& line : *lines) {
    all += line.section + line.key + (line.value ? "=" + *line.value : "") + "|";
  }
  return all;
}

TEST(IniTextTest, LinesHaveSectionKeyAndValue) {
  EXPECT_EQ(summary("[Part]\r\n Key = a Value \r\n\tother=\n"), "[PART]KEY=a Value|[PART]OTHER=|");
}

TEST(IniTextTest, CommentsEmptyLinesAndTheByteOrderMarkAreNoLines) {
  EXPECT_EQ(summary("\xEF\xBB\xBF; c\n\n \t\n;x=1\na=1"), "A=1|");
}

TEST(IniTextTest, ValueMayHoldEverythingButTheEndOfALine) {
  EXPECT_EQ(summary("folder=C:\\照片;a=b [c]"), "FOLDER=C:\\照片;a=b [c]|");
}

TEST(IniTextTest, LineWithoutEqualsSignHasNoValue) {
  EXPECT_EQ(summary("[A]\nword\n=x\n"), "[A]WORD|[A]=x|");
}

TEST(IniTextTest, TheLineIsKeptAsItWas) {
  EXPECT_EQ(parseIniText("  Key = 1 \n")->front().text, "Key = 1");
}

TEST(IniTextTest, WhatIsTooLargeOrHoldsANulIsNoIniFile) {
  EXPECT_EQ(summary(std::string_view("a=1\0", 4)), "none");
  EXPECT_EQ(summary(std::string(kLargestIniText + 1, '\n')), "none");
  EXPECT_EQ(summary(std::string(kLargestIniText, '\n')), "");
}

TEST(IniTextTest, FileThatIsNotThereHasNoText) {
  EXPECT_FALSE(readIniText("no such folder/a.ini"));
}

}  // namespace
}  // namespace tessivo
