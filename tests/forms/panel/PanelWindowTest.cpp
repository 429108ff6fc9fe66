#include "forms/panel/PanelFixture.h"

namespace tessivo {
namespace {

class PanelWindowTest : public PanelFixture {
 protected:
  /// No two visible controls of the container overlap but those that are meant to; none sticks out.
  void expectOrder(const ui::Container& container, std::int32_t width) {
    const auto& controls = container.children();
    for (std::size_t i = 0; i < controls.size(); ++i) {
      if (!controls[i]->visible() || liesOnOthers(*controls[i])) continue;
      const Rect& a = controls[i]->bounds();
      EXPECT_GT(a.width, 0) << controls[i]->name() << " at " << width;
      EXPECT_GE(a.left, 0) << controls[i]->name() << " at " << width;
      EXPECT_LE(a.left + a.width, width) << controls[i]->name() << " at " << width;
      for (std::size_t j = i + 1; j < controls.size(); ++j) {
        if (!controls[j]->visible() || liesOnOthers(*controls[j])) continue;
        const Rect& b = controls[j]->bounds();
        const bool apart = a.left + a.width <= b.left || b.left + b.width <= a.left ||
                           a.top + a.height <= b.top || b.top + b.height <= a.top;
        EXPECT_TRUE(apart) << controls[i]->name() << " and " << controls[j]->name();
      }
    }
  }
  /// The strip of tabs has labels on it.
  bool liesOnOthers(const ui::Control& control) { return &control == &main.tsLists; }
};

TEST_F(PanelWindowTest, NothingOverlapsAtAnySize) {
  main.labWork.setVisible(true);
  main.picPlayErrNote.setVisible(true);
  main.labDeleteNote.setVisible(true);
  for (const std::int32_t width : {9750, 12000, 20010}) {
    main.setBounds({0, 0, width, width / 2});
    expectOrder(main, main.scaleWidth());
    expectOrder(main.picPlayListBackGround, main.picPlayListBackGround.bounds().width);
    expectOrder(main.picPlayErrLLBackGround, main.picPlayErrLLBackGround.bounds().width);
  }
}

TEST_F(PanelWindowTest, TheListsTakeTheRoom) {
  const Rect before = main.lvPlayList.bounds();
  const Rect button = main.cmdPlay.bounds();
  main.setBounds({0, 0, main.width() + 1500, main.height() + 1200});
  EXPECT_EQ(main.lvPlayList.bounds().width, before.width + 1500);
  EXPECT_EQ(main.lvPlayList.bounds().height, before.height + 1200);
  EXPECT_EQ(main.cmdPlay.bounds(), button);
}

TEST_F(PanelWindowTest, HidingThePlaylistEndsTheWindow30TwipsBelowTheSeparator) {
  const std::int32_t height = main.height();
  world->click(main.cmdHideShowPL);
  EXPECT_EQ(main.scaleHeight(), main.picSeparator.bounds().top + 30);
  EXPECT_FALSE(world->isVisible(main.tsLists));
  EXPECT_FALSE(world->isVisible(main.picPlayListBackGround));
  EXPECT_FALSE(world->isVisible(main.picBottomBorder));
  EXPECT_EQ(world->text(main.cmdHideShowPL), "显示列表(&L)");
  world->click(main.cmdHideShowPL);
  EXPECT_EQ(main.height(), height);
  EXPECT_TRUE(world->isVisible(main.tsLists));
  EXPECT_TRUE(world->isVisible(main.picPlayListBackGround));
  EXPECT_EQ(world->text(main.cmdHideShowPL), "隐藏列表(&L)");
}

TEST_F(PanelWindowTest, ShowingThePlaylistShowsThePageThatWasThere) {
  world->chooseTab(main.tsLists, 2);
  world->click(main.cmdHideShowPL);
  world->click(main.cmdHideShowPL);
  EXPECT_TRUE(world->isVisible(main.picPlayErrLLBackGround));
  EXPECT_FALSE(world->isVisible(main.picPlayListBackGround));
}

TEST_F(PanelWindowTest, TheBottomBorderResizesTheWindow) {
  const std::int32_t height = main.height();
  world->mouseDown(main.picBottomBorder, {MouseButton::left, 1500, 0});
  world->mouseMove(main.picBottomBorder, {MouseButton::left, 1500, 300});
  const std::int32_t below = main.scaleHeight() - main.picBottomBorder.bounds().top;
  EXPECT_EQ(main.height(), height + 300 - below);
  world->mouseUp(main.picBottomBorder, {MouseButton::left, 1500, 0});
  const std::int32_t now = main.height();
  world->mouseMove(main.picBottomBorder, {MouseButton::left, 1500, 300});
  EXPECT_EQ(main.height(), now);
}

TEST_F(PanelWindowTest, AHeightOf4300TwipsOrLessIsNotTaken) {
  const std::int32_t height = main.height();
  // A height that comes out at 4300 exactly is refused as well.
  const std::int32_t to4300 =
      4300 - (main.height() - main.scaleHeight() + main.picBottomBorder.bounds().top);
  main.picBottomBorder.mouseDown({MouseButton::left, 1500, 0});
  main.picBottomBorder.mouseMove({MouseButton::left, 1500, to4300});
  EXPECT_EQ(main.height(), height);
  main.picBottomBorder.mouseMove({MouseButton::left, 1500, to4300 - 3000});
  EXPECT_EQ(main.height(), height);
  main.picBottomBorder.mouseMove({MouseButton::left, 1500, to4300 + 5});
  EXPECT_EQ(main.height(), 4305);
  main.picBottomBorder.mouseUp({MouseButton::left, 1500, 0});
}

TEST_F(PanelWindowTest, ActivationSettlesIntoOneValue) {
  main.onActivate.raise();
  EXPECT_EQ(main.timDelayCheckMeIsActive.tag(), "1");
  time.advance(450);
  EXPECT_TRUE(main.isActive());
  EXPECT_FALSE(main.timDelayCheckMeIsActive.enabled());
  main.onDeactivate.raise();
  time.advance(200);
  main.onActivate.raise();
  time.advance(249);
  EXPECT_TRUE(main.isActive());
  main.onDeactivate.raise();
  EXPECT_EQ(main.timDelayCheckMeIsActive.tag(), "0");
  time.advance(1);
  EXPECT_FALSE(main.isActive());
}

TEST_F(PanelWindowTest, TheWindowsStateIsRecordedEverySecond) {
  time.advance(1000);
  main.noteWindowState(ui::WindowState::maximised);
  time.advance(999);
  EXPECT_EQ(main.recordedWindowState(), ui::WindowState::normal);
  time.advance(1);
  EXPECT_EQ(main.recordedWindowState(), ui::WindowState::maximised);
}

TEST_F(PanelWindowTest, ItOpensInTheMiddleOfTheWorkArea) {
  frmMain other(
      {world->toolkit(), time, time, pointer, windows, fileDialogs, shell, exitQuestion, ""}, {},
      controler);
  other.load({100, 50, 1000, 900});
  const Rect face = other.windowRect();
  EXPECT_NEAR(face.left + face.width / 2, 600, 1);
  EXPECT_NEAR(face.top + face.height / 2, 500, 1);
  EXPECT_TRUE(other.followsResolution());
}

TEST_F(PanelWindowTest, ASmallWorkAreaIsNotExceeded) {
  frmMain other(
      {world->toolkit(), time, time, pointer, windows, fileDialogs, shell, exitQuestion, ""}, {},
      controler);
  other.load({0, 0, 700, 400});
  EXPECT_LE(other.windowRect().width, 700);
  EXPECT_LE(other.windowRect().height, 400);
}

TEST_F(PanelWindowTest, ADialogGoesWithTheProgram) {
  world->answerDialogs([this](ui::Form&) { controler.exitSys(); });
  world->drop(main, std::vector<std::string>(501, "C:\\v\\b.avi"));
  EXPECT_NE(trace.take().find("quit"), std::string::npos);
  EXPECT_FALSE(main.isOpen());
}

}  // namespace
}  // namespace tessivo
