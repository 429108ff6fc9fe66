// One item after the other in the real playback window, hundreds of them: nothing is left behind.
// run-item-changes.sh provides the desktop and the media.
#include <algorithm>
#include <array>
#include <iostream>
#include <memory>
#include <string>
#include <vector>

#include "win32/Settle.h"
#include "win32/engines/Media.h"
#include "win32/engines/TestControlStage.h"
#include "win32/screen/PlaybackWindow.h"

namespace tessivo {
namespace {

constexpr int kPreferReal = playRule::kPreferReal;
constexpr int kPreferMedia = playRule::kPreferMedia;
constexpr int kRealOnly = playRule::kRealOnly;
constexpr int kMediaOnly = playRule::kMediaOnly;

/// How far an item gets before the next one comes.
enum class Until { pending, opening, playing, paused, stopped, failed, ended };

struct ItemChange {
  std::int32_t rule;
  const char* file;
  Until until;
};

/// Played over and over. The first ten have everything in them that the system sets up once.
constexpr std::array kChanges = {
    ItemChange{kPreferMedia, "film.avi", Until::playing},
    ItemChange{kRealOnly, "film.avi", Until::playing},
    ItemChange{kPreferMedia, "tone.wav", Until::stopped},
    ItemChange{kRealOnly, "tone.wav", Until::stopped},
    ItemChange{kPreferMedia, "random.avi", Until::failed},
    ItemChange{kPreferReal, "film.mp4", Until::opening},
    ItemChange{kMediaOnly, "film.mp4", Until::playing},
    ItemChange{kRealOnly, "film.mp4", Until::paused},
    ItemChange{kPreferMedia, "blink.avi", Until::ended},
    ItemChange{kRealOnly, "film.avi", Until::opening},
    // The path alone changes where the rule stays.
    ItemChange{kRealOnly, "film.avi", Until::pending},
    ItemChange{kPreferMedia, "film.avi", Until::pending},
    ItemChange{kPreferMedia, "film.mp4", Until::opening},
    ItemChange{kRealOnly, "film.mp4", Until::playing},
    ItemChange{kRealOnly, "film.avi", Until::opening},
    ItemChange{kPreferMedia, "film.avi", Until::paused},
    ItemChange{kPreferMedia, "film.avi", Until::playing},
    ItemChange{kPreferReal, "random.avi", Until::failed},
    ItemChange{kRealOnly, "tone.wav", Until::opening},
    ItemChange{kPreferMedia, "tone.wav", Until::pending},
    ItemChange{kRealOnly, "film.mp4", Until::pending},
    ItemChange{kPreferMedia, "film.mp4", Until::opening},
    ItemChange{kRealOnly, "blink.avi", Until::ended},
    ItemChange{kMediaOnly, "film.avi", Until::opening},
    ItemChange{kPreferReal, "film.avi", Until::opening},
};
constexpr DWORD kOpeningMs = 40;
/// What may come and go by itself, however many items there were.
constexpr int kSlack = 3;
/// Device contexts are kept for the next user; how many depends on how many were in use at once.
constexpr int kDrawingSlack = 10;
constexpr int kFullScreenAt = 6;
constexpr int kNormalAt = 14;

void settleAndCount(ResourceCounts& counts) {
  ASSERT_TRUE(settle());
  counts = ResourceCounts();
  std::cout << counts << std::endl;
}

void expectNoMoreThan(const ResourceCounts& before, const ResourceCounts& after) {
  EXPECT_EQ(after.windows, before.windows);
  EXPECT_EQ(after.user, before.user);
  EXPECT_LE(after.drawing, before.drawing + kDrawingSlack);
  EXPECT_LE(after.otherHandles, before.otherHandles + kSlack);
  EXPECT_LE(after.threads, before.threads + kSlack);
}

const std::vector<std::string> kAlwaysRunning = {"timMediaPlayJinDu", "timRealPlayerNewWinCheck",
                                                 "timFrmPosiReport"};

class EmbeddedItemChangesOnDesktop : public testing::Test {
 protected:
  void SetUp() override {
    ASSERT_FALSE(mediaFolder().empty()) << "TESSIVO_TEST_MEDIA is not set";
    static const HRESULT com = CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
    ASSERT_TRUE(SUCCEEDED(com));
    window = std::make_unique<PlaybackWindow>(
        EngineChoices{EngineChoice::embedded, EngineChoice::embedded});
  }

