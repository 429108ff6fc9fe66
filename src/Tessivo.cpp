// Entry point and composition root: builds every object, wires them, runs the message loop.
#include <windows.h>
// After windows.h, which it needs:
#include <ole2.h>

#include <memory>
#include <string>

#include "app/CommandLine.h"
#include "app/ConfigFace.h"
#include "app/Controler.h"
#include "app/PlayersNeeded.h"
#include "app/PrevInstance.h"
#include "app/ProgramPaths.h"
#include "app/Request.h"
#include "app/RequestReceiver.h"
#include "app/StartUp.h"
#include "app/StartWish.h"
#include "config/CheckUserFigure.h"
#include "data/MoveIn.h"
#include "monitors/AimMonitor.h"
#include "monitors/cMonitors.h"
#include "panel/DatabaseNotice.h"
#include "panel/ExitQuestion.h"
#include "panel/frmHide.h"
#include "panel/frmMain.h"
#include "panel/frmMsgBox.h"
#include "platform/FileLog.h"
#include "platform/win32/ProcessSetUp.h"
#include "platform/win32/ProgramFolder.h"
#include "platform/win32/SingleInstance.h"
#include "platform/win32/Win32Accounts.h"
#include "platform/win32/Win32Clock.h"
#include "platform/win32/Win32DesktopWindows.h"
#include "platform/win32/Win32Displays.h"
#include "platform/win32/Win32FileDialogs.h"
#include "platform/win32/Win32FileVersions.h"
#include "platform/win32/Win32Files.h"
#include "platform/win32/Win32HiddenWinProc.h"
#include "platform/win32/Win32IdleInput.h"
#include "platform/win32/Win32MessageLoop.h"
#include "platform/win32/Win32Messaging.h"
#include "platform/win32/Win32OsVersion.h"
#include "platform/win32/Win32Pointer.h"
#include "platform/win32/Win32ProcessToken.h"
#include "platform/win32/Win32Processes.h"
#include "platform/win32/Win32Registry.h"
#include "platform/win32/Win32SharedMemory.h"
#include "platform/win32/Win32Shell.h"
#include "platform/win32/Win32ShownWindows.h"
#include "platform/win32/Win32SystemPower.h"
#include "platform/win32/Win32ThreadTimers.h"
#include "platform/win32/Win32TimerService.h"
#include "platform/win32/Win32TrayIcons.h"
#include "platform/win32/Win32WindowProcedures.h"
#include "platform/win32/WindowsText.h"
#include "prereq/frmCheckPlayers.h"
#include "screen/CaughtWindows.h"
#include "screen/EngineChoice.h"
#include "screen/engines/ChosenEngineFactory.h"
#include "screen/engines/media_foundation/MediaFoundationLibraries.h"
#include "screen/engines/real_player/RealPlayerProbe.h"
#include "screen/frmScreen.h"
#include "ui/win32/Win32Toolkit.h"

namespace {

using namespace tessivo;

/// OLE and with it the user-interface thread's COM apartment, which the engines, hosted controls
/// and the shell's dialogs need.
class ComApartment {
 public:
  ComApartment() : result_(OleInitialize(nullptr)) {}
  ~ComApartment() {
    if (SUCCEEDED(result_)) OleUninitialize();
  }
  ComApartment(const ComApartment&) = delete;
  ComApartment& operator=(const ComApartment&) = delete;

 private:
  HRESULT result_;
};

/// Beside the database, or in the user's own folder where the program's may not be written.
std::unique_ptr<FileLog> openLog(const ProgramPaths& paths, const Clock& clock) {
  auto log = std::make_unique<FileLog>(paths.programFolder + "\\Tessivo.log", clock);
  if (log->isOpen()) return log;
  return std::make_unique<FileLog>(localDataFolder() + "\\Tessivo.log", clock);
}

/// The work area of the primary monitor: the operator's.
Rect panelArea(const Displays& displays) {
  const cMonitors monitors(displays);
  const auto primary = monitors.Monitor(monitors.primaryIndex());
  if (!primary) return displays.primaryScreen();
  return {primary->WorkLeft(), primary->WorkTop(), primary->WorkWidth(), primary->WorkHeight()};
}

/// The first instance is asked to do what this one was started for. Its database is in use, so that
/// it cannot take over another.
void callFirstInstance() {
  const Win32Clock clock;
  const auto log = openLog(formProgramPaths(programFolder()), clock);
  const StartWish wish = startWish(commandLineArguments());
  if (wish.convert) {
    log->error("not converted: another Tessivo is running");
    MessageBoxW(nullptr,
                L"泰思维正在运行，不能转换数据库。请先退出泰思维，再运行 Tessivo.exe --convert。",
                L"泰思维", MB_OK | MB_ICONINFORMATION | MB_SETFOREGROUND);
    return;
  }
  Win32Messaging messaging;
  PrevInstance(messaging, *log).handOver(wish.commandLine);
}

/// What the player check needs as well as all that comes after it.
struct Ground {
  Ground() {
    loop.setFilter([](MSG& message) { return ui::Win32Toolkit::translate(message); });
  }

