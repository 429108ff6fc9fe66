// An ODBC driver for tests, to be registered under the name of Access's: the SQLite driver, but
// that it takes the file from DBQ as Access's does, finds the rows in a database beside it
// ("FILE.rows"), and says of a table that is missing what Access's says. "FILE.calls" gets a line
// for each connection, bound parameter and end of a transaction. Each line of "FILE.refuses",
// "mdb|accdb STATE NUMBER", is a connection that the driver of that name refuses with that error.
// All other functions are those of the SQLite driver, which this library is linked to.
#include <dlfcn.h>
#include <sqlext.h>

#include <algorithm>
#include <cstring>
#include <fstream>
#include <string>

namespace {

std::string currentFile;
/// The error of the connection that has been refused, until it has been asked for.
std::string refusalState;
SQLINTEGER refusalNumber = 0;

template <typename Function>
Function* next(const char* name) {
  static void* const driver = dlopen(TESSIVO_SQLITE_DRIVER, RTLD_NOW);
  return reinterpret_cast<Function*>(dlsym(driver, name));
}

void note(const std::string& line) {
  std::ofstream(currentFile + ".calls", std::ios::app) << line << '\n';
}

bool isRefused(const std::string& driver) {
  std::ifstream refusals(currentFile + ".refuses");
  std::string name;
  while (refusals >> name >> refusalState >> refusalNumber) {
    if (name == driver) return true;
  }
  refusalState.clear();
  return false;
}

void answer(const char* state, SQLCHAR* stateOut, SQLINTEGER number, SQLINTEGER* numberOut) {
  std::memcpy(stateOut, state, 6);
  if (numberOut) *numberOut = number;
}

/// The error of a refused connection, once. False when there is none.
bool saysRefusal(SQLCHAR* state, SQLINTEGER* number, SQLCHAR* text, SQLSMALLINT room,
                 SQLSMALLINT* length) {
  if (refusalState.empty()) return false;
  const std::string reason = "refused with " + std::to_string(refusalNumber);
  answer(refusalState.c_str(), state, refusalNumber, number);
  std::strncpy(reinterpret_cast<char*>(text), reason.c_str(), static_cast<std::size_t>(room));
  if (length) *length = static_cast<SQLSMALLINT>(reason.size());
  refusalState.clear();
  return true;
}

SQLRETURN asAccessSays(SQLRETURN code, SQLCHAR* state, SQLINTEGER* number, const SQLCHAR* text) {
  const bool said = code == SQL_SUCCESS || code == SQL_SUCCESS_WITH_INFO;
  if (said && std::strstr(reinterpret_cast<const char*>(text), "no such table") != nullptr) {
    answer("42S02", state, -1305, number);
  }
  return code;
}

}  // namespace

extern "C" {

SQLRETURN SQL_API SQLDriverConnect(SQLHDBC connection, SQLHWND window, SQLCHAR* text,
                                   SQLSMALLINT length, SQLCHAR* out, SQLSMALLINT room,
                                   SQLSMALLINT* outLength, SQLUSMALLINT completion) {
  const auto* const start = reinterpret_cast<const char*>(text);
  const std::string given = length == SQL_NTS ? std::string(start) : std::string(start, length);
  const std::string key = "DBQ=";
  const auto end = given.rfind(";DRIVER=");
  if (given.rfind(key, 0) != 0 || end == std::string::npos) return SQL_ERROR;
  std::string file = given.substr(key.size(), end - key.size());
  if (file.rfind("Z:\\", 0) == 0) {  // called from Wine
    file.erase(0, 2);
    std::replace(file.begin(), file.end(), '\\', '/');
  }
  currentFile = file;
  const std::string driver = given.find("accdb", end) == std::string::npos ? "mdb" : "accdb";
  note("connect " + driver);
  if (isRefused(driver)) return SQL_ERROR;
  std::string passed = "Database=" + file + ".rows;Timeout=50;";
  return next<decltype(SQLDriverConnect)>("SQLDriverConnect")(
      connection, window, reinterpret_cast<SQLCHAR*>(passed.data()),
      static_cast<SQLSMALLINT>(passed.size()), out, room, outLength, completion);
}

SQLRETURN SQL_API SQLGetDiagRec(SQLSMALLINT kind, SQLHANDLE handle, SQLSMALLINT record,
                                SQLCHAR* state, SQLINTEGER* number, SQLCHAR* text, SQLSMALLINT room,
                                SQLSMALLINT* length) {
  if (kind == SQL_HANDLE_DBC && saysRefusal(state, number, text, room, length)) return SQL_SUCCESS;
  const SQLRETURN code = next<decltype(SQLGetDiagRec)>("SQLGetDiagRec")(kind, handle, record, state,
                                                                        number, text, room, length);
  return asAccessSays(code, state, number, text);
}

/// What the driver manager of Linux asks instead.
SQLRETURN SQL_API SQLError(SQLHENV environment, SQLHDBC connection, SQLHSTMT statement,
                           SQLCHAR* state, SQLINTEGER* number, SQLCHAR* text, SQLSMALLINT room,
                           SQLSMALLINT* length) {
  if (connection && !statement && saysRefusal(state, number, text, room, length))
    return SQL_SUCCESS;
  const SQLRETURN code = next<decltype(SQLError)>("SQLError")(environment, connection, statement,
                                                              state, number, text, room, length);
  return asAccessSays(code, state, number, text);
}

SQLRETURN SQL_API SQLBindParameter(SQLHSTMT statement, SQLUSMALLINT number, SQLSMALLINT direction,
                                   SQLSMALLINT cType, SQLSMALLINT sqlType, SQLULEN size,
                                   SQLSMALLINT digits, SQLPOINTER data, SQLLEN room,
                                   SQLLEN* length) {
  note("bind " + std::to_string(number) + ": C type " + std::to_string(cType) + ", SQL type " +
       std::to_string(sqlType) + ", size " + std::to_string(size) + ", length " +
       std::to_string(*length));
  return next<decltype(SQLBindParameter)>("SQLBindParameter")(
      statement, number, direction, cType, sqlType, size, digits, data, room, length);
}

SQLRETURN SQL_API SQLEndTran(SQLSMALLINT kind, SQLHANDLE handle, SQLSMALLINT how) {
  note(how == SQL_COMMIT ? "commit" : "rollback");
  return next<decltype(SQLEndTran)>("SQLEndTran")(kind, handle, how);
}

}  // extern "C"