  void change(int index) {
    const std::size_t step = static_cast<std::size_t>(index) % kChanges.size();
    const ItemChange& next = kChanges.at(step);
    frmScreen& screen = window->screen;
    if (step == kFullScreenAt) screen.boolMaxSize(true);
    if (step == kNormalAt) screen.boolMaxSize(false);
    if (screen.lngPlayRuler() != next.rule) screen.lngPlayRuler(next.rule);
    screen.strFilePath(media(next.file));
    ASSERT_TRUE(screen.play());
    ASSERT_TRUE(reaches(next.until)) << next.file << " with the rule " << next.rule;
  }

  bool reaches(Until until) {
    frmScreen& screen = window->screen;
    const int failures = window->failures;
    const int ends = window->ends;
    const auto plays = [&] { return screen.lngState() == playState::kPlaying; };
    switch (until) {
      case Until::pending:
        return true;
      case Until::opening:
        watch(kOpeningMs);
        return true;
      case Until::playing:
        return waitFor(plays);
      case Until::paused:
        if (!waitFor(plays)) return false;
        screen.pause();
        return screen.lngState() == playState::kPaused;
      case Until::stopped:
        if (!waitFor(plays)) return false;
        screen.stopPlay();
        return screen.lngState() == playState::kStopped;
      case Until::failed:
        return waitFor([&] { return window->failures > failures; });
      case Until::ended:
        return waitFor([&] { return window->ends > ends; });
    }
    return false;
  }

  void changes(int from, int to) {
    for (int i = from; i < to; ++i) {
      ASSERT_NO_FATAL_FAILURE(change(i)) << "change " << i;
    }
  }

  /// Stops and waits until every attempt has let go.
  void rest() {
    frmScreen& screen = window->screen;
    ASSERT_TRUE(waitFor([&] { return screen.lngState() != playState::kStarting; }));
    screen.stopPlay();
    screen.boolMaxSize(false);
    ASSERT_TRUE(waitFor([&] { return pictureWindows(window->handle()) == 0; }));
  }
  void changesAndCount(int from, int to, ResourceCounts& counts) {
    ASSERT_NO_FATAL_FAILURE(changes(from, to));
    ASSERT_NO_FATAL_FAILURE(rest());
    settleAndCount(counts);
  }
  void expectQuietTimers() {
    EXPECT_TRUE(waitFor([&] { return window->runningTimers() == kAlwaysRunning; }))
        << testing::PrintToString(window->runningTimers());
    EXPECT_EQ(window->timers.running(), kAlwaysRunning.size());
    for (HWND engine = nullptr;
         (engine = FindWindowExW(window->handle(), engine, L"TessivoEngineWindow", nullptr));) {
      EXPECT_FALSE(KillTimer(engine, 1)) << "an engine's own timer was still running";
    }
  }

