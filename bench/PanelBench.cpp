// How long the control panel keeps its window from answering, with real windows and controls: a
// line for each piece of work on a long list, "rows|what|milliseconds in all|longest turn of the
// message loop|most memory so far, MB". For closing the turn is what passes until the panel is
// hidden.
//
//   panel_bench [ROWS…]     10 000 and 100 000 unless said
//
// Engines are told ones that cost nothing; files, database and windows are real.
#include <windows.h>
// After windows.h, which it needs:
#include <commctrl.h>
#include <psapi.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <string>
#include <vector>

#include "app/StartUp.h"
#include "data/PrepareDatabase.h"
#include "fakes/FakeAccounts.h"
#include "fakes/FakeDisplays.h"
#include "fakes/FakeEngines.h"
#include "fakes/FakeFileDialogs.h"
#include "fakes/FakeLeaveWatch.h"
#include "fakes/FakeLog.h"
#include "fakes/FakeSaverSystem.h"
#include "fakes/FakeShell.h"
#include "fakes/FakeSystem.h"
#include "fakes/FakeThreadTimers.h"
#include "fakes/FakeTray.h"
#include "fakes/FakeWindowHooks.h"
#include "fakes/NoToolkit.h"
#include "fakes/TempFolder.h"
#include "fakes/VirtualTime.h"
#include "panel/frmMain.h"
#include "platform/win32/ProgramFolder.h"
#include "platform/win32/Win32Clock.h"
#include "platform/win32/Win32Files.h"
#include "platform/win32/Win32TimerService.h"
#include "ui/win32/Win32Toolkit.h"

namespace tessivo {
namespace {

using Now = std::chrono::steady_clock;

double millisecondsSince(Now::time_point begin) {
  return std::chrono::duration<double, std::milli>(Now::now() - begin).count();
}

/// The program with a panel of real windows.
class Program {
 public:
  explicit Program(int rows) : rows_(rows) {
    displays_.add({0, 0, 1280, 1024}, true);
    prepareDatabase(database_, log_);
    controler_.setInitializePram(database_, "");
    playList_.strPLDBFilePath(database_);
    screen_.load();
    panel.load({0, 0, 1280, 984});
    controler_.setReferences(tray_, panel, screen_, playList_);
    panel.setFaceBySysConfigPara(controler_.config());
    panel.show();
    panel.activate();
    turnUntil([] { return true; });
  }

  void add() {
    const std::vector<std::string> paths(static_cast<std::size_t>(rows_) + 1, someFile());
    measure(
        "add", [&] { controler_.BatchAddMovie(paths, false); },
        [this] { return panel.lvPlayList.rowCount() == rows_; });
  }
  void measure(
      const char* what, const std::function<void()>& work,
      const std::function<bool()>& done = [] { return true; }) {
    longest_ = 0;
    const auto begin = Now::now();
    work();
    longest_ = millisecondsSince(begin);
    turnUntil(done);
    report(what, millisecondsSince(begin));
  }
  /// One step after the other, as the user takes them.
  void measureSteps(const char* what, int steps, const std::function<void(int)>& step) {
    double longest = 0;
    const auto begin = Now::now();
    for (int i = 0; i < steps; ++i) {
      longest_ = 0;
      const auto one = Now::now();
      step(i);
      longest = std::max(longest, millisecondsSince(one));
      turnUntil([] { return true; });
      longest = std::max(longest, longest_);
    }
    longest_ = longest;
    report(what, millisecondsSince(begin));
  }
  void leave() {
    const auto begin = Now::now();
    controler_.exitSys();
    longest_ = loop_.hiddenAfter(begin);
    report("close and save", millisecondsSince(begin));
  }
  HWND listWindow() const { return reinterpret_cast<HWND>(panel.lvPlayList.nativeHandle()); }

 private:
  /// Tells when the program waits for the engines: the panel has been hidden just before.
  struct Loop : MessageLoop {
    void pumpFor(int) override {
      if (firstPump == Now::time_point{}) firstPump = Now::now();
    }
    void quit() override {}
    double hiddenAfter(Now::time_point begin) const {
      return std::chrono::duration<double, std::milli>(firstPump - begin).count();
    }
    Now::time_point firstPump{};
  };

