#include "app/MF.h"

#include <gtest/gtest.h>

#include <limits>

#include "fakes/FakeSharedMemory.h"

namespace tessivo {
namespace {

struct MFTest : testing::Test {
  /// Opened and mapped.
  void open(const std::string& name, std::int32_t bytes) {
    mf.strFMN(name);
    mf.lngFS(bytes);
    EXPECT_NE(mf.OFM(), 0U);
    EXPECT_NE(mf.MFV(), nullptr);
  }
  FakeSharedMemory memory;
  MF mf{memory};
};

TEST_F(MFTest, BeginsWithoutNameAndSize) {
  EXPECT_EQ(mf.strFMN(), "");
  EXPECT_EQ(mf.lngFS(), 0);
  mf.strFMN("name");
  mf.lngFS(-5);
  EXPECT_EQ(mf.strFMN(), "name");
  EXPECT_EQ(mf.lngFS(), -5);
}

TEST_F(MFTest, ReadsAsManyBytesAsSaidWithTheirNuls) {
  memory.put("sel", "C:\\片.avi", 4);
  open("sel", 20);
  EXPECT_EQ(mf.RF(), std::string("C:\\片.avi\0\0", 12));
  mf.lngFS(6);
  EXPECT_EQ(mf.RF(), "C:\\");
  mf.lngFS(7);
  EXPECT_EQ(mf.RF(), "C:\\");
}

TEST_F(MFTest, ReadsNoMoreThanTheMappingHas) {
  memory.put("sel", "C:\\a", 0);
  open("sel", std::numeric_limits<std::int32_t>::max());
  EXPECT_EQ(mf.RF(), "C:\\a");
}

TEST_F(MFTest, ASizeBelowOneReadsNothing) {
  memory.put("sel", "C:\\a", 0);
  open("sel", -1);
  EXPECT_EQ(mf.RF(), "");
}

TEST_F(MFTest, WritesTheTextWithoutATerminatorAndSaysHowManyBytes) {
  open("new", 12);
  EXPECT_EQ(mf.WF("中文x"), 6);
  EXPECT_EQ(mf.RF(), std::string("中文x\0\0\0", 10));
  EXPECT_EQ(mf.WF("123456"), 12);
}

TEST_F(MFTest, WritesNothingThatDoesNotFit) {
  open("new", 4);
  EXPECT_EQ(mf.WF("123"), 0);
  EXPECT_EQ(mf.RF(), std::string(2, '\0'));
}

TEST_F(MFTest, EachOperationIsOneCallInOrder) {
  memory.put("sel", "C:\\a", 0);
  open("sel", 8);
  EXPECT_TRUE(mf.UFV());
  EXPECT_TRUE(mf.CFM());
  EXPECT_EQ(memory.calls, "open sel 8 | map | unmap | close | ");
  EXPECT_FALSE(mf.UFV());
  EXPECT_FALSE(mf.CFM());
  EXPECT_EQ(mf.RF(), "");
}

TEST_F(MFTest, WhatIsOpenAtTheEndIsGivenBack) {
  {
    MF other(memory);
    other.strFMN("x");
    other.lngFS(4);
    other.OFM();
    other.MFV();
  }
  EXPECT_EQ(memory.calls, "open x 4 | map | unmap | close | ");
}

TEST_F(MFTest, OpeningAgainGivesTheFirstMappingBack) {
  open("x", 4);
  memory.calls.clear();
  open("y", 4);
  EXPECT_EQ(memory.calls, "unmap | close | open y 4 | map | ");
}

TEST_F(MFTest, WithoutAMappingThereIsNoView) {
  memory.refuse = true;
  mf.strFMN("x");
  EXPECT_EQ(mf.OFM(), 0U);
  EXPECT_EQ(mf.MFV(), nullptr);
  EXPECT_EQ(mf.RF(), "");
  EXPECT_EQ(mf.WF("x"), 0);
  EXPECT_EQ(memory.calls, "open x 0 | ");
}

}  // namespace
}  // namespace tessivo
