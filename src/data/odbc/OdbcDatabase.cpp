#include "data/odbc/OdbcDatabase.h"

#ifdef _WIN32
#include <windows.h>
#endif
// After windows.h, which it needs there:
#include <sqlext.h>
#include <sqlucode.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <deque>
#include <limits>
#include <optional>
#include <type_traits>

#include "base/Text.h"
#include "data/DataError.h"

namespace tessivo {
namespace {

constexpr std::size_t kChunk = 4096;        // bytes of a long value fetched at once
constexpr SQLULEN kLongestShortText = 255;  // characters, of Access

static_assert(sizeof(SQLWCHAR) == sizeof(char16_t));

SQLWCHAR* wide(std::u16string& text) {
  return reinterpret_cast<SQLWCHAR*>(text.data());
}

bool succeeded(SQLRETURN code) {
  return code == SQL_SUCCESS || code == SQL_SUCCESS_WITH_INFO;
}

/// Access's own numbers for a file that is none of Access's, and for a damaged one.
constexpr std::array<SQLINTEGER, 2> kNotUnderstood{-1028, -1206};

DataFault faultOf(const std::string& state, SQLINTEGER number) {
  if (std::ranges::count(kNotUnderstood, number) > 0) return DataFault::damaged;
  if (state == "42S02") return DataFault::noTable;
  if (state == "IM002" || state == "IM003" || state == "01000") return DataFault::accessFile;
  if (state.starts_with("08")) return DataFault::cannotOpen;
  if (state == "HYT00" || state == "HYT01" || state == "40001") return DataFault::busy;
  return DataFault::failed;
}

/// The first thing that driver or driver manager have to say.
[[noreturn]] void fail(SQLSMALLINT kind, SQLHANDLE handle, const std::string& what) {
  std::u16string state(6, u'\0');
  std::u16string text(1024, u'\0');
  SQLINTEGER number = 0;
  SQLSMALLINT length = 0;
  const SQLRETURN code = SQLGetDiagRecW(kind, handle, 1, wide(state), &number, wide(text),
                                        static_cast<SQLSMALLINT>(text.size()), &length);
  if (!succeeded(code)) throw DataError(DataFault::failed, what + ": ODBC gives no reason");
  text.resize(std::min(text.size() - 1, static_cast<std::size_t>(std::max<int>(length, 0))));
  state.resize(5);
  const std::string sqlState = toUtf8(state);
  throw DataError(faultOf(sqlState, number), what + ": " + toUtf8(text) + " (ODBC " + sqlState +
                                                 ", " + std::to_string(number) + ")");
}

/// Table and column names as both Access and SQLite take them.
std::string quoted(std::string_view identifier) {
  if (identifier.find_first_of("[]") != std::string_view::npos) {
    throw DataError(DataFault::failed, "not a name: " + std::string(identifier));
  }
  return "[" + std::string(identifier) + "]";
}

/// What is bound to a parameter must stay where it is until the statement has run.
struct Parameter {
  SQLINTEGER whole = 0;
  double number = 0;
  std::u16string text;
  std::string bytes;
  SQLLEN length = 0;
};

class Statement {
 public:
  Statement(SQLHDBC connection, std::string sql) : sql_(std::move(sql)) {
    if (!succeeded(SQLAllocHandle(SQL_HANDLE_STMT, connection, &handle_))) {
      fail(SQL_HANDLE_DBC, connection, sql_);
    }
  }
  ~Statement() { SQLFreeHandle(SQL_HANDLE_STMT, handle_); }
  Statement(const Statement&) = delete;
  Statement& operator=(const Statement&) = delete;

