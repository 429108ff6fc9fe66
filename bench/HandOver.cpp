// How long it takes until a file that a second start of the player hands over is in the list of the
// first, as the user sees it, beside what the second start itself takes, and what a program takes
// that does nothing and one that sends an empty message.
//
//   hand_over_bench PLAYER FILE [TIMES]     20 times unless said
//
// The first player answers nobody while it starts the file: that time is part of what is measured.
//
// PLAYER must not run; it is started in its folder, whose database it uses, and left in order.
#include <windows.h>
// After windows.h, which it needs:
#include <commctrl.h>
#include <shellapi.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cwchar>
#include <string>
#include <vector>

#include "platform/win32/ProgramFolder.h"
#include "programs/PanelWindow.h"

namespace tessivo {
namespace {

using Now = std::chrono::steady_clock;

constexpr DWORD kDeadlineMs = 60000;
constexpr DWORD kGuardMs = 400;  ///< longer than the player's guard against bursts

double millisecondsSince(Now::time_point begin) {
  return std::chrono::duration<double, std::milli>(Now::now() - begin).count();
}

/// A process that was just started.
class Process {
 public:
  Process(const std::wstring& program, const std::wstring& argument) {
    std::wstring line = L'"' + program + L'"';
    if (!argument.empty()) line += L" \"" + argument + L'"';
    STARTUPINFOW how{};
    how.cb = sizeof how;
    if (!CreateProcessW(program.c_str(), line.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr,
                        &how, &made_)) {
      fail("cannot start " + fromWide(program));
    }
  }
  ~Process() {
    CloseHandle(made_.hThread);
    CloseHandle(made_.hProcess);
  }
  Process(const Process&) = delete;
  Process& operator=(const Process&) = delete;
  void waitForEnd() const {
    if (WaitForSingleObject(made_.hProcess, kDeadlineMs) != WAIT_OBJECT_0) fail("it does not end");
  }

 private:
  PROCESS_INFORMATION made_{};
};

template <typename Condition>
void until(const std::string& what, Condition condition) {
  const auto begin = Now::now();
  while (!condition()) {
    if (millisecondsSince(begin) > kDeadlineMs) fail("waited in vain for " + what);
    Sleep(1);
  }
}

LRESULT rowCount() {
  return SendMessageW(PanelWindow().control("lvPlayList"), LVM_GETITEMCOUNT, 0, 0);
}

/// The times that one piece of work took.
class Times {
 public:
  void add(double ms) { all_.push_back(ms); }
  void report(const char* what) {
    std::sort(all_.begin(), all_.end());
    const std::size_t half = all_.size() / 2;
    const double median = all_.size() % 2 ? all_[half] : (all_[half - 1] + all_[half]) / 2;
    std::printf("%-52s %8.1f %8.1f %8.1f\n", what, all_.front(), median, all_.back());
  }

 private:
  std::vector<double> all_;
};

void measureRun(const std::wstring& program, int times, const char* what) {
  Times whole;
  for (int i = 0; i < times; ++i) {
    const auto begin = Now::now();
    Process(program, L"").waitForEnd();
    whole.add(millisecondsSince(begin));
  }
  whole.report(what);
}

void measureFile(const std::wstring& player, const std::wstring& file, int times) {
  Times listed;
  Times whole;
  for (int i = 0; i < 2 * times; ++i) {
    Sleep(kGuardMs);
    const LRESULT before = rowCount();
    const auto begin = Now::now();
    const Process second(player, file);
    const auto isListed = [before] { return rowCount() > before; };
    // The question is answered when the player is done, so that who asks cannot see the end before.
    if (i % 2 == 0) {
      until("the file", isListed);
      listed.add(millisecondsSince(begin));
      second.waitForEnd();
    } else {
      second.waitForEnd();
      whole.add(millisecondsSince(begin));
      until("the file", isListed);
    }
  }
  listed.report("a second start with a file: start to file in the list");
  whole.report("a second start with a file: start to end");
}

void run(const std::wstring& player, const std::wstring& file, int times) {
  if (PanelWindow::find()) fail("a player runs already");
  const Process first(player, L"");
  until("the panel", [] { return IsWindowVisible(PanelWindow::find()) != FALSE; });
  std::printf("%-52s %8s %8s %8s\n", "milliseconds", "least", "median", "most");
  const std::wstring folder = toWide(programFolder());
  measureRun(folder + L"\\hand_over_nothing.exe", times,
             "a program that does nothing: start to end");
  measureRun(folder + L"\\hand_over_message.exe", times,
             "one that sends an empty message: start to end");
  measureRun(player, times, "a second start without a file: start to end");
  measureFile(player, file, times);
  PostMessageW(FindWindowW(nullptr, L"play27182831415"), WM_CLOSE, 0, 0);
  first.waitForEnd();
}

}  // namespace
}  // namespace tessivo

int main() {
  int count = 0;
  LPWSTR* list = CommandLineToArgvW(GetCommandLineW(), &count);
  const std::vector<std::wstring> words(list, list + count);
  LocalFree(list);
  if (count < 3) tessivo::fail("hand_over_bench PLAYER FILE [TIMES]");
  const int times =
      count > 3 ? std::max(1, static_cast<int>(std::wcstol(words[3].c_str(), nullptr, 10))) : 20;
  tessivo::run(words[1], words[2], times);
  return 0;
}
