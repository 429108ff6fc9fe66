#include "data/Database.h"

#include <utility>

#include "base/Text.h"
#include "data/DataError.h"
#include "data/DataFiles.h"
#include "data/SqliteDatabase.h"
#include "data/odbc/OdbcDatabase.h"

namespace tessivo {
namespace {

constexpr std::string_view kPathKey = "DBQ=";
constexpr std::string_view kDriver = ";DRIVER={Microsoft Access Driver (*.mdb)};";
/// What the driver is called that 64-bit Windows can have.
constexpr std::string_view kNewerDriver = ";DRIVER={Microsoft Access Driver (*.mdb, *.accdb)};";

/// As ODBC wants a value that holds what would end it.
std::string braced(const std::string& path) {
  if (path.find_first_of(";{}") == std::string::npos) return path;
  std::string text = "{";
  for (const char c : path) text += c == '}' ? "}}" : std::string(1, c);
  return text + '}';
}

/// Tries the driver that is the one for the file, then the other. The older one is on every 32-bit
/// Windows and refuses what is newer; what it says of such a file does not count.
std::shared_ptr<Database> openAccessFile(const std::string& path) {
  const std::string file = std::string(kPathKey) + braced(path);
  const bool isNewer = isNewerAccessFile(path);
  const auto& [first, second] = isNewer ? std::pair(kNewerDriver, kDriver)  //
                                        : std::pair(kDriver, kNewerDriver);
  try {
    return std::make_shared<OdbcDatabase>(file + std::string(first));
  } catch (const DataError& one) {
    try {
      return std::make_shared<OdbcDatabase>(file + std::string(second));
    } catch (const DataError& other) {
      const bool otherKnows = !isNewer && one.fault() == DataFault::accessFile;
      throw DataError(otherKnows ? other.fault() : one.fault(),
                      std::string(one.what()) + "; " + other.what());
    }
  }
}

std::string_view firstWord(std::string_view text) {
  const auto isPart = [](char c) {
    return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || c == '_';
  };
  std::size_t length = 0;
  while (length < text.size() && isPart(text[length])) ++length;
  return text.substr(0, length);
}

}  // namespace

std::string tableOf(std::string_view sql) {
  constexpr std::string_view kStart = "SELECT * FROM ";
  sql = trim(sql);
  if (toUpper(sql.substr(0, kStart.size())) != kStart) return {};
  const auto rest = sql.substr(kStart.size());
  const auto table = firstWord(rest);
  const auto after = toUpper(firstWord(trim(rest.substr(table.size()))));
  const bool single = table.size() == rest.size() || after == "WHERE" || after == "ORDER";
  return single ? std::string(table) : std::string();
}

std::string connectionStringFor(const std::string& path) {
  return std::string(kPathKey) + path + std::string(kDriver);
}

std::shared_ptr<Database> openDatabase(const std::string& connectionString) {
  // The path may itself hold a ';', so it ends where the driver begins and not earlier.
  const auto driver = connectionString.rfind(kDriver);
  if (!connectionString.starts_with(kPathKey) || driver == std::string::npos) {
    throw DataError(DataFault::failed, "not a connection string: " + connectionString);
  }
  const auto path = connectionString.substr(kPathKey.size(), driver - kPathKey.size());
  if (isAccessFile(path)) return openAccessFile(path);
  return std::make_shared<SqliteDatabase>(path, SqliteDatabase::Missing::fails);
}

}  // namespace tessivo
