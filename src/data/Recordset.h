#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "data/Database.h"

namespace tessivo {

enum class CommandType { text, table };

/// Rows of a database with a cursor, and the only way to write them. The rows are a client-side,
/// static picture: what others change later does not show. Locking is optimistic: a changed row is
/// written back only if it still reads as it was fetched.
///
/// Rows and pages count from 1. Field names are compared without regard to case. Everything that
/// cannot be done (no current row, no such field or page, a failing database) throws DataError.
/// An open recordset keeps its connection alive.
class Recordset {
 public:
  /// absolutePosition and absolutePage before the first and after the last row.
  static constexpr std::int32_t kAtBof = -2;
  static constexpr std::int32_t kAtEof = -3;

  /// Runs the SQL text or opens the table of that name. A statement that brings back no rows (a
  /// delete) gives a recordset without fields.
  Recordset(std::shared_ptr<Database> connection, const std::string& source,
            CommandType type = CommandType::text);

  /// For opening another recordset on the same connection, or committing it; null once closed.
  const std::shared_ptr<Database>& connection() const { return connection_; }

  /// Before the first row and after the last; both when there is no row.
  bool bof() const;
  bool eof() const;
  /// Moving writes a pending edit first, as update does.
  void moveFirst();
  void moveLast();
  void moveNext();      ///< fails at eof
  void movePrevious();  ///< fails at bof

  std::int32_t recordCount() const;
  std::int32_t absolutePosition() const;
  void setAbsolutePosition(std::int32_t position);
  /// 10 unless set; at least 1.
  std::int32_t pageSize() const { return pageSize_; }
  void setPageSize(std::int32_t rows);
  std::int32_t pageCount() const;
  /// The page of the current row; set, the first row of that page becomes current.
  std::int32_t absolutePage() const;
  void setAbsolutePage(std::int32_t page);

  /// The field of the current row, with what setValue has given it.
  const Value& value(std::string_view field) const;
  /// Begins or continues the edit of the current or new row; nothing is written yet.
  void setValue(std::string_view field, Value value);
  /// Begins a new row whose fields are Null; it becomes current, and the last.
  void addNew();
  bool editing() const { return !edit_.empty(); }
  /// Writes the pending edit, if any. When that fails the edit stays pending.
  void update();
  /// Under optimistic locking at most one row is pending, so this is update.
  void updateBatch() { update(); }

  /// Drops a pending edit and lets go of rows and connection; again is harmless.
  void close();

 private:
  std::size_t columnOf(std::string_view field) const;
  std::size_t currentRow() const;
  void requireOpen() const;
  void beginEdit();
  void writeNewRow();
  void writeChangedRow();

  std::shared_ptr<Database> connection_;
  ResultSet rows_;
  std::int64_t current_ = 0;  ///< -1 at bof, the row count at eof
  std::int32_t pageSize_ = 10;
  bool adding_ = false;
  std::vector<std::optional<Value>> edit_;  ///< by column; empty when no edit is pending
};

}  // namespace tessivo