  const ComApartment apartment;
  const Win32Clock clock;
  ProgramPaths paths = formProgramPaths(programFolder());
  const std::unique_ptr<FileLog> log = openLog(paths, clock);
  const Win32Displays displays;
  Win32MessageLoop loop;
  Win32TimerService timers{*log};
  ui::Win32Toolkit toolkit{displays.twipsPerPixel(), *log};
};

/// False when a player that is needed is missing: the user has been told.
bool playersAreThere(Ground& ground, const EngineChoices& choices) {
  Log& log = *ground.log;
  const Win32FileVersions versions;
  const Win32Files files;
  const Win32Accounts accounts;
  Win32Shell shell(log);
  PlayersNeeded needed = playersNeeded(choices, [&log] { return mediaFoundationIsThere(log); });
  PlayerDetection detection(versions, whyRealPlayerFails, needed, log);
  const CheckUserFigure figure(accounts, log);
  frmCheckPlayers check(
      {ground.toolkit, ground.timers, files, shell, win32OsVersion(), ground.paths.programFolder,
       [&figure] { return figure.boolUserBlongToAdminsGroup(); },
       [&ground](ui::Form& owner, const std::string& title, const std::string& text) {
         showNotice(ground.toolkit, owner, text, title);
       }},
      detection, ground.displays.twipsPerPixel());
  return check.checkPlayers();
}

/// The file that all who read or write the database are told of. Returns what the user is to know
/// of it.
std::string takeDatabase(Ground& ground, bool convert) {
  const auto take = convert ? convertDatabase : chooseDatabase;
  const WorkingDatabase database = take(ground.paths.database, *ground.log);
  std::string notice = databaseNotice(database, ground.paths.database);
  ground.paths.database = database.path;
  return notice;
}

void runPlayer(Ground& ground, const EngineChoices& choices) {
  const ProgramPaths& paths = ground.paths;
  const Win32Clock& clock = ground.clock;
  const Win32Displays& displays = ground.displays;
  const auto& log = ground.log;
  const StartWish wish = startWish(commandLineArguments());
  Win32MessageLoop& loop = ground.loop;
  Win32TimerService& timers = ground.timers;
  ui::Win32Toolkit& toolkit = ground.toolkit;
  const std::string databaseText = takeDatabase(ground, wish.convert);
  const Win32Files files;
  const Win32DesktopWindows windows;
  Win32Pointer pointer;
  Win32ThreadTimers threadTimers(*log);
  MTimer timerRegistry(threadTimers);
  Win32ShownWindows shownWindows(*log);
  Win32WindowProcedures procedures(*log);
  CaughtWindows caughtWindows(windows, procedures);
  ChosenEngineFactory engines(choices, *log);

  AimMonitor aimMonitor(displays);
  MovieKeys keys(clock);
  PlayList playList(keys);
  const Win32IdleInput idleInput;
  Win32SystemPower power;
  Win32Processes processes;
  Win32ProcessToken token;
  Controler controler({keys, files, displays, pointer, loop, *log, clock, windows, timerRegistry,
                       shownWindows, caughtWindows, timers, idleInput, power, processes, token,
                       paths.programFolder});
  frmScreen screen({toolkit, timers, displays, files, *log, engines, windows, caughtWindows});
  Win32FileDialogs fileDialogs(*log);
  Win32Shell shell(*log);
  Win32SharedMemory sharedMemory;
  CommandLine commandLines(controler, sharedMemory, *log);
  RequestReceiver requests(controler, commandLines, *log);
  Win32HiddenWinProc hiddenWinProc(*log);
  Win32TrayIcons trayIcons;
  ExitQuestion exitQuestion(toolkit, controler);
  frmHide tray({toolkit, timers, hiddenWinProc, trayIcons, shell, exitQuestion, win32OsVersion(),
                paths.helpPage},
               displays.twipsPerPixel(), controler, requests);
  frmMain panel(
      {toolkit, timers, clock, pointer, windows, fileDialogs, shell, exitQuestion, paths.helpPage},
      displays.twipsPerPixel(), controler);
  Win32Registry registry;
  const Win32Accounts accounts;
  ConfigFace configFace(
      {toolkit, timers, shell, registry, accounts, *log, paths.database, paths.programFolder},
      clock, processes, controler);
  // Over the panel, unless it is hidden or has a dialog already.
  controler.configFaceWanted.listen([&] {
    const bool overPanel = panel.visible() && panel.enabled();
    configFace.open(overPanel ? static_cast<ui::Form&>(panel) : tray);
  });
  startUp({paths, wish.commandLine, displays, *log, aimMonitor, playList, controler, screen,
           commandLines, requests, tray, panel, [&tray] { tray.load(); },
           [&panel, &displays] { panel.load(panelArea(displays)); }});
  const DatabaseNotice notice(toolkit, timers, panel, databaseText);
  loop.run();
}

void runProgram() {
  Ground ground;
  Log& log = *ground.log;
  log.info("start");
  const EngineChoices choices =
      readEngineChoices(ground.paths.programFolder + "\\Engines.ini", log);
  if (playersAreThere(ground, choices)) {
    runPlayer(ground, choices);
  } else {
    if (startWish(commandLineArguments()).convert) {
      log.error("not converted: a player is missing; start with --convert again");
    }
    log.info("stop: a player is missing, or has just been installed");
  }
}

}  // namespace

int WINAPI wWinMain(HINSTANCE, HINSTANCE, PWSTR, int) {
  setUpProcess();
  const SingleInstance instance(std::string("Tessivo ") + request::kWindowTitle);
  if (instance.isFirst()) {
    runProgram();
  } else {
    callFirstInstance();
  }
  // All is saved and gone. A codec that hangs on a thread of its own, opening a file, must not hold
  // up the end of the process nor crash in it.
  TerminateProcess(GetCurrentProcess(), 0);
  return 0;
}
