#include "platform/CommandLineText.h"

#include <gtest/gtest.h>

namespace tessivo {
namespace {

TEST(CommandLineTextTest, NameEndsAtTheFirstBlank) {
  EXPECT_EQ(argumentText("Tessivo.exe  C:\\a b.avi "), "C:\\a b.avi ");
}

TEST(CommandLineTextTest, QuotedNameMayHoldBlanks) {
  EXPECT_EQ(argumentText("\"C:\\Program Files\\Tessivo.exe\" \"C:\\一.avi\" -SMF"),
            "\"C:\\一.avi\" -SMF");
}

TEST(CommandLineTextTest, NoArgumentsGiveNothing) {
  EXPECT_EQ(argumentText("Tessivo.exe"), "");
  EXPECT_EQ(argumentText("\"C:\\x y\\Tessivo.exe\""), "");
  EXPECT_EQ(argumentText("Tessivo.exe   \t"), "");
  EXPECT_EQ(argumentText("\"never closed"), "");
  EXPECT_EQ(argumentText(""), "");
}

}  // namespace
}  // namespace tessivo
