// The whole player in one process, worked at random through its panel for as many item changes as
// wanted. What the process holds of the system's is counted, with everything stopped, after the
// first ones and at the end. run-soak.sh provides monitors, sound and media.
//
//   soak.exe MEDIA_FOLDER CHANGES SEED
//
// Prints a line for each count and PASS or FAIL for what must hold.
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iostream>
#include <random>
#include <string>
#include <vector>

#include "Player.h"
#include "data/MoveIn.h"
#include "platform/win32/ProcessSetUp.h"
#include "platform/win32/WindowsText.h"
#include "soak/OwnMemory.h"
#include "win32/Settle.h"
// After windows.h, which it needs:
#include <psapi.h>

namespace tessivo {
namespace {

/// Once these have been played, all has been set up that the system sets up once.
constexpr int kFirstChanges = 100;
constexpr int kFewChanges = 30;  ///< where all of them are few
constexpr std::size_t kRows = 8;
constexpr std::size_t kMostRows = 14;
constexpr ui::KeyCode kEnter = 13;
/// What may come and go by itself.
constexpr int kSlack = 3;
constexpr int kDrawingSlack = 10;
constexpr std::size_t kOwnMemorySlack = std::size_t{512} * 1024;
constexpr std::size_t kMemorySlackMb = 25;
/// What Wine loses with an item, on the average of these files and engines, at most (see
/// docs/reliability.md).
constexpr double kMemoryLostMb = 1.5;
/// Longer than the playback window waits for an engine that does not answer.
constexpr DWORD kLongestRestMs = 90000;

std::size_t memoryInUse() {
  PROCESS_MEMORY_COUNTERS counters{};
  counters.cb = sizeof counters;
  K32GetProcessMemoryInfo(GetCurrentProcess(), &counters, sizeof counters);
  return counters.WorkingSetSize >> 20;
}

struct Counts {
  Counts(const Win32TimerService& service, int changesSoFar)
      : changes(static_cast<std::size_t>(changesSoFar)), timers(service.running()) {}
  std::size_t changes;
  ResourceCounts resources;
  std::size_t timers;
  std::size_t megabytes = memoryInUse();
  OwnMemory own = ownMemory();
};

class Soak {
 public:
  Soak(Ground& ground, Player& player, std::filesystem::path media, unsigned seed)
      : ground_(ground), player_(player), media_(std::move(media)), random_(seed) {
    SysConfig& config = player.controler.config();
    config.boolPlayNextOnErr(true);
    config.boolPopuMainFaceForErr(false);
    player.screen.PlayOver.listen([this] { ++changes_, ++ends_; });
    player.screen.PlayErr.listen([this](const std::string&) { ++changes_, ++failures_; });
  }

  int run(int changes) {
    const int first = std::min(kFirstChanges, std::max(kFewChanges, changes / 4));
    work(first);
    const Counts before = rest();
    for (int next = first + 500; next < changes; next += 500) {
      work(next);
      rest();
    }
    work(changes);
    const Counts after = rest();
    compare(before, after);
    check("items ended by themselves", ends_ > 0);
    check("items failed", failures_ > 0);
    const auto left = GetTickCount64();
    player_.controler.exitSys();
    ground_.loop.run();
    const auto took = GetTickCount64() - left;
    std::printf("left after %llu ms\n", took);
    check("it leaves within the time that is given to it",
          took < ULONGLONG{Controler::kLongestEndMs});
    return failed_ ? 1 : 0;
  }

 private:
  int below(int end) { return std::uniform_int_distribution<int>(0, end - 1)(random_); }
  int anyRow() { return below(player_.panel.lvPlayList.rowCount()); }
  bool hasRows() const { return player_.panel.lvPlayList.rowCount() > 0; }

  void check(const char* what, bool holds) {
    std::printf("%s soak: %s\n", holds ? "PASS" : "FAIL", what);
    failed_ = failed_ || !holds;
  }

  void work(int changes) {
    while (changes_ < changes) {
      step();
      watch(DWORD{20} + static_cast<DWORD>(below(below(4) == 0 ? 2500 : 500)));
    }
  }

  void step() {
    const int rows = player_.panel.lvPlayList.rowCount();
    if (static_cast<std::size_t>(rows) < kRows) return add(below(4) == 0);
    if (static_cast<std::size_t>(rows) > kMostRows) return removeRow();
    static const std::vector<std::pair<int, void (Soak::*)()>> kinds = {
        {42, &Soak::playRow},   {8, &Soak::changeRule},  {5, &Soak::changeLoopMode},
        {8, &Soak::fullScreen}, {8, &Soak::pauseOrPlay}, {5, &Soak::stop},
        {6, &Soak::seek},       {8, &Soak::addOne},      {4, &Soak::removeRow},
        {3, &Soak::moveRow},    {3, &Soak::volume}};
    int which = below(100);
    for (const auto& [weight, act] : kinds) {
      if ((which -= weight) < 0) return (this->*act)();
    }
  }

