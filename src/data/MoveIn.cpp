#include "data/MoveIn.h"

#include <array>
#include <exception>
#include <filesystem>
#include <memory>
#include <system_error>
#include <vector>

#include "base/FilePath.h"
#include "base/Text.h"
#include "data/DataError.h"
#include "data/DataFiles.h"
#include "data/SqliteDatabase.h"

namespace tessivo {
namespace {

constexpr std::array kTables{"sys", "play_list", "file_association", "file_association_config"};

bool exists(const std::string& path) {
  std::error_code error;
  return std::filesystem::exists(toFilePath(path), error);
}

/// Throws DataError when the driver is missing or cannot read what it finds.
std::shared_ptr<Database> openAccess(const std::string& path) {
  auto database = openDatabase(connectionStringFor(path));
  for (const char* const table : kTables) {
    database->query("select * from " + std::string(table) + " where 1=0");
  }
  return database;
}

/// The columns of `rows` that the own table has, too.
std::vector<std::size_t> sharedColumns(const ResultSet& rows, const ResultSet& own) {
  std::vector<std::size_t> shared;
  for (std::size_t i = 0; i < rows.columns.size(); ++i) {
    for (const std::string& name : own.columns) {
      if (toUpper(name) == toUpper(rows.columns[i])) shared.push_back(i);
    }
  }
  return shared;
}

/// An empty table leaves what a new database brings along.
void copyTable(const std::string& table, Database& from, Database& to) {
  const ResultSet rows = from.openTable(table);
  if (rows.rowCount() == 0) return;
  const auto shared = sharedColumns(rows, to.openTable(table));
  to.query("delete from " + table);
  std::vector<FieldValue> fields;
  for (std::size_t row = 0; row < rows.rowCount(); ++row) {
    fields.clear();
    for (const std::size_t column : shared) {
      fields.push_back({rows.columns[column], &rows.cells[row * rows.columns.size() + column]});
    }
    to.insertRow(table, fields);
  }
}

void copyAll(Database& from, const std::string& to, Log& log) {
  if (prepareDatabase(to, log) != DatabaseState::created) {
    throw DataError(DataFault::cannotOpen, to + " cannot be made");
  }
  SqliteDatabase own(to, SqliteDatabase::Missing::fails);
  own.begin();
  for (const char* const table : kTables) copyTable(table, from, own);
  own.commit();
}

/// Under another name first, so that a failure in the middle leaves no half a database.
void moveIn(const std::string& path, Log& log) {
  if (!isAccessFile(path)) throw DataError(DataFault::failed, path + " is no Access file");
  const std::string own = ownPathBeside(path);
  const std::string made = own + ".new";
  std::error_code none;
  std::filesystem::remove(toFilePath(made), none);  // of an attempt that broke off
  try {
    copyAll(*openAccess(path), made, log);
    const std::string kept = putInPlace(made, own, ".old-");
    if (!kept.empty()) log.info("database in the way kept as " + kept);
  } catch (const std::exception&) {
    std::filesystem::remove(toFilePath(made), none);
    throw;
  }
}

/// A fault of a file that will not be read here tomorrow either.
bool isLasting(DataFault fault) {
  return fault == DataFault::accessFile || fault == DataFault::damaged ||
         fault == DataFault::noTable;
}

WorkingDatabase ownDatabase(const std::string& path, Log& log) {
  log.info("database: the own one " + ownPathBeside(path));
  return {ownPathBeside(path), prepareDatabase(ownPathBeside(path), log)};
}

WorkingDatabase besideAccessFile(const std::string& path, Log& log) {
  WorkingDatabase own = ownDatabase(path, log);
  if (own.state == DatabaseState::created) own.state = DatabaseState::accessFile;
  return own;
}

WorkingDatabase accessDatabase(const std::string& path, Log& log) {
  try {
    openAccess(path);
    log.info("database: the Access file " + path + " through its driver");
    return {path, canBeWritten(path) ? DatabaseState::accessInUse : DatabaseState::notWritable};
  } catch (const DataError& error) {
    log.error(std::string("Access file not usable: ") + error.what());
    if (isLasting(error.fault())) return besideAccessFile(path, log);
    return {path, DatabaseState::accessHeld};
  }
}

}  // namespace

std::string ownPathBeside(const std::string& path) {
  return path + ".db";
}

WorkingDatabase chooseDatabase(const std::string& path, Log& log) {
  const bool isAccess = isAccessFile(path);
  if (exists(ownPathBeside(path)) && (isAccess || !holdsSomething(path))) {
    return ownDatabase(path, log);
  }
  if (isAccess) return accessDatabase(path, log);
  return {path, prepareDatabase(path, log)};
}

WorkingDatabase convertDatabase(const std::string& path, Log& log) {
  try {
    moveIn(path, log);
    log.info("Access file copied into " + ownPathBeside(path));
    return {ownPathBeside(path), DatabaseState::converted};
  } catch (const std::exception& error) {
    log.error(std::string("Access file not copied: ") + error.what());
    WorkingDatabase database = chooseDatabase(path, log);
    database.notConverted = true;
    return database;
  }
}

}  // namespace tessivo
