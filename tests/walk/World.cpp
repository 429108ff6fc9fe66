#include "walk/World.h"

#include <algorithm>
#include <chrono>
#include <exception>

#include "screen/PlayMessages.h"

namespace tessivo::walk {
namespace {

constexpr std::size_t kLinesKept = 40;
constexpr std::int64_t kMsADay = 86'400'000;

}  // namespace

LocalTime WalkClock::now() const {
  const std::int64_t ms = offsetMs + static_cast<std::int64_t>(time.ticksMs());
  const std::chrono::sys_days day{std::chrono::days{ms / kMsADay}};
  const std::chrono::year_month_day date{day};
  return {static_cast<int>(date.year()), static_cast<int>(static_cast<unsigned>(date.month())),
          static_cast<int>(static_cast<unsigned>(date.day())), static_cast<int>(ms % kMsADay)};
}

bool WalkLog::mentions(std::string_view text) const {
  return std::ranges::any_of(
      notable_, [text](const std::string& line) { return line.find(text) != std::string::npos; });
}

void WalkLog::keep(const char* kind, std::string_view text) {
  ++count;
  lines.push_back(kind + std::string(text));
  if (lines.size() > kLinesKept) lines.pop_front();
  const bool playError = text.starts_with("play error: ");
  const bool noEngine = text.find(playMessage::kPathEmpty) != std::string_view::npos ||
                        text.find(playMessage::kFileMissing) != std::string_view::npos;
  if (playError && !noEngine) ++enginesGivenUp;
  for (const char* phrase : {"not saved", "not read", "unexpected error"}) {
    if (text.find(phrase) != std::string_view::npos) notable_.insert(std::string(text));
  }
}

World::World(std::uint64_t seed) : dice(seed) {
  displays.add({0, 0, 1280, 1024}, true);
  displays.add({1280, 0, 1920, 1080});
  accounts.local = {"Administrators"};
  files.folders["C:\\p\\SSP"] = {"时钟.exe", "图片欣赏.exe", "readme.txt"};
}

void World::guarded(const std::function<void()>& call) {
  try {
    call();
  } catch (const EngineFailure&) {
    ++thrown;
    if (!mayThrow) fail("an engine failed although it must not");
  } catch (const std::exception& e) {
    fail(std::string("an exception came out of the program: ") + e.what());
  }
}

void World::advance(std::uint64_t ms) {
  time.advance(ms);
}

void World::note(std::string what) {
  notes.push_back(std::to_string(time.ticksMs()) + " ms: " + std::move(what));
  if (notes.size() > notesKept) notes.pop_front();
}

TimerService::Id WalkTimers::start(int intervalMs, std::function<void()> onTick) {
  ++running_;
  return world_.time.start(intervalMs, [this, tick = std::move(onTick)] {
    ++world_.ticks;
    world_.guarded(tick);
  });
}

void WalkTimers::stop(Id id) {
  if (id == 0) return;
  --running_;
  world_.time.stop(id);
}

}  // namespace tessivo::walk