  static std::string someFile() { return programFolder() + "\\panel_bench.exe"; }

  /// Turns the message loop until the work is done and nothing waits.
  void turnUntil(const std::function<bool()>& done) {
    MSG message{};
    for (;;) {
      if (!PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
        if (done()) return;
        MsgWaitForMultipleObjectsEx(0, nullptr, 5, QS_ALLINPUT, MWMO_INPUTAVAILABLE);
        continue;
      }
      const auto begin = Now::now();
      if (!ui::Win32Toolkit::translate(message)) {
        TranslateMessage(&message);
        DispatchMessageW(&message);
      }
      longest_ = std::max(longest_, millisecondsSince(begin));
    }
  }
  void report(const char* what, double total) const {
    PROCESS_MEMORY_COUNTERS memory{};
    K32GetProcessMemoryInfo(GetCurrentProcess(), &memory, sizeof memory);
    std::printf("%d|%s|%.1f|%.1f|%u\n", rows_, what, total, longest_,
                static_cast<unsigned>(memory.PeakWorkingSetSize >> 20));
  }

  int rows_;
  double longest_ = 0;
  TempFolder folder_;
  std::string database_ = folder_.file("SysConfig");
  Trace trace_;
  FakeLog log_;
  Win32Clock clock_;
  Win32Files files_;
  Win32TimerService timers_{log_};
  FakeDisplays displays_;
  FakePointer pointer_;
  FakeDesktopWindows windows_;
  FakeWindowProcedures procedures_;
  FakeShownWindows shownWindows_;
  VirtualTime still_;
  FakeThreadTimers threadTimers_{still_};
  MTimer mtimer_{threadTimers_};
  CaughtWindows caughtWindows_{windows_, procedures_};
  FakeEngineFactory engines_{trace_};
  FakeTray tray_{trace_};
  NoToolkit none_;
  Loop loop_;
  FakeLeaveWatch leaveWatch_;
  MovieKeys keys_{clock_};
  PlayList playList_{keys_};
  frmScreen screen_{{none_, timers_, displays_, files_, log_, engines_, windows_, caughtWindows_}};
  FakeIdleInput idleInput_{still_};
  FakeSystemPower power_{trace_};
  FakeProcesses processes_;
  FakeProcessToken token_;
  Controler controler_{{keys_, files_, displays_, pointer_, loop_, leaveWatch_, log_, clock_,
                        windows_, mtimer_, shownWindows_, caughtWindows_, timers_, idleInput_,
                        power_, processes_, token_, "C:\\p"}};
  ui::Win32Toolkit toolkit_{TwipsPerPixel{}, log_};
  FakeFileDialogs fileDialogs_;
  FakeShell shell_;
  ExitQuestion exitQuestion_{toolkit_, controler_};

 public:
  frmMain panel{
      {toolkit_, timers_, clock_, pointer_, windows_, fileDialogs_, shell_, exitQuestion_, ""},
      {},
      controler_};
};

void run(int rows) {
  Program program(rows);
  frmMain& panel = program.panel;
  program.add();
  program.measure("tick all", [&] { panel.chkToDeleteAll.click(); });
  program.measureSteps("scroll end to end, 200 steps", 200, [&](int step) {
    const HWND list = program.listWindow();
    SendMessageW(list, LVM_ENSUREVISIBLE, static_cast<WPARAM>((rows - 1) * (step / 199.0)), FALSE);
    UpdateWindow(list);
  });
  panel.lvPlayList.select(rows / 2);
  program.measureSteps("move a row, 100 steps", 100, [&](int) { panel.cmdPLDown.click(); });
  program.measure(
      "delete all ticked", [&] { panel.cmdPLDelete.click(); },
      [&] { return panel.lvPlayList.rowCount() == 0; });
  program.add();
  program.measure("clear", [&] { panel.mnuClearPL.choose(); });
  program.add();
  program.leave();
}

}  // namespace
}  // namespace tessivo

int main(int argc, char** argv) {
  std::vector<int> sizes;
  for (int i = 1; i < argc; ++i) sizes.push_back(std::atoi(argv[i]));
  if (sizes.empty()) sizes = {10000, 100000};
  for (const int rows : sizes) tessivo::run(rows);
  return 0;
}
