#include "app/StartWish.h"

#include <gtest/gtest.h>

namespace tessivo {
namespace {

TEST(StartWish, TheOptionAloneAsksForAConversion) {
  EXPECT_TRUE(startWish("--convert").convert);
  EXPECT_EQ(startWish("--convert").commandLine, "");
}

TEST(StartWish, EverythingElseIsACommandLine) {
  for (const std::string text : {"", "D:\\--convert", "--convert D:\\a.avi", "DMenuF_1__ x"}) {
    EXPECT_FALSE(startWish(text).convert) << text;
    EXPECT_EQ(startWish(text).commandLine, text);
  }
}

}  // namespace
}  // namespace tessivo
