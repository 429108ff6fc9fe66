#pragma once

#include <string>

#include "data/PrepareDatabase.h"
#include "platform/Log.h"

namespace tessivo {

/// The database that the program works on from the start to the end.
struct WorkingDatabase {
  std::string path;
  DatabaseState state = DatabaseState::ready;
  bool notConverted = false;  ///< convertDatabase was asked and could not
};

/// What the own database beside the one at `path` is called.
std::string ownPathBeside(const std::string& path);

/// Usually the file at `path`, seen to by prepareDatabase. When that is a Microsoft Access file, or
/// there is nothing that could be read: the program's own database beside it, "….db", if there is
/// one. Else an Access file is used through its ODBC driver. Without a driver, or when the driver
/// does not understand the file or finds no tables of ours, there is a new database beside it; for
/// any other failure, which may pass, it is kept (accessHeld). The Access file itself is only ever
/// written through the driver. What was chosen goes to the log; nothing throws.
WorkingDatabase chooseDatabase(const std::string& path, Log& log);

/// Copies settings, playlist and file associations of the Access file at `path` into a new database
/// of the program's own beside it, "….db", and works on that. One that is there already is kept as
/// "….db.old-1" and so on. When it fails nothing has changed, and what chooseDatabase says is used,
/// `notConverted`.
WorkingDatabase convertDatabase(const std::string& path, Log& log);

}  // namespace tessivo
