#include "screen/CaughtWindows.h"

#include <gtest/gtest.h>

#include <limits>

#include "fakes/FakeSystem.h"
#include "fakes/FakeWindowHooks.h"

namespace tessivo {
namespace {

class CaughtWindowsTest : public testing::Test {
 protected:
  CaughtWindowsTest() {
    windows.windows[1] = {0, "TessivoForm", "Tessivo", true};
    windows.windows[2] = {1, "RealAudioCtrlWndClass", "", true};
    windows.windows[3] = {2, "Frame", "", true};
    windows.windows[4] = {3, "Picture", "", true};
    windows.windows[9] = {1, "TessivoEngineWindow", "", true};
    caught.pictureMouse.listen([this](PictureMouse what) { mouse.push_back(what); });
  }

  FakeDesktopWindows windows;
  FakeWindowProcedures procedures;
  CaughtWindows caught{windows, procedures};
  std::vector<PictureMouse> mouse;
};

TEST_F(CaughtWindowsTest, AWindowBelowRealPlayersControlIsCaughtOnce) {
  caught.catchWindow(3);
  caught.catchWindow(3);
  EXPECT_EQ(procedures.attempts, 1);
  EXPECT_EQ(caught.handles(), (std::vector<std::string>{"3"}));
}

TEST_F(CaughtWindowsTest, AnyWindowOfTheChainMayBeRealPlayers) {
  caught.catchWindow(4);
  EXPECT_EQ(procedures.replaced, (std::vector<WindowHandle>{4}));
}

TEST_F(CaughtWindowsTest, TheClassIsComparedWithoutRegardToCase) {
  windows.windows[2].windowClass = "REALAUDIOctrlwndCLASS";
  caught.catchWindow(3);
  EXPECT_EQ(procedures.replaced, (std::vector<WindowHandle>{3}));
}

TEST_F(CaughtWindowsTest, TheWindowItselfIsNotTested) {
  caught.catchWindow(2);
  EXPECT_EQ(procedures.attempts, 0);
}

TEST_F(CaughtWindowsTest, AWindowElsewhereIsLeftAlone) {
  caught.catchWindow(9);
  caught.catchWindow(1);
  caught.catchWindow(77);
  caught.catchWindow(0);
  EXPECT_EQ(procedures.attempts, 0);
}

TEST_F(CaughtWindowsTest, AnotherClassWithTheNameInItIsLeftAlone) {
  windows.windows[2].windowClass = "RealAudioCtrlWndClass2";
  caught.catchWindow(3);
  EXPECT_EQ(procedures.attempts, 0);
}

TEST_F(CaughtWindowsTest, AWindowOfAnotherProcessIsNeverCaught) {
  windows.windows[3].ours = false;
  caught.catchWindow(3);
  EXPECT_EQ(procedures.attempts, 0);
}

TEST_F(CaughtWindowsTest, AChainThatNeverEndsIsGivenUp) {
  windows.windows[5] = {6, "A", "", true};
  windows.windows[6] = {5, "B", "", true};
  caught.catchWindow(5);
  EXPECT_EQ(procedures.attempts, 0);
}

TEST_F(CaughtWindowsTest, ARefusedReplacementIsTriedAgain) {
  procedures.refuse = true;
  caught.catchWindow(3);
  EXPECT_TRUE(caught.handles().empty());
  procedures.refuse = false;
  caught.catchWindow(3);
  EXPECT_EQ(procedures.attempts, 2);
  EXPECT_EQ(caught.handles(), (std::vector<std::string>{"3"}));
}

TEST_F(CaughtWindowsTest, TheReportedMouseMessagesAreConsumed) {
  caught.catchWindow(4);
  EXPECT_TRUE(procedures.send(4, WindowMessage::leftUp));
  EXPECT_TRUE(procedures.send(4, WindowMessage::leftDoubleClick));
  EXPECT_TRUE(procedures.send(4, WindowMessage::rightUp));
  EXPECT_EQ(mouse, (std::vector<PictureMouse>{PictureMouse::leftUp, PictureMouse::leftDoubleClick,
                                              PictureMouse::rightUp}));
}

TEST_F(CaughtWindowsTest, TheOtherMouseMessagesAreConsumedSilently) {
  caught.catchWindow(4);
  for (const auto message : {WindowMessage::leftDown, WindowMessage::mouseMove,
                             WindowMessage::rightDown, WindowMessage::rightDoubleClick}) {
    EXPECT_TRUE(procedures.send(4, message));
  }
  EXPECT_TRUE(mouse.empty());
}

TEST_F(CaughtWindowsTest, EverythingElseGoesToThePreviousProcedureOfThatWindow) {
  caught.catchWindow(3);
  caught.catchWindow(4);
  EXPECT_FALSE(procedures.send(3, WindowMessage::other));
  EXPECT_EQ(procedures.filter->previousProcedure(3), FakeWindowProcedures::before + 3);
  EXPECT_EQ(procedures.filter->previousProcedure(4), FakeWindowProcedures::before + 4);
  EXPECT_EQ(procedures.filter->previousProcedure(5), 0U);
}

TEST_F(CaughtWindowsTest, AtTheEndTheProceduresGoBackInTheOrderOfCatching) {
  caught.catchWindow(4);
  caught.catchWindow(3);
  caught.giveBackAll();
  EXPECT_EQ(procedures.restored,
            (std::vector<std::pair<WindowHandle, std::uintptr_t>>{
                {4, FakeWindowProcedures::before + 4}, {3, FakeWindowProcedures::before + 3}}));
  EXPECT_TRUE(caught.handles().empty());
}

TEST_F(CaughtWindowsTest, AfterTheEndNothingIsCaughtAnyMore) {
  caught.giveBackAll();
  caught.catchWindow(3);
  EXPECT_EQ(procedures.attempts, 0);
}

TEST_F(CaughtWindowsTest, AfterTheEndTheMouseIsNobodysButTheWindows) {
  caught.catchWindow(3);
  caught.giveBackAll();
  EXPECT_FALSE(procedures.send(3, WindowMessage::rightUp));
  EXPECT_TRUE(mouse.empty());
}

TEST_F(CaughtWindowsTest, AWindowThatSomebodyElseTookOverStillFindsItsProcedure) {
  caught.catchWindow(3);
  caught.giveBackAll();
  EXPECT_EQ(procedures.filter->previousProcedure(3), FakeWindowProcedures::before + 3);
}

TEST_F(CaughtWindowsTest, AHandleThatIsUsedAgainIsCaughtAgain) {
  caught.catchWindow(3);
  procedures.filter->gone(3);
  EXPECT_TRUE(caught.handles().empty());
  caught.catchWindow(3);
  EXPECT_EQ(procedures.attempts, 2);
  caught.giveBackAll();
  EXPECT_EQ(procedures.restored.size(), 1U);
}

TEST_F(CaughtWindowsTest, ALargeHandleKeepsItsValue) {
  constexpr WindowHandle kLargest = std::numeric_limits<WindowHandle>::max();
  windows.windows[kLargest] = {2, "Picture", "", true};
  caught.catchWindow(kLargest);
  caught.giveBackAll();
  ASSERT_EQ(procedures.restored.size(), 1U);
  EXPECT_EQ(procedures.restored[0].first, kLargest);
}

}  // namespace
}  // namespace tessivo
