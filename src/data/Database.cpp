#include "data/Database.h"

#include "data/DataError.h"
#include "data/DataFiles.h"
#include "data/SqliteDatabase.h"

namespace tessivo {
namespace {

constexpr std::string_view kPathKey = "DBQ=";
constexpr std::string_view kDriver = ";DRIVER={Microsoft Access Driver (*.mdb)};";

}  // namespace

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
  if (isAccessFile(path)) {
    throw DataError(DataFault::accessFile,
                    path + " is a Microsoft Access database; no driver for it is available");
  }
  return std::make_shared<SqliteDatabase>(path, SqliteDatabase::Missing::fails);
}

}  // namespace tessivo
