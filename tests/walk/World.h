#pragma once

#include <deque>
#include <functional>
#include <optional>
#include <set>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>

#include "fakes/FakeAccounts.h"
#include "fakes/FakeDisplays.h"
#include "fakes/FakeLeaveWatch.h"
#include "fakes/FakeNotificationArea.h"
#include "fakes/FakeRegistry.h"
#include "fakes/FakeSaverSystem.h"
#include "fakes/FakeSharedMemory.h"
#include "fakes/FakeShell.h"
#include "fakes/FakeSystem.h"
#include "fakes/FakeThreadTimers.h"
#include "fakes/FakeWindowHooks.h"
#include "fakes/TempFolder.h"
#include "platform/FileDialogs.h"
#include "platform/Log.h"
#include "walk/Dice.h"

namespace tessivo::walk {

/// What an engine throws when a life of the program allows it. Nothing else may leave the program.
struct EngineFailure : std::runtime_error {
  using std::runtime_error::runtime_error;
};

/// The system's clock: monotonic ticks are the virtual time, the time of day can be set.
struct WalkClock : Clock {
  explicit WalkClock(const VirtualTime& t) : time(t) {}
  LocalTime now() const override;
  std::uint64_t ticksMs() const override { return time.ticksMs() + waitedMs; }

  const VirtualTime& time;
  std::uint64_t waitedMs = 0;  ///< for the disk: it passes, and no timer ticks meanwhile
  std::int64_t offsetMs = std::int64_t{20400} * 86'400'000;  ///< from the first day of 1970
};

/// A disk whose answers may take their time.
struct WalkFiles : FakeFiles {
  explicit WalkFiles(WalkClock& c) : clock(c) {}
  bool fileExists(const std::string& path) const override {
    clock.waitedMs += msAnAnswer;
    return FakeFiles::fileExists(path);
  }
  WalkClock& clock;
  std::uint64_t msAnAnswer = 0;
};

/// Keeps the last lines, and all that say that something could not be kept or read.
struct WalkLog : Log {
  void info(std::string_view text) override { keep("info ", text); }
  void error(std::string_view text) override { keep("error ", text); }
  bool mentions(std::string_view text) const;
  void clear() {
    lines.clear();
    notable_.clear();
    enginesGivenUp = 0;
  }

  std::deque<std::string> lines;
  std::uint64_t count = 0;           ///< of all lines
  std::uint64_t enginesGivenUp = 0;  ///< play errors that engines are the reason of

 private:
  void keep(const char* kind, std::string_view text);

  std::set<std::string> notable_;
};

struct WalkLoop : MessageLoop {
  void pumpFor(int ms) override {
    if (whilePumping) whilePumping(ms);
  }
  void quit() override { ++quits; }
  std::function<void(int)> whilePumping;
  int quits = 0;
};

/// Keeps with each start when the user had last done something: several may come in one event.
struct WalkProcesses : FakeProcesses {
  explicit WalkProcesses(const FakeIdleInput& idleInput) : input(idleInput) {}
  std::uint32_t start(const std::string& program, const std::string& arguments,
                      WindowStyle style) override {
    lastInputs.push_back(input.lastInput);
    return FakeProcesses::start(program, arguments, style);
  }
  void clear() {
    started.clear();
    lastInputs.clear();
    asked.clear();
    looked.clear();
  }
  const FakeIdleInput& input;
  std::vector<std::uint32_t> lastInputs;
};

struct WalkFileDialogs : FileDialogs {
  OpenFilesAnswer openFiles(const OpenFilesRequest&) override {
    return answer ? answer() : OpenFilesAnswer{};
  }
  std::optional<std::string> chooseFolder(const ChooseFolderRequest&) override { return {}; }
  std::function<OpenFilesAnswer()> answer;
};

/// The machine on which the program lives, again and again: disk, monitors, time, shell. Also the
/// walk's notebook: what happened last, and the first thing that was wrong.
class World {
 public:
  explicit World(std::uint64_t seed);

  /// Runs what the system calls, as the program's own guards do: an engine's failure ends there,
  /// anything else that comes out is a mistake.
  void guarded(const std::function<void()>& call);
  /// Lets time go by; what falls due happens.
  void advance(std::uint64_t ms);
  void note(std::string what);
  /// The first one counts.
  void fail(const std::string& what) {
    if (failure.empty()) failure = what;
  }

  Dice dice;
  VirtualTime time;
  WalkClock clock{time};
  Trace trace;
  TempFolder folder{"tessivo walk "};
  std::string database = folder.file("SysConfig");
  WalkFiles files{clock};
  WalkLog log;
  FakeDisplays displays;
  FakePointer pointer;
  FakeDesktopWindows windows;
  FakeWindowProcedures procedures;
  FakeShownWindows shownWindows;
  FakeThreadTimers threadTimers{time};
  FakeIdleInput idleInput{time};
  FakeSystemPower power{trace};
  WalkProcesses processes{idleInput};
  FakeProcessToken token;
  FakeAccounts accounts;
  FakeRegistry registry;
  FakeShell shell;
  FakeSharedMemory memory;
  FakeTrayIcons icons{trace};
  FakeHiddenWinProc winProc{trace};
  WalkFileDialogs fileDialogs;
  WalkLoop loop;
  FakeLeaveWatch leaveWatch;

  std::deque<std::string> notes;  ///< what happened last
  std::size_t notesKept = 60;
  std::string failure;
  bool mayThrow = false;     ///< an engine may fail by an exception, in this life
  std::uint64_t ticks = 0;   ///< of the forms' timers
  std::uint64_t thrown = 0;  ///< engine failures that were caught
};

/// The forms' timers on the world's time, each tick guarded and counted.
class WalkTimers : public TimerService {
 public:
  explicit WalkTimers(World& world) : world_(world) {}
  Id start(int intervalMs, std::function<void()> onTick) override;
  void stop(Id id) override;
  std::size_t running() const { return running_; }

 private:
  World& world_;
  std::size_t running_ = 0;
};

}  // namespace tessivo::walk
