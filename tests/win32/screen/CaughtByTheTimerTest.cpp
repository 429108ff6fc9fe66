// The playback window with a control in its RealPlayer slot: nobody touches the mouse, and the
// picture is caught all the same.
#include <memory>
#include <string>
#include <vector>

#include "screen/PlayRule.h"
#include "win32/engines/TestControlStage.h"
#include "win32/screen/PlaybackWindow.h"

namespace tessivo {
namespace {

class CaughtByTheTimer : public TestControlStage {
 protected:
  void SetUp() override {
    TestControlStage::SetUp();
    if (HasFatalFailure()) return;
    window = std::make_unique<PlaybackWindow>(
        EngineChoices{EngineChoice::embedded, EngineChoice::control});
    window->screen.lngPlayRuler(playRule::kRealOnly);
  }
  void TearDown() override { window.reset(); }

  bool isCaught() const {
    return window->caughtWindows.handles() ==
           std::vector<std::string>{
               std::to_string(reinterpret_cast<WindowHandle>(control->picture()))};
  }

  std::unique_ptr<PlaybackWindow> window;
};

TEST_F(CaughtByTheTimer, OnceTheWindowIsShown) {
  ASSERT_TRUE(IsWindowVisible(control->picture()));
  ASSERT_FALSE(isCaught());
  EXPECT_TRUE(waitFor([this] { return isCaught(); }, 5000));
}

TEST_F(CaughtByTheTimer, AlsoWithTheTimePanelInFrontOfThePicture) {
  ASSERT_TRUE(waitFor([this] { return !window->screen.timSetTimShowBackZOrder.enabled(); }, 5000));
  control->destroyPicture();
  control->makePicture();
  window->screen.picTimShowBack.bringToFront();
  EXPECT_TRUE(waitFor([this] { return isCaught(); }, 5000));
}

TEST_F(CaughtByTheTimer, AlsoInFullScreen) {
  window->screen.boolMaxSize(true);
  EXPECT_TRUE(waitFor([this] { return isCaught(); }, 5000));
}

}  // namespace
}  // namespace tessivo
