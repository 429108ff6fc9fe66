// An ODBC driver for tests, to be registered under the name of Access's: the SQLite driver, but
// that it takes the file from DBQ as Access's does, and finds the rows in a database beside it. All
// other functions are those of the SQLite driver, which this library is linked to.
#include <dlfcn.h>
#include <sqlext.h>

#include <algorithm>
#include <string>

extern "C" SQLRETURN SQL_API SQLDriverConnect(SQLHDBC connection, SQLHWND window, SQLCHAR* text,
                                              SQLSMALLINT length, SQLCHAR* out, SQLSMALLINT room,
                                              SQLSMALLINT* outLength, SQLUSMALLINT completion) {
  using Connect = decltype(&SQLDriverConnect);
  static const auto next =
      reinterpret_cast<Connect>(dlsym(dlopen(TESSIVO_SQLITE_DRIVER, RTLD_NOW), "SQLDriverConnect"));
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
  std::string passed = "Database=" + file + ".rows;Timeout=50;";
  return next(connection, window, reinterpret_cast<SQLCHAR*>(passed.data()),
              static_cast<SQLSMALLINT>(passed.size()), out, room, outLength, completion);
}