  void bind(const Value& value) {
    Parameter& to = parameters_.emplace_back();
    std::visit([&](const auto& held) { bindHeld(to, held); }, value);
  }
  void run() {
    std::u16string text = toUtf16(sql_);
    const SQLRETURN code =
        SQLExecDirectW(handle_, wide(text), static_cast<SQLINTEGER>(text.size()));
    if (code != SQL_NO_DATA) check(code);
  }
  SQLLEN changedRows() {
    SQLLEN rows = 0;
    check(SQLRowCount(handle_, &rows));
    return rows;
  }
  ResultSet allRows() {
    ResultSet result;
    SQLSMALLINT width = 0;
    check(SQLNumResultCols(handle_, &width));
    std::vector<SQLSMALLINT> types;
    for (SQLUSMALLINT column = 1; column <= width; ++column) describe(column, result, types);
    while (width > 0) {
      const SQLRETURN code = SQLFetch(handle_);
      if (code == SQL_NO_DATA) break;
      check(code);
      for (SQLUSMALLINT column = 1; column <= width; ++column) {
        result.cells.push_back(cell(column, types[column - 1U]));
      }
    }
    return result;
  }

 private:
  void check(SQLRETURN code) {
    if (!succeeded(code)) fail(SQL_HANDLE_STMT, handle_, sql_);
  }

  void bindHeld(Parameter& to, std::monostate) {
    to.length = SQL_NULL_DATA;
    bindParameter(to, SQL_C_CHAR, SQL_VARCHAR, 1, nullptr, 0);
  }
  void bindHeld(Parameter& to, std::int64_t held) {
    if (held < std::numeric_limits<SQLINTEGER>::min() ||
        held > std::numeric_limits<SQLINTEGER>::max()) {
      return bindHeld(to, static_cast<double>(held));  // Access has no larger whole numbers
    }
    to.whole = static_cast<SQLINTEGER>(held);
    bindParameter(to, SQL_C_SLONG, SQL_INTEGER, 10, &to.whole, sizeof to.whole);
  }
  void bindHeld(Parameter& to, double held) {
    to.number = held;
    bindParameter(to, SQL_C_DOUBLE, SQL_DOUBLE, 15, &to.number, sizeof to.number);
  }
  void bindHeld(Parameter& to, const std::string& held) {
    to.text = toUtf16(held);
    const auto bytes = static_cast<SQLLEN>(to.text.size() * sizeof(char16_t));
    const SQLULEN characters = std::max<SQLULEN>(1, to.text.size());
    to.length = bytes;
    bindParameter(to, SQL_C_WCHAR, characters > kLongestShortText ? SQL_WLONGVARCHAR : SQL_WVARCHAR,
                  characters, to.text.data(), bytes);
  }
  void bindHeld(Parameter& to, const Blob& held) {
    to.bytes = held.bytes;
    to.length = static_cast<SQLLEN>(to.bytes.size());
    bindParameter(to, SQL_C_BINARY, SQL_LONGVARBINARY, std::max<SQLULEN>(1, to.bytes.size()),
                  to.bytes.data(), to.length);
  }
  void bindParameter(Parameter& to, SQLSMALLINT cType, SQLSMALLINT sqlType, SQLULEN size,
                     SQLPOINTER data, SQLLEN bytes) {
    const auto number = static_cast<SQLUSMALLINT>(parameters_.size());
    check(SQLBindParameter(handle_, number, SQL_PARAM_INPUT, cType, sqlType, size, 0, data, bytes,
                           &to.length));
  }

  void describe(SQLUSMALLINT column, ResultSet& result, std::vector<SQLSMALLINT>& types) {
    std::u16string name(256, u'\0');
    SQLSMALLINT length = 0;
    SQLSMALLINT type = 0;
    SQLULEN size = 0;
    SQLSMALLINT digits = 0;
    SQLSMALLINT nullable = 0;
    check(SQLDescribeColW(handle_, column, wide(name), static_cast<SQLSMALLINT>(name.size()),
                          &length, &type, &size, &digits, &nullable));
    name.resize(std::min(name.size() - 1, static_cast<std::size_t>(std::max<int>(length, 0))));
    result.columns.push_back(toUtf8(name));
    types.push_back(type);
  }

