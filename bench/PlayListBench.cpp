// What the playlist costs at 1 000, 10 000 and 100 000 items. Adding, stepping and marking must
// cost the same per item at every size, loading and saving must be linear: compare the column
// "per_item".

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstdint>
#include <filesystem>
#include <memory>
#include <random>
#include <string>
#include <string_view>
#include <vector>

#include "data/PlayList.h"
#include "data/PrepareDatabase.h"

namespace tessivo {
namespace {

/// Time stands still: all items are made in the same millisecond.
class StoppedClock : public Clock {
 public:
  LocalTime now() const override { return {2026, 11, 20, 36'000'000}; }
  std::uint64_t ticksMs() const override { return 0; }
};

class SilentLog : public Log {
 public:
  void info(std::string_view) override {}
  void error(std::string_view) override {}
};

struct Fixture {
  explicit Fixture(std::int64_t count) {
    for (std::int64_t i = 0; i < count; ++i) addOne(i);
  }

  void addOne(std::int64_t number) {
    auto movie = std::make_shared<Movie>(keys);
    movie->strFileName = "film number " + std::to_string(number) + ".mp4";
    movie->strFilePath = "D:\\Media\\Hall 3\\Season 2026\\" + movie->strFileName;
    list.addAItem(movie);
  }

  std::vector<std::string> shuffledKeys() const {
    std::vector<std::string> all;
    for (std::int32_t i = 1; i <= list.lngListCount(); ++i) {
      all.push_back(list.objGetAItem(i)->strKey);
    }
    std::shuffle(all.begin(), all.end(), std::mt19937(1));
    return all;
  }

  StoppedClock clock;
  MovieKeys keys{clock};
  PlayList list{keys};
};

/// A database of its own, gone at the end.
struct Stored : Fixture {
  explicit Stored(std::int64_t count) : Fixture(count) {
    std::filesystem::remove(file);
    SilentLog log;
    prepareDatabase(file.string(), log);
    list.strPLDBFilePath(file.string());
  }
  ~Stored() { std::filesystem::remove(file); }

  std::filesystem::path file = std::filesystem::temp_directory_path() / "tessivo-bench-SysConfig";
};

void countItems(benchmark::State& state, std::int64_t items) {
  state.counters["per_item"] =
      benchmark::Counter(static_cast<double>(items), benchmark::Counter::kIsIterationInvariantRate |
                                                         benchmark::Counter::kInvert);
}

void adding(benchmark::State& state) {
  for (auto _ : state) {
    auto fixture = std::make_unique<Fixture>(state.range(0));
    benchmark::DoNotOptimize(fixture->list.lngListCount());
    state.PauseTiming();
    fixture.reset();
    state.ResumeTiming();
  }
  countItems(state, state.range(0));
}

void steppingToTheEnd(benchmark::State& state) {
  Fixture fixture(state.range(0));
  for (auto _ : state) {
    fixture.list.setPlayItemByFlag("");
    MoviePtr previous;
    std::int32_t code = 0;
    while (fixture.list.objGetNextPalyItem(false, previous, code)) {
    }
    if (code != PlayList::kEndReached) state.SkipWithError("the end was not reached");
  }
  countItems(state, state.range(0));
}

void steppingToTheStart(benchmark::State& state) {
  Fixture fixture(state.range(0));
  for (auto _ : state) {
    fixture.list.setPlayItemByFlag("");
    MoviePtr previous;
    std::int32_t code = 0;
    while (fixture.list.objGetPreviousPalyItem(false, previous, code)) {
    }
    if (code != PlayList::kStartReached) state.SkipWithError("the start was not reached");
  }
  countItems(state, state.range(0));
}

void markingByKey(benchmark::State& state) {
  Fixture fixture(state.range(0));
  const auto order = fixture.shuffledKeys();
  for (auto _ : state) {
    for (const auto& key : order) {
      fixture.list.setPlayItemByFlag(key);
      fixture.list.setActItemByFlag(key);
    }
  }
  countItems(state, state.range(0));
}

void movingDown(benchmark::State& state) {
  Fixture fixture(state.range(0));
  const auto order = fixture.shuffledKeys();
  MoviePtr neighbour;
  for (auto _ : state) {
    for (const auto& key : order) fixture.list.moveAItemUpDown(2, key, neighbour);
  }
  countItems(state, state.range(0));
}

void deletingFromTheFront(benchmark::State& state) {
  for (auto _ : state) {
    state.PauseTiming();
    auto fixture = std::make_unique<Fixture>(state.range(0));
    state.ResumeTiming();
    while (fixture->list.lngListCount() > 0) {
      fixture->list.deleteAItem(fixture->list.objGetAItem(1)->strKey);
    }
    state.PauseTiming();
    fixture.reset();
    state.ResumeTiming();
  }
  countItems(state, state.range(0));
}

void saving(benchmark::State& state) {
  Stored stored(state.range(0));
  for (auto _ : state) {
    if (!stored.list.boolSavePlayListToPLDB()) state.SkipWithError("not saved");
  }
  countItems(state, state.range(0));
}

void loading(benchmark::State& state) {
  Stored stored(state.range(0));
  stored.list.boolSavePlayListToPLDB();
  for (auto _ : state) {
    MovieKeys keys(stored.clock);
    PlayList list(keys);
    list.strPLDBFilePath(stored.file.string());
    if (!list.boolGetPlayListFromPLDB()) state.SkipWithError("not loaded");
  }
  countItems(state, state.range(0));
}

void checkingAtStart(benchmark::State& state) {
  Stored stored(state.range(0));
  stored.list.boolSavePlayListToPLDB();
  SilentLog log;
  for (auto _ : state) {
    if (prepareDatabase(stored.file.string(), log) != DatabaseState::ready) {
      state.SkipWithError("not ready");
    }
  }
  countItems(state, state.range(0));
}

void sizes(benchmark::internal::Benchmark* benchmark) {
  benchmark->RangeMultiplier(10)->Range(1'000, 100'000)->Unit(benchmark::kMillisecond);
}

BENCHMARK(adding)->Apply(sizes);
BENCHMARK(steppingToTheEnd)->Apply(sizes);
BENCHMARK(steppingToTheStart)->Apply(sizes);
BENCHMARK(markingByKey)->Apply(sizes);
BENCHMARK(movingDown)->Apply(sizes);
BENCHMARK(deletingFromTheFront)->Apply(sizes);
BENCHMARK(saving)->Apply(sizes)->UseRealTime();
BENCHMARK(loading)->Apply(sizes)->UseRealTime();
BENCHMARK(checkingAtStart)->Apply(sizes)->UseRealTime();

}  // namespace
}  // namespace tessivo

BENCHMARK_MAIN();
