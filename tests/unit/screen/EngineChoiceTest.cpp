#include "screen/EngineChoice.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "base/FilePath.h"
#include "fakes/FakeLog.h"
#include "fakes/TempFolder.h"

namespace tessivo {
namespace {

using enum EngineChoice;

class EngineChoiceTest : public testing::Test {
 protected:
  EngineChoices parse(const std::string& text) { return parseEngineChoices(text, log); }
  EngineChoices readFile(const std::string& text) {
    std::ofstream(toFilePath(path), std::ios::binary) << text;
    return readEngineChoices(path, log);
  }

  FakeLog log;
  TempFolder folder;
  std::string path = folder.file("Engines.ini");
};

TEST_F(EngineChoiceTest, WithoutTheFileBothSlotsHoldTheControls) {
  EXPECT_EQ(readEngineChoices(path, log), (EngineChoices{control, control}));
  EXPECT_TRUE(log.lines.empty());
}

TEST_F(EngineChoiceTest, EachSlotIsChosenForItself) {
  EXPECT_EQ(readFile("[Engines]\r\nMediaPlayer=embedded\r\nRealPlayer=auto\r\n"),
            (EngineChoices{embedded, automatic}));
  EXPECT_EQ(parse("[Engines]\nRealPlayer=embedded\nMediaPlayer=control"),
            (EngineChoices{control, embedded}));
  EXPECT_TRUE(log.lines.empty());
}

TEST_F(EngineChoiceTest, ASlotThatIsMissingHoldsTheControl) {
  EXPECT_EQ(parse("[Engines]\nRealPlayer=auto\n"), (EngineChoices{control, automatic}));
  EXPECT_EQ(parse(""), (EngineChoices{control, control}));
  EXPECT_TRUE(log.lines.empty());
}

TEST_F(EngineChoiceTest, CaseBlanksCommentsAndAByteOrderMarkDoNotMatter) {
  EXPECT_EQ(parse("\xEF\xBB\xBF; MediaPlayer=control\n\n [engines] \n\tMEDIAPLAYER = Embedded \r\n"
                  "realplayer\t=AUTO"),
            (EngineChoices{embedded, automatic}));
  EXPECT_TRUE(log.lines.empty());
}

TEST_F(EngineChoiceTest, AnUnknownValueMeansTheControlAndIsLogged) {
  for (const char* value : {"", "both", "embedded2", "auto;", "1"}) {
    log.lines.clear();
    EXPECT_EQ(parse("[Engines]\nMediaPlayer=" + std::string(value) + "\nRealPlayer=auto"),
              (EngineChoices{control, automatic}))
        << value;
    ASSERT_EQ(log.lines.size(), 1U) << value;
    EXPECT_EQ(log.lines[0], "error Engines.ini: not understood: MediaPlayer=" + std::string(value));
  }
}

TEST_F(EngineChoiceTest, ALaterUnknownValueDoesNotLeaveAnEarlierOne) {
  EXPECT_EQ(parse("[Engines]\nMediaPlayer=embedded\nMediaPlayer=nonsense"),
            (EngineChoices{control, control}));
}

TEST_F(EngineChoiceTest, LinesThatAreNoneOfOursAreLogged) {
  EXPECT_EQ(parse("[Engines]\nVideo=embedded\nnonsense\nRealPlayer=auto"),
            (EngineChoices{control, automatic}));
  EXPECT_EQ(log.lines.size(), 2U);
}

TEST_F(EngineChoiceTest, AnotherSectionIsNotOurs) {
  EXPECT_EQ(parse("MediaPlayer=auto\n[Other]\nMediaPlayer=auto\n"),
            (EngineChoices{control, control}));
  EXPECT_EQ(log.lines.size(), 2U);
}

TEST_F(EngineChoiceTest, ABrokenFileMeansTheControlsAndIsLogged) {
  EXPECT_EQ(readFile(std::string("[Engines]\nMediaPlayer=auto\n\0", 29)),
            (EngineChoices{control, control}));
  EXPECT_EQ(log.lines.size(), 1U);
  log.lines.clear();
  EXPECT_EQ(readFile("[Engines]\nMediaPlayer=auto\n" + std::string(70000, ';')),
            (EngineChoices{control, control}));
  EXPECT_EQ(log.lines.size(), 1U);
}

TEST_F(EngineChoiceTest, AFileThatCannotBeReadMeansTheControlsAndIsLogged) {
  std::filesystem::create_directory(toFilePath(path));
  EXPECT_EQ(readEngineChoices(path, log), (EngineChoices{control, control}));
  EXPECT_EQ(log.lines.size(), 1U);
}

TEST_F(EngineChoiceTest, ALongLineIsNotLoggedInFull) {
  parse("[Engines]\n" + std::string(5000, 'x'));
  ASSERT_EQ(log.lines.size(), 1U);
  EXPECT_LT(log.lines[0].size(), 200U);
}

}  // namespace
}  // namespace tessivo
