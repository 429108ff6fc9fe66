// A control that shows a dialog inside a call: the guards close it, and the call returns.
#include <memory>
#include <string>

#include "platform/win32/Win32DesktopWindows.h"
#include "platform/win32/Win32ShownWindows.h"
#include "platform/win32/Win32TimerService.h"
#include "platform/win32/Win32WindowProcedures.h"
#include "screen/EngineGuards.h"
#include "win32/engines/TestControlStage.h"

namespace tessivo {
namespace {

constexpr wchar_t kTitle[] = L"A codec is missing";

/// So that a dialog nobody closes is a failure and not the end of all tests.
void CALLBACK closeAtLast(HWND, UINT, UINT_PTR, DWORD) {
  PostMessageW(FindWindowW(nullptr, kTitle), WM_CLOSE, 0, 0);
}

void showDialog() {
  const UINT_PTR atLast = SetTimer(nullptr, 0, 10000, &closeAtLast);
  MessageBoxW(nullptr, L"Shall one be looked for?", kTitle, MB_OK);
  KillTimer(nullptr, atLast);
}

class PopupInsideACall : public TestControlStage {
 protected:
  void SetUp() override {
    TestControlStage::SetUp();
    shownWindows.watch([this](const ShownWindow& shown) { guards.noteShown(shown); });
    guards.open(reinterpret_cast<WindowHandle>(stage));
  }
  void TearDown() override {
    player.reset();
    guards.close();
    shownWindows.stop();
  }

  void makePlayer() { player = std::make_unique<RealPlayerControl>(stage, log); }
  void showDialogInside(DISPID which) {
    popsUpIn = which;
    control->during(
        [](void* self, DISPID member) {
          if (member == static_cast<PopupInsideACall*>(self)->popsUpIn) showDialog();
        },
        this);
  }
  void expectClosedByTheGuards() const {
    EXPECT_EQ(log.lines, std::vector<std::string>{
                             "info closing a window that an engine has popped up: A codec is "
                             "missing"});
    EXPECT_EQ(FindWindowW(nullptr, kTitle), nullptr);
  }

  const Win32DesktopWindows windows;
  Win32WindowProcedures procedures{log};
  Win32TimerService timers{log};
  Win32ShownWindows shownWindows{log};
  CaughtWindows caught{windows, procedures};
  EngineGuards guards{timers, windows, caught, log};
  std::unique_ptr<RealPlayerControl> player;
  DISPID popsUpIn = 0;
};

TEST_F(PopupInsideACall, OfThePlayIsClosedAndTheItemGoesOn) {
  makePlayer();
  bool failed = false;
  player->errorMessage.listen([&failed] { failed = true; });
  showDialogInside(257);
  player->play();
  expectClosedByTheGuards();
  serve();
  EXPECT_FALSE(failed);
}

TEST_F(PopupInsideACall, OfTheStopIsClosed) {
  makePlayer();
  showDialogInside(202);
  player->stop();
  expectClosedByTheGuards();
}

TEST_F(PopupInsideACall, OfTheStopAtTheEndIsClosed) {
  makePlayer();
  control->answer(260, 1);
  showDialogInside(202);
  player.reset();
  expectClosedByTheGuards();
}

TEST_F(PopupInsideACall, OfTheActivationIsClosedAndTheControlIsThere) {
  control->duringActivation([](void*) { showDialog(); }, nullptr);
  makePlayer();
  expectClosedByTheGuards();
  EXPECT_TRUE(player->created());
}

}  // namespace
}  // namespace tessivo