  void playRow() {
    auto& list = player_.panel.lvPlayList;
    list.clickRow(anyRow());
    ui::KeyPress press{kEnter, false, false, &list};
    player_.panel.onKey.raise(press);
    ++changes_;
  }
  void changeRule() {
    player_.panel.comboPlayRuler.choose(below(4));
    pauseOrPlay();
  }
  void changeLoopMode() { player_.panel.cmdRecyclePlayPL.click(); }
  void fullScreen() {
    if (below(3) == 0) return player_.controler.leaveFullScreen();
    player_.controler.showOnMonitor(1 + below(2));
  }
  void pauseOrPlay() {
    if (player_.screen.lngState() == playState::kStopped) ++changes_;
    player_.panel.cmdPlay.click();
  }
  void stop() { player_.panel.cmdStop.click(); }
  void seek() { player_.controler.setJinDu(below(3)); }
  void addOne() { add(below(2) == 0); }
  void removeRow() {
    player_.panel.lvPlayList.tick(anyRow(), true);
    player_.panel.cmdPLDelete.click();
  }
  void moveRow() {
    player_.panel.lvPlayList.clickRow(anyRow());
    (below(2) == 0 ? player_.panel.cmdPLUp : player_.panel.cmdPLDown).click();
  }
  void volume() {
    player_.panel.picJingFangYin.click();
    player_.controler.setVolume(static_cast<std::int16_t>(below(101)));
  }

  /// Formats of all kinds, what is no medium, and what is gone when it is to be played.
  void add(bool play) {
    static const char* const kFiles[] = {"second.avi", "second.mp4", "blink.avi", "film.mkv",
                                         "film.avi",   "tone.mp3",   "tone.wav",  "green.mp4",
                                         "random.avi", "empty.avi",  "film.webm", "中文 影片.mp4"};
    const int which = below(14);
    if (which < 12) return addFile(media_ / toWide(kFiles[which]), play);
    const std::filesystem::path gone = media_ / "gone.avi";
    std::ofstream(gone) << "gone soon";
    addFile(gone, false);
    std::filesystem::remove(gone);
  }
  void addFile(const std::filesystem::path& file, bool play) {
    player_.controler.BatchAddMovie({"", fromWide(file.wstring())}, play);
    if (play) ++changes_;
  }

  /// Everything stopped, the list as always, the playback window in its normal place.
  Counts rest() {
    Player& p = player_;
    stop();
    p.panel.mnuClearPL.choose();
    waitFor(
        [&] {
          stop();
          return p.screen.lngState() == playState::kStopped;
        },
        kLongestRestMs);
    p.controler.leaveFullScreen();
    p.panel.cmdClearPlayErrLL.click();
    auto* const screen = reinterpret_cast<HWND>(p.screen.nativeHandle());
    if (!waitFor([&] { return pictureWindows(screen) == 0; }, kLongestRestMs)) {
      check("every picture window goes", false);
    }
    if (!settle()) check("threads and windows come to rest", false);
    const Counts counts(ground_.timers, changes_);
    std::cout << "after " << changes_ << " changes (" << ends_ << " ends, " << failures_
              << " failures): " << counts.resources << ", " << counts.timers << " timers, "
              << counts.megabytes << " MB, own: " << counts.own.blocks << " blocks of "
              << counts.own.bytes / 1024 << " KB, database " << counts.own.databaseBytes / 1024
              << " KB" << std::endl;
    return counts;
  }

  void compare(const Counts& before, const Counts& after) {
    const ResourceCounts& first = before.resources;
    const ResourceCounts& last = after.resources;
    check("the same windows", last.windows == first.windows);
    check("the same user objects", last.user == first.user);
    check("no more drawing objects", last.drawing <= first.drawing + kDrawingSlack);
    check("no more handles", last.otherHandles <= first.otherHandles + kSlack);
    check("no more threads", last.threads <= first.threads + kSlack);
    check("the same timers", after.timers == before.timers);
    check("no more memory of its own",
          after.own.bytes + after.own.databaseBytes <=
              before.own.bytes + before.own.databaseBytes + kOwnMemorySlack);
    const auto changes = static_cast<double>(after.changes - before.changes);
    check("no more memory than Wine loses",
          after.megabytes <= before.megabytes + kMemorySlackMb +
                                 static_cast<std::size_t>(kMemoryLostMb * changes));
  }

  Ground& ground_;
  Player& player_;
  const std::filesystem::path media_;
  std::mt19937 random_;
  int changes_ = 0;
  int ends_ = 0;
  int failures_ = 0;
  bool failed_ = false;
};

int soak(const std::vector<std::wstring>& arguments) {
  if (arguments.size() != 4) {
    std::puts("soak.exe MEDIA_FOLDER CHANGES SEED");
    return 2;
  }
  const int changes = std::stoi(arguments[2]);
  Ground ground;
  chooseDatabase(ground.paths.database, *ground.log);
  Player player(ground, {EngineChoice::embedded, EngineChoice::embedded});
  player.start("");
  return Soak(ground, player, arguments[1], static_cast<unsigned>(std::stoul(arguments[3])))
      .run(changes);
}

}  // namespace
}  // namespace tessivo

int wmain(int count, wchar_t** arguments) {
  tessivo::setUpProcess();
  const int result = tessivo::soak({arguments, arguments + count});
  std::fflush(stdout);
  // As the program itself ends: a codec may hang on a thread of its own.
  TerminateProcess(GetCurrentProcess(), static_cast<UINT>(result));
  return result;
}
