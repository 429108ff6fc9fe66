#include "ssp/win32/SaverProgram.h"

#include <windows.h>
// After windows.h, which it needs:
#include <ole2.h>

#include <cstdlib>

#include "platform/win32/ProcessSetUp.h"
#include "platform/win32/ProgramFolder.h"
#include "platform/win32/Win32Displays.h"
#include "platform/win32/Win32IdleInput.h"
#include "platform/win32/Win32MessageLoop.h"
#include "platform/win32/Win32Pointer.h"
#include "platform/win32/Win32TimerService.h"
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

SettingsFile settingsOf(const SaverProgram& program) {
  const std::string file = "\\" + program.name() + ".ini";
  const std::string ofUser = localDataFolder();
  return {programFolder() + file, ofUser.empty() ? "" : ofUser + file};
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
  SaverWindow window(
      area, program.name(), [&loop] { loop.quit(); }, log);
  if (!window.isOpen()) return kNoWindow;
  const auto saver = program.start(window, settingsOf(program).read(), timers, log);
  window.show();
  const InputWatch watch(input, timers, [&loop] { loop.quit(); });
  loop.run();
  return kDone;
}

void configure(const SaverProgram& program, const SaverArguments& arguments) {
  DebugLog log;
  configureSaver(program, arguments, settingsOf(program), log);
}

int runAsTold(const SaverProgram& program, const SaverArguments& arguments) {
  switch (arguments.task) {
    case SaverTask::run:
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
  setUpProcess();
  OleInitialize(nullptr);
  const int result = runAsTold(program, parseSaverArguments(commandLineArguments()));
  // Nothing waits for a codec that hangs on a thread of its own.
  TerminateProcess(GetCurrentProcess(), static_cast<UINT>(result));
  std::abort();  // not reached
}

}  // namespace tessivo::ssp
