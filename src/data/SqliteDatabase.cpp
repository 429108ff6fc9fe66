#include "data/SqliteDatabase.h"

#include <sqlite3.h>

#include <string_view>
#include <type_traits>

#include "data/DataError.h"

namespace tessivo {
namespace {

constexpr int kBusyMs = 40;

DataFault faultOf(int code) {
  switch (code & 0xff) {
    case SQLITE_CORRUPT:
    case SQLITE_NOTADB:
      return DataFault::damaged;
    case SQLITE_BUSY:
    case SQLITE_LOCKED:
      return DataFault::busy;
    case SQLITE_READONLY:
      return DataFault::readOnly;
    case SQLITE_CANTOPEN:
    case SQLITE_PERM:
      return DataFault::cannotOpen;
    default:
      return DataFault::failed;
  }
}

std::string quoted(std::string_view identifier) {
  std::string text = "\"";
  for (const char c : identifier) {
    if (c == '"') text += '"';
    text += c;
  }
  return text + '"';
}

Value columnOf(sqlite3_stmt* row, int column) {
  switch (sqlite3_column_type(row, column)) {
    case SQLITE_INTEGER:
      return std::int64_t{sqlite3_column_int64(row, column)};
    case SQLITE_FLOAT:
      return sqlite3_column_double(row, column);
    case SQLITE_NULL:
      return {};
    default:
      break;
  }
  const bool isText = sqlite3_column_type(row, column) == SQLITE_TEXT;
  const auto* start = static_cast<const char*>(sqlite3_column_blob(row, column));
  const auto length = static_cast<std::size_t>(sqlite3_column_bytes(row, column));
  std::string bytes = start ? std::string(start, length) : std::string();
  if (isText) return bytes;
  return Blob{std::move(bytes)};
}

}  // namespace

void SqliteDatabase::Close::operator()(sqlite3* db) const {
  sqlite3_close(db);
}
void SqliteDatabase::Close::operator()(sqlite3_stmt* statement) const {
  sqlite3_finalize(statement);
}

SqliteDatabase::SqliteDatabase(const std::string& path, Missing missing) : path_(path) {
  int flags = SQLITE_OPEN_READWRITE;
  if (missing == Missing::isCreated) flags |= SQLITE_OPEN_CREATE;
  sqlite3* opened = nullptr;
  const int code = sqlite3_open_v2(path.c_str(), &opened, flags, nullptr);
  db_.reset(opened);
  if (code != SQLITE_OK) fail("cannot open the database");
  sqlite3_extended_result_codes(opened, 1);
  sqlite3_busy_timeout(opened, kBusyMs);
  // The file may come from anywhere: it must not be able to do more than hold rows.
  sqlite3_db_config(opened, SQLITE_DBCONFIG_DEFENSIVE, 1, nullptr);
  sqlite3_db_config(opened, SQLITE_DBCONFIG_TRUSTED_SCHEMA, 0, nullptr);
  run("PRAGMA page_size = 16384");  // of a file that is about to be created
  run("PRAGMA cell_size_check = ON");
  run("PRAGMA journal_mode = DELETE");
  run("PRAGMA synchronous = EXTRA");
  run("PRAGMA temp_store = MEMORY");
}

ResultSet SqliteDatabase::query(const std::string& sql) {
  const auto statement = prepare(sql);
  ResultSet result;
  if (sqlite3_stmt_readonly(statement.get())) {
    result = allRows(statement.get());
  } else {
    inTransaction([&] { result = allRows(statement.get()); });
  }
  result.table = tableOf(sql);
  return result;
}

ResultSet SqliteDatabase::openTable(const std::string& table) {
  auto result = query("select * from " + quoted(table));
  result.table = table;
  return result;
}

void SqliteDatabase::insertRow(const std::string& table, const std::vector<FieldValue>& fields) {
  std::string names;
  std::string marks;
  for (const auto& field : fields) {
    names += (names.empty() ? "" : ",") + quoted(field.column);
    marks += marks.empty() ? "?" : ",?";
  }
  const auto sql = fields.empty()
                       ? "insert into " + quoted(table) + " default values"
                       : "insert into " + quoted(table) + "(" + names + ") values(" + marks + ")";
  if (sql != insertSql_ || !insert_) {
    insertSql_.clear();
    insert_ = prepare(sql);
    insertSql_ = sql;
  }
  int index = 0;
  for (const auto& field : fields) bind(insert_.get(), ++index, *field.value);
  inTransaction([this] { step(insert_.get()); });
  sqlite3_clear_bindings(insert_.get());
}

void SqliteDatabase::updateRow(const std::string& table, const std::vector<FieldValue>& changes,
                               const std::vector<FieldValue>& original) {
  std::string sets;
  for (const auto& field : changes) sets += (sets.empty() ? "" : ",") + quoted(field.column) + "=?";
  std::string reads;
  for (const auto& field : original) {
    reads += (reads.empty() ? "" : " and ") + quoted(field.column) + " is ?";
  }
  const auto name = quoted(table);
  const auto statement =
      prepare("update " + name + " set " + sets + " where rowid=(select rowid from " + name +
              " where " + reads + " order by rowid limit 1)");
  int index = 0;
  for (const auto& field : changes) bind(statement.get(), ++index, *field.value);
  for (const auto& field : original) bind(statement.get(), ++index, *field.value);
  inTransaction([&] {
    step(statement.get());
    if (sqlite3_changes(db_.get()) != 1) {
      throw DataError(DataFault::failed,
                      path_ + ": the row to change in " + table + " is no longer as it was read");
    }
  });
}

void SqliteDatabase::begin() {
  run("BEGIN EXCLUSIVE");
  inTransaction_ = true;
}

void SqliteDatabase::commit() {
  run("COMMIT");
  inTransaction_ = false;
}

/// Nothing is lost when this fails: closing rolls back as well.
void SqliteDatabase::rollback() {
  inTransaction_ = false;
  if (sqlite3_get_autocommit(db_.get()) == 0) {
    sqlite3_exec(db_.get(), "ROLLBACK", nullptr, nullptr, nullptr);
  }
}

template <typename Change>
void SqliteDatabase::inTransaction(Change change) {
  if (inTransaction_) return change();
  begin();
  try {
    change();
    commit();
  } catch (...) {
    rollback();
    throw;
  }
}

SqliteDatabase::Statement SqliteDatabase::prepare(const std::string& sql) {
  sqlite3_stmt* prepared = nullptr;
  const char* rest = nullptr;
  const int code = sqlite3_prepare_v2(db_.get(), sql.c_str(), -1, &prepared, &rest);
  Statement statement(prepared);
  if (code != SQLITE_OK) fail(sql);
  if (!statement || std::string_view(rest).find_first_not_of(" \t\r\n;") != std::string::npos) {
    throw DataError(DataFault::failed, path_ + ": not exactly one statement: " + sql);
  }
  return statement;
}

/// True while there is a row. A statement that has ended or failed is ready to run again.
bool SqliteDatabase::step(sqlite3_stmt* statement) {
  const int code = sqlite3_step(statement);
  if (code == SQLITE_ROW) return true;
  if (code == SQLITE_DONE) {
    sqlite3_reset(statement);
    return false;
  }
  const std::string sql = sqlite3_sql(statement);
  sqlite3_reset(statement);
  fail(sql);
}

void SqliteDatabase::run(const char* sql) {
  const auto statement = prepare(sql);
  while (step(statement.get())) {
  }
}

ResultSet SqliteDatabase::allRows(sqlite3_stmt* statement) {
  ResultSet result;
  const int width = sqlite3_column_count(statement);
  for (int i = 0; i < width; ++i) result.columns.emplace_back(sqlite3_column_name(statement, i));
  while (step(statement)) {
    for (int i = 0; i < width; ++i) result.cells.push_back(columnOf(statement, i));
  }
  return result;
}

void SqliteDatabase::bind(sqlite3_stmt* statement, int index, const Value& value) {
  const int code = std::visit(
      [&](const auto& held) {
        using Held = std::decay_t<decltype(held)>;
        if constexpr (std::is_same_v<Held, std::int64_t>) {
          return sqlite3_bind_int64(statement, index, held);
        } else if constexpr (std::is_same_v<Held, double>) {
          return sqlite3_bind_double(statement, index, held);
        } else if constexpr (std::is_same_v<Held, std::string>) {
          return sqlite3_bind_text64(statement, index, held.data(), held.size(), SQLITE_STATIC,
                                     SQLITE_UTF8);
        } else if constexpr (std::is_same_v<Held, Blob>) {
          return sqlite3_bind_blob64(statement, index, held.bytes.data(), held.bytes.size(),
                                     SQLITE_STATIC);
        } else {
          return sqlite3_bind_null(statement, index);
        }
      },
      value);
  if (code != SQLITE_OK) fail(sqlite3_sql(statement));
}

void SqliteDatabase::fail(const std::string& what) {
  const int code = db_ ? sqlite3_extended_errcode(db_.get()) : SQLITE_NOMEM;
  const char* reason = db_ ? sqlite3_errmsg(db_.get()) : sqlite3_errstr(code);
  const auto fault = faultOf(code);
  throw DataError(fault,
                  path_ + ": " + what + ": " + reason + " (SQLite " + std::to_string(code) +
                      (fault == DataFault::busy ? ", another program holds the file)" : ")"));
}

}  // namespace tessivo
