#include "ssp/SaverArguments.h"

#include <gtest/gtest.h>

namespace tessivo::ssp {
namespace {

SaverTask taskOf(const std::string& text) {
  return parseSaverArguments(text).task;
}

TEST(SaverArgumentsTest, RunHasAreaFlagAndCaption) {
  const auto run = parseSaverArguments("RUN##-1280##24##1280##1024##1##泰思维 播放");
  EXPECT_EQ(run.task, SaverTask::run);
  EXPECT_EQ(run.area, (Rect{-1280, 24, 1280, 1024}));
  EXPECT_TRUE(run.fullScreen);
  EXPECT_EQ(run.caption, "泰思维 播放");
  EXPECT_FALSE(parseSaverArguments("RUN##0##0##1##1##0##x").fullScreen);
}

TEST(SaverArgumentsTest, CaptionIsTheRestOfTheText) {
  EXPECT_EQ(parseSaverArguments("RUN##0##0##8##8##0##a ## b##").caption, "a ## b##");
  EXPECT_EQ(parseSaverArguments("RUN##0##0##8##8##0## ").caption, " ");
  EXPECT_EQ(taskOf("RUN##0##0##8##8##0##"), SaverTask::run);
}

TEST(SaverArgumentsTest, AreaWithoutWidthOrHeightIsAPreview) {
  EXPECT_EQ(taskOf("RUN##0##0##0##0##0## "), SaverTask::preview);
  EXPECT_EQ(taskOf("RUN##5##5##0##100##0##x"), SaverTask::preview);
  EXPECT_EQ(taskOf("RUN##5##5##100##-1##0##x"), SaverTask::preview);
}

TEST(SaverArgumentsTest, LargestAreaIsThatOfAWindow) {
  EXPECT_EQ(taskOf("RUN##0##0##32767##32767##0##x"), SaverTask::run);
  EXPECT_EQ(taskOf("RUN##0##0##32768##1##0##x"), SaverTask::invalid);
  EXPECT_EQ(taskOf("RUN##0##0##1##32768##0##x"), SaverTask::invalid);
}

TEST(SaverArgumentsTest, EdgesMustBeTellableIn32Bits) {
  EXPECT_EQ(taskOf("RUN##2147450880##0##32767##1##0##x"), SaverTask::run);
  EXPECT_EQ(taskOf("RUN##2147450881##0##32767##1##0##x"), SaverTask::invalid);
  EXPECT_EQ(taskOf("RUN##0##2147450881##1##1##0##x"), SaverTask::invalid);
  EXPECT_EQ(taskOf("RUN##-2147483648##-2147483648##1##1##0##x"), SaverTask::run);
}

TEST(SaverArgumentsTest, ConfigureHasPlaceAndOwner) {
  const auto configure = parseSaverArguments("SHOW_CONFIG_FACE##-640##512##泰思维 a##b");
  EXPECT_EQ(configure.task, SaverTask::configure);
  EXPECT_EQ(configure.middle, (Point{-640, 512}));
  EXPECT_EQ(configure.ownerCaption, "泰思维 a##b");
}

TEST(SaverArgumentsTest, NothingAtAllMeansTheSettings) {
  EXPECT_EQ(taskOf(""), SaverTask::settings);
  EXPECT_EQ(taskOf("  "), SaverTask::settings);
}

class SaverArgumentsMalformed : public ::testing::TestWithParam<const char*> {};

TEST_P(SaverArgumentsMalformed, IsNotUnderstood) {
  EXPECT_EQ(taskOf(GetParam()), SaverTask::invalid);
}

INSTANTIATE_TEST_SUITE_P(
    All, SaverArgumentsMalformed,
    ::testing::Values("RUN", "RUN##", "run##0##0##8##8##0##x", "WALK##0##0##8##8##0##x", "##",
                      "RUN##0##0##8##8##0", "RUN##0##0##8##8##2##x", "RUN##0##0##8##8####x",
                      "RUN##0##0##8##8##01##x", "RUN####0##8##8##0##x", "RUN##a##0##8##8##0##x",
                      "RUN##0##0##8 ##8##0##x", "RUN##0##0##8.5##8##0##x", "RUN##0##+1##8##8##0##x",
                      "RUN##0##0##0x8##8##0##x", "RUN##0##0##2147483648##8##0##x",
                      "RUN##-2147483649##0##8##8##0##x", "RUN#0#0#8#8#0#x",
                      "\"RUN##0##0##8##8##0##x\"", "SHOW_CONFIG_FACE", "SHOW_CONFIG_FACE##1##2",
                      "SHOW_CONFIG_FACE##1##b##x", "SHOW_CONFIG_FACE####2##x", "-SMF",
                      "C:\\a.avi"));

}  // namespace
}  // namespace tessivo::ssp
