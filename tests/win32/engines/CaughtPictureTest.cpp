// The picture window of a control in the RealPlayer slot, caught for real.
#include "platform/win32/Win32DesktopWindows.h"
#include "platform/win32/Win32ShownWindows.h"
#include "platform/win32/Win32TimerService.h"
#include "platform/win32/Win32WindowProcedures.h"
#include "screen/EngineGuards.h"
#include "screen/engines/windows_media_player/WindowsMediaPlayerControl.h"
#include "win32/engines/TestControlStage.h"

namespace tessivo {
namespace {

constexpr CLSID kNoSuchControl = {
    0x7e551700, 0x0000, 0x4000, {0x80, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x01}};

class CaughtPictureTest : public TestControlStage {
 protected:
  void SetUp() override {
    TestControlStage::SetUp();
    real = std::make_unique<RealPlayerControl>(stage, log);
    real->move({0, 0, 400, 300});
    real->setVisible(true);
    wmp = std::make_unique<WindowsMediaPlayerControl>(stage, log, kNoSuchControl);
    SetWindowPos(stage, HWND_TOPMOST, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
    guards.open(reinterpret_cast<WindowHandle>(stage));
    guards.attach(*wmp, *real);
    caught.pictureMouse.listen([this](PictureMouse what) { mouse.push_back(what); });
    real->mousePoint.listen([this](Point point) { points.push_back(point); });
  }
  void TearDown() override {
    guards.detach();
    wmp.reset();
    real.reset();
    guards.close();
  }

  void send(UINT message) const {
    SendMessageW(control->picture(), message, 0, MAKELPARAM(50, 60));
  }
  bool isCaught() const {
    return caught.handles() == std::vector<std::string>{std::to_string(
                                   reinterpret_cast<WindowHandle>(control->picture()))};
  }
  bool catchByTimer() {
    guards.timRealPlayerNewWinCheck.setEnabled(true);
    return waitFor([this] { return isCaught(); }, 5000);
  }

  const Win32DesktopWindows windows;
  Win32WindowProcedures procedures{log};
  Win32TimerService timers{log};
  Win32ShownWindows shownWindows{log};
  CaughtWindows caught{windows, procedures};
  EngineGuards guards{timers, windows, caught, log};
  std::unique_ptr<RealPlayerControl> real;
  std::unique_ptr<WindowsMediaPlayerControl> wmp;
  std::vector<PictureMouse> mouse;
  std::vector<Point> points;
};

TEST_F(CaughtPictureTest, TheTimerFindsThePicture) {
  EXPECT_TRUE(catchByTimer());
}

TEST_F(CaughtPictureTest, AMouseNotificationFindsIt) {
  send(WM_MOUSEMOVE);
  EXPECT_FALSE(isCaught()) << "not from inside the notification";
  EXPECT_TRUE(waitFor([this] { return isCaught(); }, 5000));
}

TEST_F(CaughtPictureTest, ItsMouseBelongsToTheProgram) {
  ASSERT_TRUE(catchByTimer());
  send(WM_LBUTTONDOWN);
  send(WM_MOUSEMOVE);
  send(WM_LBUTTONUP);
  send(WM_LBUTTONDBLCLK);
  send(WM_RBUTTONDOWN);
  send(WM_RBUTTONUP);
  serve();
  EXPECT_EQ(mouse, (std::vector<PictureMouse>{PictureMouse::leftUp, PictureMouse::leftDoubleClick,
                                              PictureMouse::rightUp}));
  EXPECT_TRUE(points.empty()) << "the control has seen the mouse";
}

TEST_F(CaughtPictureTest, APictureThatIsMadeAnewIsCaughtAnew) {
  ASSERT_TRUE(catchByTimer());
  control->destroyPicture();
  EXPECT_TRUE(caught.handles().empty());
  control->makePicture();
  EXPECT_TRUE(waitFor([this] { return isCaught(); }, 5000));
  send(WM_LBUTTONUP);
  EXPECT_EQ(mouse.size(), 1U);
}

TEST_F(CaughtPictureTest, AtTheEndTheControlHasItsMouseBack) {
  ASSERT_TRUE(catchByTimer());
  caught.giveBackAll();
  send(WM_MOUSEMOVE);
  send(WM_LBUTTONUP);
  EXPECT_TRUE(waitFor([this] { return !points.empty(); }, 5000));
  EXPECT_EQ(points[0], (Point{50, 60}));
  EXPECT_TRUE(mouse.empty());
  waitFor([] { return false; }, 1500);  // the timer still looks
  EXPECT_TRUE(caught.handles().empty());
}

TEST_F(CaughtPictureTest, TheControlsOwnWindowIsNotCaught) {
  caught.catchWindow(reinterpret_cast<WindowHandle>(control->window()));
  EXPECT_TRUE(caught.handles().empty());
}

TEST_F(CaughtPictureTest, AControlThatGoesTakesItsWindowWithIt) {
  ASSERT_TRUE(catchByTimer());
  guards.detach();
  real.reset();
  EXPECT_TRUE(caught.handles().empty());
  caught.giveBackAll();
}

TEST_F(CaughtPictureTest, AMessageBoxThatAnEnginePopsUpIsClosed) {
  shownWindows.watch([this](const ShownWindow& shown) { guards.noteShown(shown); });
  const ULONGLONG start = GetTickCount64();
  MessageBoxW(nullptr, L"A codec is missing.", L"Engine", MB_OK);
  EXPECT_LT(GetTickCount64() - start, 10000U);
  MessageBoxW(stage, L"A codec is missing.", L"Engine", MB_OK);
  shownWindows.stop();
  EXPECT_EQ(log.lines.back(), "info closing a window that an engine has popped up: Engine");
}

}  // namespace
}  // namespace tessivo
