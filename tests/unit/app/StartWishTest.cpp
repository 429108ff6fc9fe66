#include "app/StartWish.h"

#include <gtest/gtest.h>

namespace tessivo {
namespace {

TEST(StartWish, TheOptionAloneAsksForAConversion) {
  for (const std::string text : {"--convert", "  --convert ", "--Convert", "--CONVERT"}) {
    EXPECT_TRUE(startWish(text).convert) << text;
    EXPECT_EQ(startWish(text).commandLine, "") << text;
  }
}

TEST(StartWish, EverythingElseIsACommandLine) {
  for (const std::string text :
       {"", "D:\\--convert", "--converts", " D:\\a.avi ", "--convert D:\\a.avi", "DMenuF_1__ x"}) {
    EXPECT_FALSE(startWish(text).convert) << text;
    EXPECT_EQ(startWish(text).commandLine, text);
  }
}

}  // namespace
}  // namespace tessivo
