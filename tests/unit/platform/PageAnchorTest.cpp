#include "platform/PageAnchor.h"

#include <gtest/gtest.h>

namespace tessivo {
namespace {

std::string halves(const std::string& text) {
  const auto place = pageAnchorOf(text);
  return place ? place->page + " | " + place->anchor : "none";
}

TEST(PageAnchorTest, PageAndAnchorAreTakenApart) {
  EXPECT_EQ(halves(R"(C:\A B\Help\Page.htm#Item3)"), R"(C:\A B\Help\Page.htm | Item3)");
  EXPECT_EQ(halves(R"(C:\Help\Page.HTML#x)"), R"(C:\Help\Page.HTML | x)");
}

TEST(PageAnchorTest, LastSignCounts) {
  EXPECT_EQ(halves(R"(C:\No #1\a.htm\Page.htm#Item10)"), R"(C:\No #1\a.htm\Page.htm | Item10)");
}

TEST(PageAnchorTest, WhatIsNoPageWithAnAnchorIsLeftAlone) {
  EXPECT_EQ(halves(R"(C:\Help\Page.htm)"), "none");
  EXPECT_EQ(halves(R"(C:\Help\Page.htm#)"), "none");
  EXPECT_EQ(halves(R"(C:\No #1\Page.htm)"), "none");
  EXPECT_EQ(halves(R"(C:\Song #1.mp3)"), "none");
  EXPECT_EQ(halves("#Item3"), "none");
  EXPECT_EQ(halves(""), "none");
}

TEST(PageAnchorTest, AddressOfAPageOnADrive) {
  EXPECT_EQ(addressOf({R"(C:\Help\Page-1_a.htm)", "Item3"}), "file:///C:/Help/Page-1_a.htm#Item3");
}

TEST(PageAnchorTest, WhatAnAddressCannotHoldIsEscaped) {
  EXPECT_EQ(addressOf({R"(D:\A B#1\100%\泰"&.htm)", "a b"}),
            "file:///D:/A%20B%231/100%25/%E6%B3%B0%22%26.htm#a%20b");
}

TEST(PageAnchorTest, AddressOfAPageOnAServer) {
  EXPECT_EQ(addressOf({R"(\\hall\tessivo\Help\Page.htm)", "Item10"}),
            "file://hall/tessivo/Help/Page.htm#Item10");
}

}  // namespace
}  // namespace tessivo
