#include "platform/FileRoot.h"

#include <gtest/gtest.h>

namespace tessivo {
namespace {

TEST(FileRoot, OfADriveIsItsLetter) {
  EXPECT_EQ(rootOf(R"(c:\films\a.avi)"), "C:");
  EXPECT_EQ(rootOf(R"(Z:a.avi)"), "Z:");
  EXPECT_EQ(rootOf(R"(\\?\d:\films\a.avi)"), "D:");
}

TEST(FileRoot, OfAShareIsTheServerAndItsShare) {
  EXPECT_EQ(rootOf(R"(\\Server\Films\a\b.avi)"), R"(\\SERVER\FILMS)");
  EXPECT_EQ(rootOf("//server/films/a.avi"), R"(\\SERVER\FILMS)");
  EXPECT_EQ(rootOf(R"(\\?\UNC\server\films\a.avi)"), R"(\\SERVER\FILMS)");
  EXPECT_EQ(rootOf(R"(\\server\films)"), R"(\\SERVER\FILMS)");
  EXPECT_EQ(rootOf(R"(\\server)"), R"(\\SERVER)");
}

TEST(FileRoot, OfAnythingElseIsNone) {
  EXPECT_EQ(rootOf(""), "");
  EXPECT_EQ(rootOf("a.avi"), "");
  EXPECT_EQ(rootOf(R"(\films\a.avi)"), "");
  EXPECT_EQ(rootOf(R"(films\a.avi)"), "");
}

}  // namespace
}  // namespace tessivo