  Value cell(SQLUSMALLINT column, SQLSMALLINT type) {
    switch (type) {
      case SQL_BIT:
      case SQL_TINYINT:
      case SQL_SMALLINT:
      case SQL_INTEGER:
        return number<std::int64_t, SQLINTEGER>(column, SQL_C_SLONG);
      case SQL_BIGINT:  // Access has none, and its driver knows no C type for it
        return number<std::int64_t, SQLBIGINT>(column, SQL_C_SBIGINT);
      case SQL_REAL:
      case SQL_FLOAT:
      case SQL_DOUBLE:
        return number<double, double>(column, SQL_C_DOUBLE);
      case SQL_BINARY:
      case SQL_VARBINARY:
      case SQL_LONGVARBINARY: {
        const auto bytes = pieces(column, SQL_C_BINARY, 0);
        return bytes ? Value(Blob{*bytes}) : Value();
      }
      default: {
        const auto bytes = pieces(column, SQL_C_WCHAR, sizeof(char16_t));
        if (!bytes) return {};
        std::u16string text(bytes->size() / sizeof(char16_t), u'\0');
        std::copy_n(bytes->data(), text.size() * sizeof(char16_t),
                    reinterpret_cast<char*>(text.data()));
        return toUtf8(text);
      }
    }
  }
  template <typename Number, typename Fetched>
  Value number(SQLUSMALLINT column, SQLSMALLINT cType) {
    Fetched value = 0;
    SQLLEN length = 0;
    check(SQLGetData(handle_, column, cType, &value, sizeof value, &length));
    if (length == SQL_NULL_DATA) return {};
    return static_cast<Number>(value);
  }
  /// A value of any length, without the terminator that each piece has; nothing for Null.
  std::optional<std::string> pieces(SQLUSMALLINT column, SQLSMALLINT cType,
                                    std::size_t terminator) {
    std::string all;
    std::array<char, kChunk> piece{};
    while (true) {
      SQLLEN length = 0;
      const SQLRETURN code =
          SQLGetData(handle_, column, cType, piece.data(), piece.size(), &length);
      if (code == SQL_NO_DATA) return all;
      check(code);
      if (length == SQL_NULL_DATA) return std::nullopt;
      const std::size_t room = piece.size() - terminator;
      const bool isLast = length != SQL_NO_TOTAL && static_cast<std::size_t>(length) <= room;
      all.append(piece.data(), isLast ? static_cast<std::size_t>(length) : room);
      if (isLast) return all;
    }
  }

  std::string sql_;
  SQLHSTMT handle_ = SQL_NULL_HSTMT;
  std::deque<Parameter> parameters_;  // their addresses stay
};

}  // namespace

/// The connection itself. Every statement commits by itself unless a transaction is open.
class OdbcDatabase::Connection {
 public:
  explicit Connection(const std::string& connectionString) {
    if (!succeeded(SQLAllocHandle(SQL_HANDLE_ENV, SQL_NULL_HANDLE, &environment_))) {
      throw DataError(DataFault::accessFile, "ODBC cannot be used");
    }
    try {
      connect(connectionString);
    } catch (...) {
      release();
      throw;
    }
  }
  ~Connection() { release(); }
  Connection(const Connection&) = delete;
  Connection& operator=(const Connection&) = delete;

  SQLHDBC handle() const { return connection_; }
  void commitByItself(bool byItself) {
    const SQLULEN mode = byItself ? SQL_AUTOCOMMIT_ON : SQL_AUTOCOMMIT_OFF;
    check(SQLSetConnectAttrW(connection_, SQL_ATTR_AUTOCOMMIT, asPointer(mode), SQL_IS_UINTEGER),
          "commit mode");
  }
  void commit() { check(SQLEndTran(SQL_HANDLE_DBC, connection_, SQL_COMMIT), "commit"); }
  /// Nobody asks for the outcome: the connection's end would do it, too.
  void rollBack() {
    SQLEndTran(SQL_HANDLE_DBC, connection_, SQL_ROLLBACK);
    SQLSetConnectAttrW(connection_, SQL_ATTR_AUTOCOMMIT, asPointer(SQL_AUTOCOMMIT_ON),
                       SQL_IS_UINTEGER);
  }

