#include "data/PrepareDatabase.h"

#include <algorithm>
#include <cstdint>
#include <exception>
#include <filesystem>
#include <string_view>
#include <system_error>
#include <vector>

#include "base/FilePath.h"
#include "base/Text.h"
#include "data/AssociationRows.h"
#include "data/DataError.h"
#include "data/DataFiles.h"
#include "data/SqliteDatabase.h"

namespace tessivo {
namespace {

struct Column {
  std::string name;
  std::string type;
};
struct Table {
  std::string name;
  std::vector<Column> columns;
};

const std::vector<Table>& tables() {
  static const std::vector<Table> kTables = {
      {"play_list",
       {{"item_order", "INTEGER"},
        {"flag_for_play_list", "TEXT"},
        {"file_name", "TEXT"},
        {"file_path", "TEXT"},
        {"is_play_item", "SMALLINT"}}},
      // The defaults are for a row that lacked the column: it reads as if never set.
      {"sys",
       {{"recycle_play", "SMALLINT default 3"},
        {"volume_value", "SMALLINT default 30"},
        {"play_ruler", "INTEGER default 2"},
        {"screen_saver", "SMALLINT default 0"},
        {"scr_sav_proc_name", "TEXT default ' '"},
        {"screen_saver_delay_minute", "INTEGER default 5"},
        {"popu_main_face_for_err", "SMALLINT default 0"},
        {"play_next_item_on_err", "SMALLINT default 0"},
        {"save_play_list", "SMALLINT default 1"},
        {"current_play_position", "INTEGER default 0"},
        {"current_play_item_len", "INTEGER default 100"}}},
      {"file_association",
       {{"app_association", "TEXT"},
        {"description_info", "TEXT"},
        {"app_id", "TEXT"},
        {"old_app_id", "TEXT"},
        {"default_app_id_1", "TEXT"},
        {"default_app_id_2", "TEXT"}}},
      {"file_association_config",
       {{"main_app_file_name", "TEXT"},
        {"main_default_ico_file_name", "TEXT"},
        {"menu_handler_guid", "TEXT"},
        {"menu_handler_name", "TEXT"}}},
  };
  return kTables;
}

bool hasColumn(const ResultSet& rows, const std::string& name) {
  return std::any_of(rows.columns.begin(), rows.columns.end(),
                     [&](const auto& column) { return toUpper(column) == toUpper(name); });
}

/// The statements that give the database what it lacks of a table. A view in its place is damage:
/// it may never end, and holds nothing that is stored.
std::vector<std::string> missingParts(Database& database, const Table& table) {
  const auto found = database.query(
      "select type from sqlite_schema where type in ('table','view')"
      " and upper(name)='" +
      toUpper(table.name) + "'");
  std::vector<std::string> statements;
  if (found.rowCount() == 0) {
    std::string columns;
    for (const auto& column : table.columns) {
      columns += (columns.empty() ? "" : ", ") + column.name + " " + column.type;
    }
    statements.push_back("create table " + table.name + "(" + columns + ")");
    return statements;
  }
  if (asText(found.cells.front()) != "table") {
    throw DataError(DataFault::damaged, table.name + " is no table");
  }
  const auto shape = database.query("select * from " + table.name + " limit 0");
  for (const auto& column : table.columns) {
    if (hasColumn(shape, column.name)) continue;
    statements.push_back("alter table " + table.name + " add column " + column.name + " " +
                         column.type);
  }
  return statements;
}

/// Adds what is missing, all of it or nothing. Returns whether anything was.
bool completeTables(Database& database) {
  std::vector<std::string> statements;
  for (const auto& table : tables()) {
    for (auto& part : missingParts(database, table)) statements.push_back(std::move(part));
  }
  if (statements.empty()) return false;
  database.begin();
  for (const auto& statement : statements) database.query(statement);
  database.commit();
  return true;
}

void create(const std::string& path) {
  SqliteDatabase database(path, SqliteDatabase::Missing::isCreated);
  completeTables(database);
  addShippedAssociations(database);
}

std::int64_t numberOf(Database& database, const std::string& pragma) {
  return asInteger<std::int64_t>(database.query("PRAGMA " + pragma).cells.at(0), 0);
}

void checkPages(const std::string& path, Database& database) {
  const auto verdict = database.query("PRAGMA quick_check(1)");
  const auto text = verdict.cells.empty() ? std::string() : asText(verdict.cells.front());
  if (text != "ok") throw DataError(DataFault::damaged, path + ": " + text);
  // A last page that is cut short reads as if zeros followed.
  const auto whole = numberOf(database, "page_count") * numberOf(database, "page_size");
  if (std::filesystem::file_size(toFilePath(path)) < static_cast<std::uintmax_t>(whole)) {
    throw DataError(DataFault::damaged, path + ": the end is missing");
  }
}

std::string oneLine(std::string text) {
  std::replace(text.begin(), text.end(), '\n', ' ');
  return text;
}

DatabaseState replace(const std::string& path, const DataError& damage, Log& log) {
  log.error("database damaged: " + oneLine(damage.what()));
  if (!canBeWritten(path)) {
    log.error("database left alone: " + path + " cannot be written");
    return DatabaseState::notWritable;
  }
  log.error("damaged database kept as " + keepAside(path, ".damaged-"));
  create(path);
  log.info("database created: " + path);
  return DatabaseState::replaced;
}

DatabaseState checkAndComplete(const std::string& path, Log& log) {
  try {
    SqliteDatabase database(path, SqliteDatabase::Missing::fails);
    checkPages(path, database);
    if (completeTables(database)) log.info("database completed with missing tables: " + path);
    if (addShippedAssociations(database)) {
      log.info("database completed with file associations: " + path);
    }
    if (canBeWritten(path)) return DatabaseState::ready;
    log.error("database cannot be written: " + path);
    return DatabaseState::notWritable;
  } catch (const DataError& error) {
    if (error.fault() != DataFault::damaged) throw;
    // The connection is closed by now, which Windows needs for the renaming.
    return replace(path, error, log);
  }
}

DatabaseState afterFailure(const std::string& path, const char* why, bool isHeld, Log& log) {
  log.error("database left alone: " + oneLine(why));
  if (!canBeWritten(path)) return DatabaseState::notWritable;
  return isHeld ? DatabaseState::leftAlone : DatabaseState::failed;
}

DatabaseState prepare(const std::string& path, Log& log) {
  std::error_code none;
  const auto file = toFilePath(path);
  if (!std::filesystem::exists(file) || std::filesystem::file_size(file, none) == 0) {
    create(path);
    log.info("database created: " + path);
    return DatabaseState::created;
  }
  if (isAccessFile(path)) {
    log.info("database left alone: " + path + " is a Microsoft Access file");
    return DatabaseState::accessFile;
  }
  return checkAndComplete(path, log);
}

}  // namespace

DatabaseState prepareDatabase(const std::string& path, Log& log) {
  try {
    return prepare(path, log);
  } catch (const DataError& error) {
    return afterFailure(path, error.what(), error.fault() == DataFault::busy, log);
  } catch (const std::exception& error) {
    return afterFailure(path, error.what(), false, log);
  }
}

}  // namespace tessivo
