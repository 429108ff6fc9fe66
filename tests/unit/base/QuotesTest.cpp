#include "base/Quotes.h"

#include <gtest/gtest.h>

namespace tessivo {
namespace {

TEST(QuotesTest, TheQuotesAroundATextGo) {
  EXPECT_EQ(unquoted("\"a b\""), "a b");
}

TEST(QuotesTest, OnlyOnePairGoes) {
  EXPECT_EQ(unquoted("\"\"a\"\""), "\"a\"");
}

TEST(QuotesTest, TwoQuotesAloneStay) {
  EXPECT_EQ(unquoted("\"\""), "\"\"");
}

TEST(QuotesTest, AQuoteAtOneEndStays) {
  EXPECT_EQ(unquoted("\"a"), "\"a");
  EXPECT_EQ(unquoted("a\""), "a\"");
  EXPECT_EQ(unquoted("\""), "\"");
  EXPECT_EQ(unquoted(""), "");
}

}  // namespace
}  // namespace tessivo
