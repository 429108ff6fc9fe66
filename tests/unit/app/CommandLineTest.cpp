#include "app/CommandLine.h"

#include "fakes/FakeSharedMemory.h"
#include "unit/app/ControlerFixture.h"

namespace tessivo {
namespace {

/// Three existing files, a.avi to c.avi in C:\v.
class CommandLineTest : public ControlerFixture {
 protected:
  void run(const std::string& text) {
    log.lines.clear();
    lines.processCmdLine(text);
  }
  /// The shell's menu with that verb (1 add and play, 2 add), for what lies in the mapping "sel".
  void select(int verb, const std::string& size) {
    run("DMenuF_" + std::to_string(verb) + "__/?%/sel/?%/" + size);
  }
  std::string refusal() { return log.lines.empty() ? "" : log.lines.back(); }
  void nothingHappened() {
    EXPECT_EQ(trace.take(), "");
    EXPECT_EQ(playList.lngListCount(), 0);
    EXPECT_EQ(memory.calls, "");
  }

  FakeSharedMemory memory;
  CommandLine lines{controler, memory, log};
};

TEST_F(CommandLineTest, AnEmptyTextDoesNothing) {
  run("");
  nothingHappened();
  EXPECT_EQ(refusal(), "");
}

TEST_F(CommandLineTest, APlainTextIsOnePathAndPlays) {
  files.existing.insert("C:\\v\\two words.avi");
  run("C:\\v\\two words.avi");
  EXPECT_EQ(order(), "t*!");
  EXPECT_EQ(screen.lngState(), playState::kStarting);
}

TEST_F(CommandLineTest, APlainPathThatDoesNotExistStopsPlayback) {
  addThree();
  controler.play();
  time.advance(1);
  real().notify(RealPlayState::playing);
  ASSERT_EQ(screen.lngState(), playState::kPlaying);
  run("C:\\v\\none.avi");
  EXPECT_EQ(screen.lngState(), playState::kStopped);
  EXPECT_EQ(playList.lngListCount(), 3);
}

TEST_F(CommandLineTest, TheFirstVerbAddsAndPlays) {
  memory.put("sel", "C:\\v\\b.avi@@_F%D-F_@C:\\v\\a.avi", 0);
  select(1, "62");
  EXPECT_EQ(order(), "b*!a");
  EXPECT_EQ(screen.lngState(), playState::kStarting);
}

TEST_F(CommandLineTest, TheSecondVerbOnlyAdds) {
  memory.put("sel", "C:\\v\\b.avi@@_F%D-F_@C:\\v\\a.avi", 0);
  select(2, "62");
  EXPECT_EQ(order(), "b*!a");
  EXPECT_EQ(screen.lngState(), playState::kStopped);
}

TEST_F(CommandLineTest, TheMappingIsUsedInOrderAndGivenBack) {
  memory.put("sel", "C:\\v\\a.avi", 0);
  select(2, "20");
  EXPECT_EQ(memory.calls, "open sel 20 | map | unmap | close | ");
}

TEST_F(CommandLineTest, ThePaddingIsNoPartOfTheLastPath) {
  memory.put("sel", "C:\\v\\b.avi@@_F%D-F_@C:\\v\\a.avi", 100);
  select(2, "162");
  ASSERT_EQ(order(), "b*!a");
  EXPECT_EQ(playList.objGetAItem(2)->strFilePath, "C:\\v\\a.avi");
  EXPECT_EQ(playList.objGetAItem(2)->strFileName, "a.avi");
}

TEST_F(CommandLineTest, AnAddressEndsAtTheFirstNulToo) {
  memory.put("sel", "http://host/a.avi", 6);
  select(2, "40");
  ASSERT_EQ(playList.lngListCount(), 1);
  EXPECT_EQ(playList.objGetAItem(1)->strFilePath, "http://host/a.avi");
}

TEST_F(CommandLineTest, FilesThatAreNotThereAreLeftOut) {
  memory.put("sel", "C:\\v\\x.avi@@_F%D-F_@@@_F%D-F_@C:\\v\\a.avi@@_F%D-F_@", 0);
  select(1, "200");
  EXPECT_EQ(order(), "a*!");
}

TEST_F(CommandLineTest, AMappingSmallerThanAnnouncedIsReadAsFarAsItGoes) {
  memory.put("sel", "C:\\v\\a.avi", 0);
  select(2, "60000000");
  EXPECT_EQ(order(), "a*!");
}

TEST_F(CommandLineTest, AnAnnouncedSizeSmallerThanTheTextCutsIt) {
  memory.put("sel", "C:\\v\\a.avi@@_F%D-F_@C:\\v\\b.avi", 0);
  select(2, "42");
  EXPECT_EQ(order(), "a*!");
}

TEST_F(CommandLineTest, FieldsAfterTheThirdDoNotCount) {
  memory.put("sel", "C:\\v\\a.avi", 0);
  select(2, " 20 /?%/more");
  EXPECT_EQ(order(), "a*!");
}

TEST_F(CommandLineTest, ThreeHundredFilesComeInTheirOrder) {
  std::string text;
  for (int i = 1; i <= 300; ++i) {
    const std::string path = "C:\\v\\第 " + std::to_string(i) + ".avi";
    files.existing.insert(path);
    text += (i > 1 ? "@@_F%D-F_@" : "") + path;
  }
  memory.put("sel", text, 2);
  select(1, std::to_string(memory.mappings["sel"].size()));
  ASSERT_EQ(playList.lngListCount(), 300);
  EXPECT_EQ(playList.objGetAItem(1)->strFileName, "第 1.avi");
  EXPECT_EQ(playList.objGetAItem(300)->strFileName, "第 300.avi");
  EXPECT_TRUE(playList.objGetAItem(1)->boolIsPlayItem);
}

TEST_F(CommandLineTest, TheVerbIsComparedLetterByLetter) {
  memory.put("sel", "C:\\v\\a.avi", 0);
  run("dmenuf_1__/?%/sel/?%/20");
  EXPECT_EQ(refusal(), "error not added, not a file: dmenuf_1__/?%/sel/?%/20");
  run(" DMenuF_1__/?%/sel/?%/20");
  EXPECT_EQ(refusal(), "error not added, not a file:  DMenuF_1__/?%/sel/?%/20");
}

class MalformedTest : public CommandLineTest,
                      public testing::WithParamInterface<std::pair<const char*, const char*>> {};

TEST_P(MalformedTest, IsLoggedAndNothingHappens) {
  memory.put("sel", "C:\\v\\a.avi", 0);
  run(GetParam().first);
  EXPECT_EQ(refusal(), std::string("error shell menu refused: ") + GetParam().second);
  nothingHappened();
}
INSTANTIATE_TEST_SUITE_P(
    Texts, MalformedTest,
    testing::Values(std::pair{"DMenuF_1__", "fewer than three fields in DMenuF_1__"},
                    std::pair{"DMenuF_2__/?%/sel", "fewer than three fields in DMenuF_2__/?%/sel"},
                    std::pair{"DMenuF_1__/?%/sel/?%/", "no size: "},
                    std::pair{"DMenuF_1__/?%/sel/?%/abc", "no size: abc"},
                    std::pair{"DMenuF_1__/?%/sel/?%/20x", "no size: 20x"},
                    std::pair{"DMenuF_1__/?%/sel/?%/0", "no size: 0"},
                    std::pair{"DMenuF_1__/?%/sel/?%/-20", "no size: -20"},
                    std::pair{"DMenuF_1__/?%/sel/?%/2147483648", "no size: 2147483648"},
                    std::pair{"DMenuF_1__/?%/sel/?%/2147483647", "too large: 2147483647 bytes"},
                    std::pair{"DMenuF_1__/?%/sel/?%/67108865", "too large: 67108865 bytes"},
                    std::pair{"DMenuF_1__/?%/none/?%/20", "no mapping named none"},
                    std::pair{"DMenuF_1__/?%//?%/20", "no mapping named "}));

TEST_F(CommandLineTest, TheLargestSelectionIsRead) {
  memory.put("sel", "C:\\v\\a.avi", 0);
  select(2, "67108864");
  EXPECT_EQ(order(), "a*!");
}

TEST_F(CommandLineTest, AnEmptyMappingIsRefusedAndStopsNothing) {
  addThree();
  controler.play();
  trace.take();
  memory.mappings["sel"] = std::vector<std::uint8_t>(100);
  select(1, "100");
  EXPECT_EQ(refusal(), "error shell menu refused: nothing in sel");
  select(1, "1");
  EXPECT_EQ(refusal(), "error shell menu refused: nothing in sel");
  EXPECT_EQ(trace.take(), "");
}

TEST_F(CommandLineTest, AMappingThatCannotBeReadIsRefused) {
  memory.put("sel", "C:\\v\\a.avi", 0);
  memory.refuseView = true;
  select(1, "20");
  EXPECT_EQ(refusal(), "error shell menu refused: mapping not readable: sel");
  EXPECT_EQ(memory.calls, "open sel 20 | map | close | ");
  EXPECT_EQ(trace.take(), "");
}

}  // namespace
}  // namespace tessivo
