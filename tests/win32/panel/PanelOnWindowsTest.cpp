// What the control panel does with real windows only: resolution, window states, order on the
// screen, room for its texts.
#include "forms/panel/PanelFixture.h"
#include "win32/ResourceCounts.h"
#include "win32/ui/RealControls.h"

namespace tessivo {
namespace {

using ui::send;
using ui::windowOf;

class PanelOnWindowsTest : public PanelFixture {
 protected:
  HWND window() const { return windowOf(main); }
  /// The panel comes to a monitor of that resolution, as large as before to the eye.
  void changeResolution(int dpi) {
    RECT at{};
    GetWindowRect(window(), &at);
    const int before = static_cast<int>(1440 / main.twipsPerPixel().x);
    at.right = at.left + MulDiv(at.right - at.left, dpi, before);
    at.bottom = at.top + MulDiv(at.bottom - at.top, dpi, before);
    SendMessageW(window(), WM_DPICHANGED, MAKEWPARAM(dpi, dpi), reinterpret_cast<LPARAM>(&at));
  }
  static int fontHeight(const ui::Control& control) {
    LOGFONTW font{};
    GetObjectW(reinterpret_cast<HFONT>(send(control, WM_GETFONT)), sizeof font, &font);
    return font.lfHeight;
  }
  static SIZE pictureOf(const ui::Button& button) {
    BUTTON_IMAGELIST shown{};
    send(button, BCM_GETIMAGELIST, 0, reinterpret_cast<LPARAM>(&shown));
    int width = 0;
    int height = 0;
    ImageList_GetIconSize(shown.himl, &width, &height);
    return {width, height};
  }
  static bool isTopmost(const ui::Control& form) {
    return (GetWindowLongPtrW(windowOf(form), GWL_EXSTYLE) & WS_EX_TOPMOST) != 0;
  }
  void notice() { world->drop(main, std::vector<std::string>(501, "C:\\v\\b.avi")); }
};

TEST_F(PanelOnWindowsTest, AnotherResolutionScalesEverything) {
  const Rect button = world->bounds(main.cmdPlay);
  const int font = fontHeight(main.cmdPlay);
  const auto column = [this] { return send(main.lvPlayList, LVM_GETCOLUMNWIDTH, 1); };
  const LRESULT width = column();
  EXPECT_EQ(pictureOf(main.cmdPlay).cy, 16);
  changeResolution(144);
  EXPECT_EQ(main.twipsPerPixel().x, 10);
  const Rect large = world->bounds(main.cmdPlay);
  EXPECT_NEAR(large.width, button.width * 3 / 2, 1);
  EXPECT_NEAR(large.height, button.height * 3 / 2, 1);
  EXPECT_NEAR(fontHeight(main.cmdPlay), font * 3 / 2, 1);
  EXPECT_NEAR(static_cast<double>(column()), static_cast<double>(width) * 1.5, 1);
  EXPECT_EQ(pictureOf(main.cmdPlay).cy, 24);
  changeResolution(96);
  EXPECT_EQ(world->bounds(main.cmdPlay), button);
  EXPECT_EQ(column(), width);
  EXPECT_EQ(fontHeight(main.cmdPlay), font);
}

TEST_F(PanelOnWindowsTest, PicturesThatChangeLeaveNothingBehind) {
  main.setPlayButtonState(1);
  main.setPlayButtonState(2);
  const int before = drawingObjects();
  for (int i = 0; i < 20; ++i) main.setPlayButtonState(1 + i % 2);
  EXPECT_EQ(drawingObjects(), before);
}

TEST_F(PanelOnWindowsTest, TheListsStillTakeTheRoomAtAnotherResolution) {
  changeResolution(192);
  const Rect page = world->bounds(main.picPlayListBackGround);
  RECT inner{};
  GetClientRect(window(), &inner);
  EXPECT_NEAR(page.left + page.width, inner.right - 20, 1);
  EXPECT_NEAR(page.top + page.height, inner.bottom - 20, 1);
}

TEST_F(PanelOnWindowsTest, EveryTextHasRoom) {
  main.noteMoved(main.bounds());
  main.setBounds({0, 0, 10050, 6000});  // as narrow as it can be
  for (const ui::Label* label :
       {&main.labPlayState1, &main.labMoviePosi, &main.labMovieLen, &main.labPlayRuler,
        &main.labPlayErrNote, &main.labDeleteNote, &main.labFiles, &main.labErrors}) {
    const std::wstring text = toWide(label->caption());
    const HDC dc = GetDC(window());
    const HGDIOBJ before = SelectObject(dc, reinterpret_cast<HFONT>(send(*label, WM_GETFONT)));
    SIZE size{};
    GetTextExtentPoint32W(dc, text.c_str(), static_cast<int>(text.size()), &size);
    SelectObject(dc, before);
    ReleaseDC(window(), dc);
    const Rect room = world->bounds(*label);
    EXPECT_LE(size.cx * 11 / 10, room.width) << label->name();  // other fonts are wider
    EXPECT_LE(size.cy, room.height + 2) << label->name();
  }
}

TEST_F(PanelOnWindowsTest, AnErrorShowsTheListOfAMinimisedPanelAtItsHeight) {
  startFirst();
  controler.config().boolPopuMainFaceForErr(true);
  const std::int32_t height = main.height();
  world->click(main.cmdHideShowPL);
  ShowWindow(window(), SW_MINIMIZE);
  ASSERT_EQ(main.windowState(), ui::WindowState::minimised);
  fails();
  EXPECT_EQ(main.windowState(), ui::WindowState::normal);
  EXPECT_EQ(main.height(), height);
  EXPECT_GT(world->bounds(main.lvPlayList).height, 100);
}

TEST_F(PanelOnWindowsTest, HidingTheListOfAMaximisedPanelMakesItNormal) {
  const std::int32_t height = main.height();
  ShowWindow(window(), SW_MAXIMIZE);
  world->click(main.cmdHideShowPL);
  EXPECT_EQ(main.windowState(), ui::WindowState::normal);
  EXPECT_NEAR(main.scaleHeight(), main.picSeparator.bounds().top + 30, 15);
  world->click(main.cmdHideShowPL);
  EXPECT_EQ(main.height(), height);
}

TEST_F(PanelOnWindowsTest, WithTheListHiddenTheHeightIsFixed) {
  world->click(main.cmdHideShowPL);
  RECT at{};
  GetWindowRect(window(), &at);
  MINMAXINFO limits{};
  limits.ptMaxTrackSize = {5000, 5000};
  limits.ptMaxSize = {5000, 5000};
  SendMessageW(window(), WM_GETMINMAXINFO, 0, reinterpret_cast<LPARAM>(&limits));
  EXPECT_EQ(limits.ptMinTrackSize.y, at.bottom - at.top);
  EXPECT_EQ(limits.ptMaxTrackSize.y, at.bottom - at.top);
}

TEST_F(PanelOnWindowsTest, BringingThePanelUpLeavesTheKeyboardToTheNotice) {
  bool heard = false;
  world->answerDialogs([&](ui::Form& form) {
    controler.showMainFace();
    heard = GetActiveWindow() == windowOf(form) &&
            world->hasFocus(dynamic_cast<frmMsgBox&>(form).cmdYes);
    form.close();
  });
  notice();
  EXPECT_TRUE(heard);
  EXPECT_EQ(GetActiveWindow(), window());
}

TEST_F(PanelOnWindowsTest, AboveTheShowTheNoticeIsAboveThePanel) {
  controler.showOnMonitor(1);
  EXPECT_TRUE(isTopmost(main));
  bool above = false;
  world->answerDialogs([&](ui::Form& form) {
    above = isTopmost(form);
    form.close();
  });
  notice();
  EXPECT_TRUE(above);
  controler.leaveFullScreen();
  EXPECT_FALSE(isTopmost(main));
}

TEST_F(PanelOnWindowsTest, AFullScreenThatBeginsUnderANoticeLeavesItAbove) {
  std::string seen;
  world->answerDialogs([&](ui::Form& form) {
    controler.showOnMonitor(1);
    seen += isTopmost(form) ? "above" : "below";
    controler.leaveFullScreen();
    seen += form.topmost() ? " above" : " normal";
    form.close();
  });
  notice();
  EXPECT_EQ(seen, "above normal");
}

TEST_F(PanelOnWindowsTest, ALabelThatIsHiddenStaysSoWhenItsTextChanges) {
  world->click(main.cmdHideShowPL);
  main.showAdding(1, 1000);
  EXPECT_EQ(world->text(main.labWork), "正在添加: 1 / 1000");
  EXPECT_FALSE(world->isVisible(main.labWork));
}

TEST_F(PanelOnWindowsTest, ScreenReadersGetANameForEveryControl) {
  for (const ui::Control* control : std::initializer_list<const ui::Control*>{
           &main.sldJinDu, &main.sldVolume, &main.picJingFangYin, &main.tsLists, &main.lvPlayList,
           &main.lvPlayErrLogList}) {
    EXPECT_EQ(ui::textOf(windowOf(*control)), control->accessibleName()) << control->name();
    EXPECT_NE(GetPropW(windowOf(*control), toWide(control->name()).c_str()), nullptr);
  }
}

TEST_F(PanelOnWindowsTest, TheWheelOnTheProgressSeeksOnce) {
  startFirst();
  real().positionChange.raise(10000, 200000);
  trace.take();
  // What the system's control does with the wheel is its own affair: it moves the thumb.
  main.sldJinDu.drag(13);
  send(main.sldJinDu, WM_MOUSEWHEEL, MAKEWPARAM(0, WHEEL_DELTA));
  EXPECT_EQ(trace.take(), "wmp position 13 | real position 13000");
}

TEST_F(PanelOnWindowsTest, AMaximisedPanelIsMovedToThePointersMonitorAndStaysMaximised) {
  ShowWindow(window(), SW_MAXIMIZE);
  main.moveFace({20, 30});
  EXPECT_EQ(main.windowState(), ui::WindowState::maximised);
  WINDOWPLACEMENT placement{};
  placement.length = sizeof placement;
  GetWindowPlacement(window(), &placement);
  EXPECT_EQ(placement.rcNormalPosition.left, 20);
  EXPECT_EQ(placement.rcNormalPosition.top, 30);
}

}  // namespace
}  // namespace tessivo
