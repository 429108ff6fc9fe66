#include "ui/win32/Win32Form.h"

#include "win32/ui/OpenForm.h"
// after windows.h
#include <shellapi.h>
#include <shlobj.h>

#include <atomic>
#include <cstring>
#include <thread>

namespace tessivo::ui {
namespace {

class Win32FormTest : public OpenForm {
 protected:
  /// A drop as the shell makes it.
  static WPARAM dropOf(const std::vector<std::wstring>& paths) {
    std::wstring names;
    for (const auto& path : paths) names += path + L'\0';
    names += L'\0';
    const HGLOBAL memory =
        GlobalAlloc(GMEM_MOVEABLE, sizeof(DROPFILES) + names.size() * sizeof(wchar_t));
    auto* drop = static_cast<DROPFILES*>(GlobalLock(memory));
    *drop = {sizeof(DROPFILES), {0, 0}, FALSE, TRUE};
    std::memcpy(drop + 1, names.data(), names.size() * sizeof(wchar_t));
    GlobalUnlock(memory);
    return reinterpret_cast<WPARAM>(memory);
  }
};

TEST_F(Win32FormTest, ShowingDoesNotTakeTheKeyboard) {
  TestForm other;
  toolkit.open(other);
  other.show();
  other.activate();
  ASSERT_EQ(GetActiveWindow(), windowOf(other));
  form.show();
  EXPECT_TRUE(IsWindowVisible(window()));
  EXPECT_EQ(GetActiveWindow(), windowOf(other));
}

TEST_F(Win32FormTest, ActivationIsReported) {
  form.onActivate.listen([this] { form.steps.push_back("active"); });
  form.onDeactivate.listen([this] { form.steps.push_back("inactive"); });
  TestForm other;
  toolkit.open(other);
  form.show();
  other.show();
  form.activate();
  other.activate();
  EXPECT_EQ(form.trace(), "active | inactive");
}

TEST_F(Win32FormTest, ActivationGivesTheKeyboardBackToTheControlThatHadIt) {
  TestForm other;
  toolkit.open(other);
  form.show();
  other.show();
  form.activate();
  form.cmdNo.setFocus();
  other.activate();
  form.activate();
  EXPECT_EQ(GetFocus(), windowOf(form.cmdNo));
}

TEST_F(Win32FormTest, AFormThatHadTheKeyboardWhileHiddenGivesItToItsControlWhenShown) {
  form.cmdNo.setFocus();
  SetActiveWindow(window());
  ASSERT_EQ(GetFocus(), window());
  form.show();
  EXPECT_EQ(GetFocus(), windowOf(form.cmdNo));
}

TEST_F(Win32FormTest, FocusSetOnAnInactiveFormWaitsForItsActivation) {
  TestForm other;
  toolkit.open(other);
  form.show();
  other.show();
  other.activate();
  form.txtName.setFocus();
  EXPECT_EQ(GetActiveWindow(), windowOf(other));
  form.activate();
  EXPECT_EQ(GetFocus(), windowOf(form.txtName));
}

TEST_F(Win32FormTest, TabGoesThroughTheControlsInTheirOrder) {
  form.show();
  form.activate();
  form.tsLists.setFocus();
  std::vector<std::string> order;
  for (int i = 0; i < 9; ++i) {
    const HWND focus = GetFocus();
    for (const Control* control : std::vector<Control*>{
             &form.tsLists, &form.lvRows, &form.txtName, &form.txtLink, &form.sldJinDu,
             &form.comboRule, &form.chkAll, &form.cmdOk, &form.cmdNo}) {
      if (windowOf(*control) == focus) order.push_back(control->name());
    }
    EXPECT_TRUE(pressKey(focus, VK_TAB));
  }
  EXPECT_EQ(joined(order),
            "tsLists | lvRows | txtName | txtLink | sldJinDu | comboRule | chkAll | cmdOk | cmdNo");
  EXPECT_EQ(GetFocus(), windowOf(form.tsLists));
}

TEST_F(Win32FormTest, EnterPressesTheButtonWithTheKeyboard) {
  form.cmdOk.onClick.listen([this] { form.steps.push_back("ok"); });
  EXPECT_TRUE(pressKey(windowOf(form.cmdOk), VK_RETURN));
  EXPECT_FALSE(pressKey(windowOf(form.txtName), VK_RETURN));
  EXPECT_EQ(form.trace(), "ok");
}

TEST_F(Win32FormTest, ArrowsGoFromButtonToButtonInADialog) {
  TestForm dialog;
  dialog.setOwner(&form);
  toolkit.open(dialog);
  dialog.show();
  dialog.activate();
  dialog.cmdNo.setFocus();
  for (const auto& [key, button] : {std::pair{VK_LEFT, &dialog.cmdOk},
                                    {VK_RIGHT, &dialog.cmdNo},
                                    {VK_UP, &dialog.cmdOk},
                                    {VK_DOWN, &dialog.cmdNo},
                                    {VK_DOWN, &dialog.cmdOk}}) {
    EXPECT_TRUE(pressKey(GetFocus(), static_cast<WPARAM>(key)));
    EXPECT_EQ(GetFocus(), windowOf(*button));
  }
  EXPECT_FALSE(pressKey(windowOf(dialog.txtName), VK_LEFT));
  EXPECT_FALSE(pressKey(windowOf(dialog.sldJinDu), VK_LEFT));
}

TEST_F(Win32FormTest, ArrowsAreLeftToTheControlsOfAFormThatIsNoDialog) {
  EXPECT_FALSE(pressKey(windowOf(form.cmdNo), VK_LEFT));
}

TEST_F(Win32FormTest, EnterAndEscapeCloseADroppedListBeforeTheFormHearsOfThem) {
  int keys = 0;
  form.onKey.listen([&keys](KeyPress&) { ++keys; });
  form.show();
  const HWND combo = windowOf(form.comboRule);
  SendMessageW(combo, CB_SHOWDROPDOWN, TRUE, 0);
  EXPECT_FALSE(pressKey(combo, VK_RETURN));
  EXPECT_FALSE(pressKey(combo, VK_ESCAPE));
  EXPECT_EQ(keys, 0);
  SendMessageW(combo, CB_SHOWDROPDOWN, FALSE, 0);
  pressKey(combo, VK_RETURN);
  pressKey(combo, VK_ESCAPE);
  EXPECT_EQ(keys, 2);
}

TEST_F(Win32FormTest, KeysOfOtherWindowsAreLeftAlone) {
  EXPECT_FALSE(pressKey(GetDesktopWindow(), VK_TAB));
}

TEST_F(Win32FormTest, DisabledControlHandsTheKeyboardOn) {
  form.show();
  form.activate();
  form.cmdOk.setFocus();
  ASSERT_EQ(GetFocus(), windowOf(form.cmdOk));
  form.cmdOk.setEnabled(false);
  EXPECT_EQ(GetFocus(), windowOf(form.cmdNo));
}

TEST_F(Win32FormTest, DroppedFilesAreRead) {
  std::vector<std::string> paths;
  form.onFilesDropped.listen([&](const DroppedFiles& files) {
    for (std::uint32_t i = 0; i < files.count(); ++i) paths.push_back(files.path(i));
  });
  const std::wstring longPath = L"C:\\" + std::wstring(900, L'x') + L"\\片.avi";
  SendMessageW(window(), WM_DROPFILES, dropOf({L"C:\\一.avi", longPath, L"D:\\\xD800.rm"}), 0);
  ASSERT_EQ(paths.size(), 3U);
  EXPECT_EQ(paths[0], "C:\\一.avi");
  EXPECT_EQ(paths[1], fromWide(longPath));
  EXPECT_EQ(paths[2], fromWide(L"D:\\\xD800.rm"));
}

TEST_F(Win32FormTest, FormThatAcceptsFilesSaysSo) {
  TestForm target;
  target.setAcceptsFiles(true);
  toolkit.open(target);
  const auto acceptsFiles = [](const Form& some) {
    return (GetWindowLongPtrW(windowOf(some), GWL_EXSTYLE) & WS_EX_ACCEPTFILES) != 0;
  };
  EXPECT_TRUE(acceptsFiles(target));
  EXPECT_FALSE(acceptsFiles(form));
}

TEST_F(Win32FormTest, EndOfTheSessionIsReportedOnlyWhenItReallyEnds) {
  form.onEndSession.listen([this] { form.steps.push_back("end"); });
  EXPECT_EQ(SendMessageW(window(), WM_QUERYENDSESSION, 0, 0), TRUE);
  SendMessageW(window(), WM_ENDSESSION, FALSE, 0);
  EXPECT_EQ(form.trace(), "");
  SendMessageW(window(), WM_ENDSESSION, TRUE, 0);
  EXPECT_EQ(form.trace(), "end");
}

TEST_F(Win32FormTest, SmallestSizeIsKept) {
  form.setMinimumSize(6000, 4500);
  MINMAXINFO limits{};
  SendMessageW(window(), WM_GETMINMAXINFO, 0, reinterpret_cast<LPARAM>(&limits));
  EXPECT_GE(limits.ptMinTrackSize.x, 400);
  EXPECT_GE(limits.ptMinTrackSize.y, 300);
}

TEST_F(Win32FormTest, MoveByTheUserReachesTheModel) {
  form.onResize.listen([this] { form.steps.push_back("resize"); });
  SetWindowPos(window(), nullptr, 40, 20, 640, 480, SWP_NOZORDER | SWP_NOACTIVATE);
  EXPECT_EQ(form.bounds(), (Rect{600, 300, 9600, 7200}));
  EXPECT_EQ(form.trace(), "resize");
}

TEST_F(Win32FormTest, FrameChangeAloneIsAResize) {
  form.onResize.listen([this] { form.steps.push_back("resize"); });
  const Rect at = form.windowRect();
  form.setFrameStyle(0);
  form.setWindowPos(at);
  EXPECT_EQ(form.windowRect(), at);
  EXPECT_EQ(form.trace(), "resize");
}

TEST_F(Win32FormTest, WindowStateGoesBothWays) {
  form.show();
  form.setWindowState(WindowState::maximised);
  EXPECT_TRUE(IsZoomed(window()));
  form.setWindowState(WindowState::normal);
  EXPECT_FALSE(IsZoomed(window()));
  ShowWindow(window(), SW_MINIMIZE);
  EXPECT_EQ(form.windowState(), WindowState::minimised);
  form.setWindowState(WindowState::normal);
  EXPECT_FALSE(IsIconic(window()));
}

TEST_F(Win32FormTest, MinimisedFormKeepsItsBounds) {
  form.show();
  const Rect before = form.bounds();
  form.setWindowState(WindowState::minimised);
  EXPECT_EQ(form.bounds(), before);
  form.setWindowState(WindowState::normal);
  EXPECT_EQ(form.bounds(), before);
}

TEST_F(Win32FormTest, TopmostIsSwitched) {
  const auto isTopmost = [this] {
    return (GetWindowLongPtrW(window(), GWL_EXSTYLE) & WS_EX_TOPMOST) != 0;
  };
  form.setTopmost(true);
  EXPECT_TRUE(isTopmost());
  form.setTopmost(false);
  EXPECT_FALSE(isTopmost());
}

TEST_F(Win32FormTest, OwnedFormHasItsOwnersWindowAsOwner) {
  TestForm dialog;
  dialog.setOwner(&form);
  toolkit.open(dialog);
  EXPECT_EQ(GetWindow(windowOf(dialog), GW_OWNER), window());
}

TEST_F(Win32FormTest, WindowIsThereWhileItsOwnClickIsHandledAndGoneAfterwards) {
  const HWND real = window();
  form.show();
  bool thereInside = false;
  form.cmdOk.onClick.listen([&] {
    form.unload();
    thereInside = IsWindow(real) && !IsWindowVisible(real);
  });
  send(form.cmdOk, BM_CLICK);
  EXPECT_TRUE(thereInside);
  EXPECT_FALSE(IsWindow(real));
}

TEST_F(Win32FormTest, WindowDestroyedByOthersIsForgotten) {
  DestroyWindow(window());
  EXPECT_EQ(form.nativeHandle(), 0U);
  EXPECT_EQ(form.cmdOk.nativeHandle(), 0U);
  form.setCaption("x");
  form.cmdOk.setCaption("x");
  form.repaint();
  form.unload();
}

TEST_F(Win32FormTest, ControlTakenByAnotherWindowWhilePressedIsReleased) {
  form.show();
  form.picPage.onMouseDown.listen([this](const MouseEvent&) { form.steps.push_back("down"); });
  form.picPage.onMouseUp.listen([this](const MouseEvent&) { form.steps.push_back("up"); });
  send(form.picPage, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(1, 1));
  SetCapture(window());
  ReleaseCapture();
  EXPECT_EQ(form.trace(), "down | up");
}

TEST_F(Win32FormTest, PictureFollowsThePointerOutsideWhilePressed) {
  form.show();
  send(form.picPage, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(1, 1));
  EXPECT_EQ(GetCapture(), windowOf(form.picPage));
  form.watch(form.picPage);
  send(form.picPage, WM_MOUSEMOVE, MK_LBUTTON, MAKELPARAM(-10, -20));
  send(form.picPage, WM_LBUTTONUP, 0, MAKELPARAM(-10, -20));
  EXPECT_EQ(form.trace(), "move 1 at -150,-300 | up 1 at -150,-300");
  EXPECT_EQ(GetCapture(), nullptr);
}

TEST_F(Win32FormTest, PressBesideTheThumbBringsItThereAndDragsOn) {
  auto& slider = form.sldJinDu;
  slider.onScroll.listen([&] { form.steps.push_back(std::to_string(slider.value())); });
  slider.onChange.listen([&] { form.steps.push_back("change " + std::to_string(slider.value())); });
  RECT channel{};
  send(slider, TBM_GETCHANNELRECT, 0, reinterpret_cast<LPARAM>(&channel));
  const LPARAM middle = middleOf(channel);
  const LPARAM end = MAKELPARAM(channel.right, HIWORD(middle));
  send(slider, WM_LBUTTONDOWN, MK_LBUTTON, middle);
  EXPECT_EQ(send(slider, TBM_GETPOS), 50);
  send(slider, WM_MOUSEMOVE, MK_LBUTTON, end);
  send(slider, WM_LBUTTONUP, 0, end);
  EXPECT_EQ(form.trace(), "50 | 100 | change 100");
}

TEST_F(Win32FormTest, MouseMovesOfTheFormCarryTwips) {
  form.watch(form);
  SendMessageW(window(), WM_MOUSEMOVE, 0, 515);
  EXPECT_EQ(form.trace(), "move 1 at 7725,0");
}

TEST_F(Win32FormTest, ToolTipIsGivenChangedAndTaken) {
  form.cmdOk.setToolTip("正处于顺序播放模式");
  form.cmdOk.setToolTip("放/静音");
  const HWND tips = toolTipsOfThisThread();
  ASSERT_TRUE(tips);
  wchar_t text[100] = L"";
  TTTOOLINFOW tool{};
  tool.cbSize = TTTOOLINFOW_V2_SIZE;
  tool.uFlags = TTF_IDISHWND;
  tool.hwnd = window();
  tool.uId = reinterpret_cast<UINT_PTR>(windowOf(form.cmdOk));
  tool.lpszText = text;
  SendMessageW(tips, TTM_GETTEXTW, 100, reinterpret_cast<LPARAM>(&tool));
  EXPECT_EQ(fromWide(text), "放/静音");
  EXPECT_EQ(SendMessageW(tips, TTM_GETTOOLCOUNT, 0, 0), 1);
  form.cmdOk.setToolTip("");
  EXPECT_EQ(SendMessageW(tips, TTM_GETTOOLCOUNT, 0, 0), 0);
}

TEST_F(Win32FormTest, LabelColoursReachThePaintedPixels) {
  form.labText.setColours(0x0000FF, 0xFFCC00);
  form.show();
  const HWND label = windowOf(form.labText);
  UpdateWindow(label);
  const HDC dc = GetDC(label);
  const COLORREF corner = GetPixel(dc, 158, 18);
  ReleaseDC(label, dc);
  EXPECT_EQ(corner, static_cast<COLORREF>(RGB(0xFF, 0xCC, 0x00)));
}

TEST_F(Win32FormTest, ADialogUnloadedByASentMessageIsOver) {
  TestForm dialog;
  dialog.onEndSession.listen([&dialog] { dialog.unload(); });
  std::atomic<bool> over = false;
  bool wokenInTime = true;
  std::thread system([&, thread = GetCurrentThreadId()] {
    while (!IsWindowVisible(windowOf(dialog))) Sleep(1);
    Sleep(500);  // until nothing that was posted is left, which would wake the loop as well
    DWORD_PTR answer = 0;
    SendMessageTimeoutW(windowOf(dialog), WM_ENDSESSION, TRUE, 0, SMTO_NORMAL, 5000, &answer);
    for (int i = 0; i < 3000 && !over; ++i) Sleep(1);
    wokenInTime = over;
    PostThreadMessageW(thread, WM_NULL, 0, 0);  // or the test would never end
  });
  toolkit.showModal(dialog);
  over = true;
  system.join();
  EXPECT_TRUE(wokenInTime);
}

TEST_F(Win32FormTest, ADialogWithoutAnOwnerIsInTheMiddleOfThePrimaryMonitor) {
  TestForm dialog;
  RECT at{};
  dialog.onActivate.listen([&] {
    GetWindowRect(windowOf(dialog), &at);
    PostMessageW(windowOf(dialog), WM_CLOSE, 0, 0);
  });
  dialog.onClose.listen([&dialog] { dialog.unload(); });
  toolkit.showModal(dialog);
  RECT work{};
  SystemParametersInfoW(SPI_GETWORKAREA, 0, &work, 0);
  EXPECT_NEAR(at.left + at.right, work.left + work.right, 2);
  EXPECT_NEAR(at.top + at.bottom, work.top + work.bottom, 2);
}

TEST_F(Win32FormTest, WhatIsSpokenOfAButtonIsNotShown) {
  TestForm other;
  other.cmdOk.setAccessibleName("播放器: 确定");
  toolkit.open(other);
  EXPECT_EQ(textOf(windowOf(other.cmdOk)), "确定");
}

TEST_F(Win32FormTest, AnOwnerMadeActiveFromOutsideHandsTheKeyboardToItsDialog) {
  form.setVisible(false);
  TestForm dialog;
  dialog.setOwner(&form);
  toolkit.open(dialog);
  dialog.show();
  form.setEnabled(false);
  SetForegroundWindow(window());
  ASSERT_EQ(GetActiveWindow(), window());
  form.activate();
  EXPECT_EQ(GetActiveWindow(), windowOf(dialog));
}

}  // namespace
}  // namespace tessivo::ui
