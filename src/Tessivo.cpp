// Entry point: which instance this is, whether the players are there, which database, and then the
// player and its message loop.
#include <windows.h>

#include <string>

#include "Player.h"
#include "app/PlayersNeeded.h"
#include "app/PrevInstance.h"
#include "app/Request.h"
#include "app/StartWish.h"
#include "config/CheckUserFigure.h"
#include "data/MoveIn.h"
#include "panel/DatabaseNotice.h"
#include "panel/frmMsgBox.h"
#include "platform/win32/ProcessSetUp.h"
#include "platform/win32/ProgramFolder.h"
#include "platform/win32/SingleInstance.h"
#include "platform/win32/Win32FileVersions.h"
#include "platform/win32/Win32Messaging.h"
#include "platform/win32/Win32OsVersion.h"
#include "platform/win32/WindowsText.h"
#include "prereq/frmCheckPlayers.h"
#include "screen/engines/media_foundation/MediaFoundationLibraries.h"
#include "screen/engines/real_player/RealPlayerProbe.h"

namespace {

using namespace tessivo;

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
  const StartWish wish = startWish(commandLineArguments());
  const std::string databaseText = takeDatabase(ground, wish.convert);
  Player player(ground, choices);
  player.start(wish.commandLine);
  const DatabaseNotice notice(ground.toolkit, ground.timers, player.panel, databaseText);
  ground.loop.run();
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
