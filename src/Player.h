#pragma once

#include <windows.h>
// After windows.h, which it needs:
#include <ole2.h>

#include <memory>
#include <string>

#include "app/CommandLine.h"
#include "app/ConfigFace.h"
#include "app/Controler.h"
#include "app/ProgramPaths.h"
#include "app/RequestReceiver.h"
#include "monitors/AimMonitor.h"
#include "panel/ExitQuestion.h"
#include "panel/frmHide.h"
#include "panel/frmMain.h"
#include "platform/FileLog.h"
#include "platform/LimitedLog.h"
#include "platform/win32/Win32Accounts.h"
#include "platform/win32/Win32Clock.h"
#include "platform/win32/Win32DesktopWindows.h"
#include "platform/win32/Win32Displays.h"
#include "platform/win32/Win32FileDialogs.h"
#include "platform/win32/Win32Files.h"
#include "platform/win32/Win32HiddenWinProc.h"
#include "platform/win32/Win32IdleInput.h"
#include "platform/win32/Win32LeaveWatch.h"
#include "platform/win32/Win32MessageLoop.h"
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
#include "screen/CaughtWindows.h"
#include "screen/EngineChoice.h"
#include "screen/engines/ChosenEngineFactory.h"
#include "screen/frmScreen.h"
#include "ui/win32/Win32Toolkit.h"

namespace tessivo {

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
std::unique_ptr<FileLog> openLog(const ProgramPaths& paths, const Clock& clock);

/// What the player check needs as well as all that comes after it. One a process, on the
/// user-interface thread.
struct Ground {
  Ground();

  const Win32Clock clock;
  ProgramPaths paths;
  const std::unique_ptr<FileLog> log;
  Win32LeaveWatch leaveWatch{*log};  // also of the apartment's end
  const ComApartment apartment;
  const Win32Displays displays;
  Win32MessageLoop loop;
  Win32TimerService timers{*log};
  ui::Win32Toolkit toolkit{displays.twipsPerPixel(), *log};
};

/// The objects of the running player and how they know each other. The database is chosen before
/// (`Ground::paths`).
struct Player {
  Player(Ground& with, const EngineChoices& choices);

  /// From the settings to the first play. What the command line asks for is done with it.
  void start(const std::string& commandLine);

  Ground& ground;
  Log& log;
  const Win32Files files;
  const Win32DesktopWindows windows;
  Win32Pointer pointer;
  Win32ThreadTimers threadTimers{log};
  MTimer timerRegistry{threadTimers};
  Win32ShownWindows shownWindows{log};
  Win32WindowProcedures procedures{log};
  CaughtWindows caughtWindows{windows, procedures};
  ChosenEngineFactory engines;

  AimMonitor aimMonitor;
  MovieKeys keys;
  PlayList playList{keys};
  const Win32IdleInput idleInput;
  Win32SystemPower power;
  Win32Processes processes;
  Win32ProcessToken token;
  Controler controler;
  frmScreen screen;
  Win32FileDialogs fileDialogs{log};
  Win32Shell shell{log};
  Win32SharedMemory sharedMemory;
  LimitedLog requestLog{log, ground.clock};
  CommandLine commandLines{controler, sharedMemory, requestLog};
  RequestReceiver requests{controler, commandLines, requestLog};
  Win32HiddenWinProc hiddenWinProc{log};
  Win32TrayIcons trayIcons;
  ExitQuestion exitQuestion;
  frmHide tray;
  frmMain panel;
  Win32Registry registry;
  const Win32Accounts accounts;
  ConfigFace configFace;
};

}  // namespace tessivo