  std::unique_ptr<PlaybackWindow> window;
};

TEST_F(EmbeddedItemChangesOnDesktop, FiveHundredLeaveNothingBehind) {
  ResourceCounts first;
  ResourceCounts half;
  ResourceCounts all;
  ASSERT_NO_FATAL_FAILURE(changesAndCount(0, 10, first));
  ASSERT_NO_FATAL_FAILURE(changesAndCount(10, 250, half));
  ASSERT_NO_FATAL_FAILURE(changesAndCount(250, 500, all));
  expectNoMoreThan(first, half);
  expectNoMoreThan(half, all);
  expectQuietTimers();
}

/// Wine loses one with each graph of DirectShow, and more with the sound of Media Foundation: so it
/// is seen without sound whether we lose any of ours, of which each item has one or two.
TEST_F(EmbeddedItemChangesOnDesktop, FiftyWithoutSoundLeaveNoEventOfOursBehind) {
  const auto play = [this](int count) {
    constexpr std::array kUntil = {Until::playing, Until::opening, Until::paused, Until::pending,
                                   Until::opening};
    for (int i = 0; i < count; ++i) {
      window->screen.lngPlayRuler(i % 2 == 0 ? kRealOnly : kMediaOnly);
      window->screen.strFilePath(media("silent.avi"));
      ASSERT_TRUE(window->screen.play());
      ASSERT_TRUE(reaches(kUntil.at(static_cast<std::size_t>(i) % kUntil.size()))) << i;
    }
    ASSERT_NO_FATAL_FAILURE(rest());
  };
  ResourceCounts first;
  ResourceCounts all;
  ASSERT_NO_FATAL_FAILURE(play(10));
  ASSERT_NO_FATAL_FAILURE(settleAndCount(first));
  ASSERT_NO_FATAL_FAILURE(play(50));
  ASSERT_NO_FATAL_FAILURE(settleAndCount(all));
  expectNoMoreThan(first, all);
  EXPECT_LE(all.events, first.events + 25 + kSlack);
}

/// The RealPlayer slot's control is the test control, that of the Media Player slot the installed
/// one. Sound alone: Wine's control hangs on films.
class ControlItemChangesOnDesktop : public TestControlStage {
 protected:
  void SetUp() override {
    ASSERT_FALSE(mediaFolder().empty()) << "TESSIVO_TEST_MEDIA is not set";
    TestControlStage::SetUp();
    control->startWithoutPicture(true);
    window = std::make_unique<PlaybackWindow>(
        EngineChoices{EngineChoice::control, EngineChoice::control});
    ASSERT_EQ(control->instances(), 1);
  }
  void TearDown() override { window.reset(); }

  void change(int index) {
    const bool real = index % 2 == 0;
    frmScreen& screen = window->screen;
    screen.lngPlayRuler(real ? kRealOnly : kPreferMedia);
    screen.strFilePath(media("tone.wav"));
    ASSERT_TRUE(screen.play());
    ASSERT_NO_FATAL_FAILURE(real ? playInRealPlayer() : playInMediaPlayer(index % 8 == 1));
  }
  /// The control makes a picture window for the item, which is caught and goes with the item.
  void playInRealPlayer() {
    ASSERT_TRUE(waitFor([&] { return control->recorded() > 0 && told("257 call"); }));
    control->makePicture();
    control->sendPlayState(1, 3);
    ASSERT_TRUE(waitFor([&] { return window->screen.lngState() == playState::kPlaying; }));
    control->sendMouseMove(30, 30);
    ASSERT_TRUE(waitFor([&] { return window->caughtWindows.handles().size() == 1; }));
    control->destroyPicture();
    ASSERT_TRUE(window->caughtWindows.handles().empty());
  }
  void playInMediaPlayer(bool wait) {
    if (wait) {
      ASSERT_TRUE(waitFor([&] { return window->screen.lngState() == playState::kPlaying; }));
    } else {
      watch(kOpeningMs);
    }
  }
  bool told(const std::string& what) {
    const auto lines = takeRecord();
    return std::find(lines.begin(), lines.end(), what) != lines.end();
  }
  void changesAndCount(int from, int to, ResourceCounts& counts) {
    for (int i = from; i < to; ++i) ASSERT_NO_FATAL_FAILURE(change(i)) << "change " << i;
    frmScreen& screen = window->screen;
    ASSERT_TRUE(waitFor([&] { return screen.lngState() != playState::kStarting; }));
    screen.stopPlay();
    settleAndCount(counts);
  }

  std::unique_ptr<PlaybackWindow> window;
};

TEST_F(ControlItemChangesOnDesktop, AHundredLeaveNothingBehind) {
  ResourceCounts first;
  ResourceCounts half;
  ResourceCounts all;
  ASSERT_NO_FATAL_FAILURE(changesAndCount(0, 10, first));
  ASSERT_NO_FATAL_FAILURE(changesAndCount(10, 50, half));
  ASSERT_NO_FATAL_FAILURE(changesAndCount(50, 100, all));
  expectNoMoreThan(first, half);
  expectNoMoreThan(half, all);
  // One with each of the 25 items that the control of Wine has played.
  EXPECT_LE(all.events, half.events + 25 + kSlack);
  EXPECT_TRUE(waitFor([&] { return window->runningTimers() == kAlwaysRunning; }))
      << testing::PrintToString(window->runningTimers());
  EXPECT_EQ(window->timers.running(), kAlwaysRunning.size());
}

}  // namespace
}  // namespace tessivo
