#include "ssp/win32/SaverProgram.h"

#include <windows.h>
// After windows.h, which it needs:
#include <ole2.h>

#include <cstdint>
#include <cstdlib>
#include <optional>

#include "platform/win32/ProcessSetUp.h"
#include "platform/win32/ProgramFolder.h"
#include "platform/win32/Win32Displays.h"
#include "platform/win32/Win32IdleInput.h"
#include "platform/win32/Win32MessageLoop.h"
#include "platform/win32/Win32Pointer.h"
#include "platform/win32/Win32TimerService.h"
#include "platform/win32/WindowsText.h"
#include "ssp/InputWatch.h"
#include "ssp/SaverArguments.h"
#include "ssp/SettingsFile.h"
#include "ssp/win32/DebugLog.h"
#include "ssp/win32/SettingsDialog.h"

namespace tessivo::ssp {
namespace {

constexpr int kDone = 0;
constexpr int kNoWindow = 1;
constexpr int kNotUnderstood = 2;

bool flushToDisk(const std::string& path) {
  const HANDLE file = CreateFileW(toWide(path).c_str(), GENERIC_WRITE, FILE_SHARE_READ, nullptr,
                                  OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
  if (file == INVALID_HANDLE_VALUE) return false;
  const bool isFlushed = FlushFileBuffers(file) != FALSE;
  CloseHandle(file);
  return isFlushed;
}

SettingsFile settingsOf(const SaverProgram& program) {
  const std::string file = "\\" + program.name() + ".ini";
  const std::string ofUser = localDataFolder();
  return {programFolder() + file, ofUser.empty() ? "" : ofUser + file, flushToDisk};
}

Rect monitorUnderPointer() {
  const Win32Displays displays;
  const auto monitor = displays.info(displays.fromPoint(Win32Pointer().position()));
  return monitor ? monitor->monitor : displays.primaryScreen();
}

int cover(const SaverProgram& program, const Rect& area) {
  DebugLog log;
  Win32MessageLoop loop;
  Win32TimerService timers(log);
  const Win32IdleInput input;
  const auto end = [&loop] { loop.quit(); };
  InputWatch watch(input, timers, end);
  SaverWindow window(area, program.name(), {[&watch] { watch.noteOwnInput(); }, end}, log);
  if (!window.isOpen()) return kNoWindow;
  window.show();
  const auto saver = program.start(window, settingsOf(program).read(), timers);
  loop.run();
  return kDone;
}

void configure(const SaverProgram& program, const SaverArguments& arguments) {
  DebugLog log;
  configureSaver(program, arguments, settingsOf(program), log);
}

int runAsTold(const SaverProgram& program, const SaverArguments& arguments,
              std::optional<std::uint32_t> tickAtStart) {
  switch (arguments.task) {
    case SaverTask::run:
      // Whoever has come back while the program started does not want it any more.
      if (Win32IdleInput().lastInputTick() != tickAtStart) return kDone;
      return cover(program, arguments.area);
    case SaverTask::preview:
      return cover(program, monitorUnderPointer());
    case SaverTask::configure:
    case SaverTask::settings:
      configure(program, arguments);
      return kDone;
    case SaverTask::invalid:
      break;
  }
  return kNotUnderstood;
}

}  // namespace

void runSaverProgram(const SaverProgram& program) {
  const auto tickAtStart = Win32IdleInput().lastInputTick();
  setUpProcess();
  OleInitialize(nullptr);
  const int result = runAsTold(program, parseSaverArguments(commandLineArguments()), tickAtStart);
  // Nothing waits for a codec that hangs on a thread of its own.
  TerminateProcess(GetCurrentProcess(), static_cast<UINT>(result));
  std::abort();  // not reached
}

}  // namespace tessivo::ssp
