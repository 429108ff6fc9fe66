#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "data/Value.h"

namespace tessivo {

/// What a statement brought back: a complete picture of the rows, independent of the database.
struct ResultSet {
  std::string table;  ///< the table that the rows come from; "" when they cannot be written back
  std::vector<std::string> columns;
  std::vector<Value> cells;  ///< row after row

  std::size_t rowCount() const { return columns.empty() ? 0 : cells.size() / columns.size(); }
};

/// A field of a row that is about to be written. Both parts belong to the caller.
struct FieldValue {
  std::string_view column;
  const Value* value;
};

/// One open connection, the seam between recordsets and a database engine. Every operation throws
/// DataError. What is not committed when the connection goes is rolled back.
class Database {
 public:
  virtual ~Database() = default;

  /// Runs one statement. One that changes the database is committed at once, unless a transaction
  /// is open.
  virtual ResultSet query(const std::string& sql) = 0;
  /// All rows of a table.
  virtual ResultSet openTable(const std::string& table) = 0;

  /// Appends a row, committed at once unless a transaction is open.
  virtual void insertRow(const std::string& table, const std::vector<FieldValue>& fields) = 0;
  /// Changes the one row that still reads `original`; fails when no row does (somebody else has
  /// changed it), through a driver also when more than one does. Committed at once unless a
  /// transaction is open.
  virtual void updateRow(const std::string& table, const std::vector<FieldValue>& changes,
                         const std::vector<FieldValue>& original) = 0;

  /// From here to commit() all changes count together or not at all. Takes the database for
  /// itself, so that neither a write nor the commit has to wait later.
  virtual void begin() = 0;
  virtual void commit() = 0;
};

/// The table of a "select * from table …"; "" for any other statement.
std::string tableOf(std::string_view sql);

/// "DBQ=" + path + the driver's name.
std::string connectionStringFor(const std::string& path);

/// Opens the file that the connection string names, which must exist. An Access file is opened
/// through its ODBC driver, of that name or of the newer one, whichever takes it. Throws DataError:
/// DataFault::accessFile, there is no driver for it; damaged, no driver understands it.
std::shared_ptr<Database> openDatabase(const std::string& connectionString);

}  // namespace tessivo
