// What the control panel's work on a long list costs in the controller, without the panel's own
// rows and without real engines. Time is counted as the user-interface thread has it: a batch is
// its slices one after another, and "slice_ms" is the longest time for which it blocked the thread.

#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "app/Controler.h"
#include "fakes/FakeAccounts.h"
#include "fakes/FakeDisplays.h"
#include "fakes/FakeEngines.h"
#include "fakes/FakeLeaveWatch.h"
#include "fakes/FakeLog.h"
#include "fakes/FakePanel.h"
#include "fakes/FakeSaverSystem.h"
#include "fakes/FakeSystem.h"
#include "fakes/FakeThreadTimers.h"
#include "fakes/FakeTray.h"
#include "fakes/FakeWindowHooks.h"
#include "fakes/NoToolkit.h"

namespace tessivo {
namespace {

using Milliseconds = std::chrono::duration<double, std::milli>;

class RealClock : public Clock {
 public:
  LocalTime now() const override { return {2026, 11, 20, 36'000'000}; }
  std::uint64_t ticksMs() const override {
    const auto ticks = std::chrono::steady_clock::now().time_since_epoch();
    return static_cast<std::uint64_t>(
        std::chrono::duration_cast<std::chrono::milliseconds>(ticks).count());
  }
};

struct AnyFile : Files {
  bool fileExists(const std::string&) const override { return true; }
  std::optional<std::vector<std::string>> filesIn(const std::string&) const override {
    return std::nullopt;
  }
};

/// Rows cost nothing.
struct PanelWithoutRows : FakePanel {
  using FakePanel::FakePanel;
  void AddAMovieToFaceList(const Movie&) override {}
};

struct World {
  World() {
    displays.add({0, 0, 1920, 1080}, true);
    screen.load();
    controler.setReferences(tray, panel, screen, playList);
  }
  ~World() { screen.unloadScreen(); }

  static std::vector<std::string> paths(std::int64_t count) {
    std::vector<std::string> all{""};
    for (std::int64_t i = 1; i <= count; ++i) {
      all.push_back("D:\\Media\\Hall 3\\Season 2026\\film number " + std::to_string(i) + ".mp4");
    }
    return all;
  }
  void fill(std::int64_t count) {
    controler.BatchAddMovie(paths(count), false);
    while (playList.lngListCount() < count) timers.advance(1);
  }
  std::string key(std::int32_t index) const { return playList.objGetAItem(index)->strKey; }

  Trace trace;
  RealClock clock;
  VirtualTime timers;
  AnyFile files;
  FakeLog log;
  FakeDisplays displays;
  NoToolkit toolkit;
  FakeEngineFactory engines{trace};
  FakeDesktopWindows windows;
  FakeWindowProcedures procedures;
  CaughtWindows caughtWindows{windows, procedures};
  FakePointer pointer;
  FakeMessageLoop loop{trace};
  FakeLeaveWatch leaveWatch;
  FakeShownWindows shownWindows;
  FakeThreadTimers threadTimers{timers};
  MTimer registry{threadTimers};
  MovieKeys keys{clock};
  PlayList playList{keys};
  PanelWithoutRows panel{trace};
  FakeTray tray{trace};
  VirtualTime still;
  FakeIdleInput idleInput{still};
  FakeSystemPower power{trace};
  FakeProcesses processes;
  FakeProcessToken token;
  Controler controler{{keys, files, displays, pointer, loop, leaveWatch, log, clock, windows,
                       registry, shownWindows, caughtWindows, timers, idleInput, power, processes,
                       token, "C:\\p"}};
  frmScreen screen{{toolkit, timers, displays, files, log, engines, windows, caughtWindows}};
};

void countItems(benchmark::State& state) {
  state.counters["per_item"] = benchmark::Counter(
      static_cast<double>(state.range(0)),
      benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}

void addingABatch(benchmark::State& state) {
  double longest = 0;
  const auto timed = [&longest](const auto& slice) {
    const auto start = std::chrono::steady_clock::now();
    slice();
    const Milliseconds took = std::chrono::steady_clock::now() - start;
    longest = std::max(longest, took.count());
  };
  for (auto _ : state) {
    state.PauseTiming();
    auto world = std::make_unique<World>();
    auto paths = World::paths(state.range(0));
    state.ResumeTiming();
    timed([&] { world->controler.BatchAddMovie(std::move(paths), true); });
    while (world->screen.lngState() == playState::kStopped) {
      timed([&] { world->timers.advance(1); });
    }
    state.PauseTiming();
    if (world->playList.lngListCount() != state.range(0)) state.SkipWithError("items are missing");
    world.reset();
    state.ResumeTiming();
  }
  state.counters["slice_ms"] = longest;
  countItems(state);
}

/// The play item each time, so that every deletion hands the playback window another path.
void deletingOneByOne(benchmark::State& state) {
  for (auto _ : state) {
    state.PauseTiming();
    auto world = std::make_unique<World>();
    world->fill(state.range(0));
    state.ResumeTiming();
    MoviePtr next = world->playList.objGetAItem(1);
    while (next) world->controler.deleteAItemFromPL(next->strKey, next);
    state.PauseTiming();
    if (world->playList.lngListCount() != 0) state.SkipWithError("items are left");
    world.reset();
    state.ResumeTiming();
  }
  countItems(state);
}

void clearing(benchmark::State& state) {
  for (auto _ : state) {
    state.PauseTiming();
    auto world = std::make_unique<World>();
    world->fill(state.range(0));
    state.ResumeTiming();
    world->controler.deleteAllItemFromPL();
    state.PauseTiming();
    world.reset();
    state.ResumeTiming();
  }
  countItems(state);
}

/// The first item down to the end of the list, as with the button held down.
void movingThroughTheList(benchmark::State& state) {
  World world;
  world.fill(state.range(0));
  MoviePtr neighbour;
  for (auto _ : state) {
    const std::string key = world.key(1);
    while (world.controler.moveAItemUpDown(2, key, neighbour)) {
    }
  }
  countItems(state);
}

void sizes(benchmark::internal::Benchmark* benchmark) {
  benchmark->RangeMultiplier(10)->Range(1'000, 100'000)->Unit(benchmark::kMillisecond);
}

BENCHMARK(addingABatch)->Apply(sizes)->UseRealTime();
BENCHMARK(deletingOneByOne)->Apply(sizes);
BENCHMARK(clearing)->Apply(sizes);
BENCHMARK(movingThroughTheList)->Apply(sizes);

}  // namespace
}  // namespace tessivo

BENCHMARK_MAIN();