 private:
  static SQLPOINTER asPointer(SQLULEN number) {
    return reinterpret_cast<SQLPOINTER>(static_cast<std::uintptr_t>(number));
  }
  void check(SQLRETURN code, const std::string& what) {
    if (!succeeded(code)) fail(SQL_HANDLE_DBC, connection_, what);
  }
  void connect(const std::string& connectionString) {
    SQLSetEnvAttr(environment_, SQL_ATTR_ODBC_VERSION, asPointer(SQL_OV_ODBC3), 0);
    if (!succeeded(SQLAllocHandle(SQL_HANDLE_DBC, environment_, &connection_))) {
      fail(SQL_HANDLE_ENV, environment_, connectionString);
    }
    std::u16string text = toUtf16(connectionString);
    check(SQLDriverConnectW(connection_, nullptr, wide(text), static_cast<SQLSMALLINT>(text.size()),
                            nullptr, 0, nullptr, SQL_DRIVER_NOPROMPT),
          connectionString);
    connected_ = true;
  }
  /// What has not been committed is rolled back.
  void release() {
    if (connected_) {
      SQLEndTran(SQL_HANDLE_DBC, connection_, SQL_ROLLBACK);
      SQLDisconnect(connection_);
    }
    if (connection_ != SQL_NULL_HDBC) SQLFreeHandle(SQL_HANDLE_DBC, connection_);
    SQLFreeHandle(SQL_HANDLE_ENV, environment_);
  }

  SQLHENV environment_ = SQL_NULL_HENV;
  SQLHDBC connection_ = SQL_NULL_HDBC;
  bool connected_ = false;
};

OdbcDatabase::OdbcDatabase(const std::string& connectionString)
    : connection_(std::make_unique<Connection>(connectionString)) {}
OdbcDatabase::~OdbcDatabase() = default;

ResultSet OdbcDatabase::query(const std::string& sql) {
  Statement statement(connection_->handle(), sql);
  statement.run();
  ResultSet result = statement.allRows();
  result.table = tableOf(sql);
  return result;
}

ResultSet OdbcDatabase::openTable(const std::string& table) {
  ResultSet result = query("select * from " + quoted(table));
  result.table = table;
  return result;
}

void OdbcDatabase::insertRow(const std::string& table, const std::vector<FieldValue>& fields) {
  std::string names;
  std::string marks;
  for (const auto& field : fields) {
    names += (names.empty() ? "" : ",") + quoted(field.column);
    marks += marks.empty() ? "?" : ",?";
  }
  Statement statement(connection_->handle(),
                      "insert into " + quoted(table) + " (" + names + ") values (" + marks + ")");
  for (const auto& field : fields) statement.bind(*field.value);
  statement.run();
}

void OdbcDatabase::updateRow(const std::string& table, const std::vector<FieldValue>& changes,
                             const std::vector<FieldValue>& original) {
  std::string sets;
  for (const auto& field : changes) sets += (sets.empty() ? "" : ",") + quoted(field.column) + "=?";
  std::string reads;
  for (const auto& field : original) {
    reads += (reads.empty() ? "" : " and ") + quoted(field.column) +
             (isNull(*field.value) ? " is null" : "=?");
  }
  Statement statement(connection_->handle(),
                      "update " + quoted(table) + " set " + sets + " where " + reads);
  for (const auto& field : changes) statement.bind(*field.value);
  for (const auto& field : original) {
    if (!isNull(*field.value)) statement.bind(*field.value);
  }
  inTransaction([&] {
    statement.run();
    if (statement.changedRows() != 1) {
      throw DataError(DataFault::failed,
                      "not one row to change in " + table + " is as it was read");
    }
  });
}

void OdbcDatabase::begin() {
  connection_->commitByItself(false);
  inTransaction_ = true;
}

void OdbcDatabase::commit() {
  connection_->commit();
  connection_->commitByItself(true);
  inTransaction_ = false;
}

/// What fails is taken back: within a transaction when that is, else at once.
template <typename Change>
void OdbcDatabase::inTransaction(Change change) {
  if (inTransaction_) return change();
  begin();
  try {
    change();
    commit();
  } catch (...) {
    inTransaction_ = false;
    connection_->rollBack();
    throw;
  }
}

}  // namespace tessivo
