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

std::string ownPath(const std::string& path) {
  return path + ".db";
}

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
  if (!isAccessFile(path)) throw DataError(DataFault::failed, path + " is none");
  const std::string own = ownPath(path);
  const std::string made = own + ".new";
  std::error_code none;
  std::filesystem::remove(toFilePath(made), none);  // of an attempt that broke off
  try {
    copyAll(*openAccess(path), made, log);
    if (exists(own)) log.info("database in the way kept as " + keepAside(own, ".old-"));
    std::filesystem::rename(toFilePath(made), toFilePath(own));
  } catch (const std::exception&) {
    std::filesystem::remove(toFilePath(made), none);
    throw;
  }
}

WorkingDatabase withoutDriver(const std::string& path, Log& log) {
  const DatabaseState state = prepareDatabase(ownPath(path), log);
  return {ownPath(path), state == DatabaseState::created ? DatabaseState::accessFile : state};
}

}  // namespace

WorkingDatabase chooseDatabase(const std::string& path, Log& log) {
  if (!isAccessFile(path)) return {path, prepareDatabase(path, log)};
  if (exists(ownPath(path))) return {ownPath(path), prepareDatabase(ownPath(path), log)};
  try {
    openAccess(path);
    log.info("database: the Access file " + path + " through its driver");
    return {path, canBeWritten(path) ? DatabaseState::accessInUse : DatabaseState::notWritable};
  } catch (const std::exception& error) {
    log.error(std::string("Access file not usable: ") + error.what());
    return withoutDriver(path, log);
  }
}

WorkingDatabase convertDatabase(const std::string& path, Log& log) {
  try {
    moveIn(path, log);
    log.info("Access file copied into " + ownPath(path));
    return {ownPath(path), DatabaseState::converted};
  } catch (const std::exception& error) {
    log.error(std::string("Access file not copied: ") + error.what());
    return {chooseDatabase(path, log).path, DatabaseState::notConverted};
  }
}

}  // namespace tessivo
