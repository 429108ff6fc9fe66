#pragma once

#include <gtest/gtest.h>

#include "fakes/FakeDisplays.h"
#include "fakes/FakeEngines.h"
#include "fakes/FakeLog.h"
#include "fakes/FakeSystem.h"
#include "fakes/FakeWindowHooks.h"
#include "fakes/NoToolkit.h"
#include "fakes/Trace.h"
#include "fakes/VirtualTime.h"
#include "screen/frmScreen.h"

namespace tessivo {

inline Rect inTwips(const Rect& pixels) {
  return {pixels.left * 15, pixels.top * 15, pixels.width * 15, pixels.height * 15};
}

/// A loaded playback window on two monitors, with engines that do as they are told. Its events are
/// in the trace beside the engines' calls.
class ScreenFixture : public testing::Test {
 protected:
  explicit ScreenFixture(TwipsPerPixel twips = {}) : displays(twoMonitors(twips)) {
    files.existing = {"C:\\a.avi", "C:\\b.avi"};
  }

  void SetUp() override {
    screen.JinDu.listen([this](int percent, int position, const std::string& positionText,
                               int length, const std::string& lengthText) {
      trace.add("JinDu " + std::to_string(percent) + "% " + std::to_string(position) + "=" +
                positionText + " of " + std::to_string(length) + "=" + lengthText);
    });
    screen.PlayErr.listen([this](const std::string& reason) { trace.add("PlayErr " + reason); });
    screen.PlayOver.listen([this] { trace.add("PlayOver"); });
    screen.DbClickPlayer.listen(
        [this](bool full) { trace.add(full ? "DbClickPlayer full" : "DbClickPlayer normal"); });
    screen.ClickPlayer.listen([this] { trace.add("ClickPlayer"); });
    screen.clickPopuMenu.listen(
        [this](int code) { trace.add("clickPopuMenu " + std::to_string(code)); });
    screen.load();
    trace.take();
  }

  static FakeDisplays twoMonitors(TwipsPerPixel twips) {
    FakeDisplays two;
    two.add({0, 0, 1280, 1024}, true);
    two.add({1280, 0, 1920, 1080});
    two.twips = twips;
    return two;
  }

  FakeMediaPlayer& wmp() { return *engines.wmp; }
  FakeRealPlayer& real() { return *engines.real; }

  /// The engine of the rule plays a.avi.
  void startPlaying(std::int32_t rule) {
    screen.lngPlayRuler(rule);
    screen.strFilePath("C:\\a.avi");
    ASSERT_TRUE(screen.play());
    time.advance(1);
    if (screen.playback().mediaPlayerIsCurrent()) {
      wmp().notify(MediaPlayState::playing);
    } else {
      real().notify(RealPlayState::playing);
    }
    trace.take();
  }

  Trace trace;
  VirtualTime time;
  FakeFiles files;
  FakeLog log;
  FakeDisplays displays;
  NoToolkit toolkit;
  FakeEngineFactory engines{trace};
  FakeDesktopWindows windows;
  FakeWindowProcedures procedures;
  CaughtWindows caughtWindows{windows, procedures};
  frmScreen screen{{toolkit, time, displays, files, log, engines, windows, caughtWindows}};
};

}  // namespace tessivo
