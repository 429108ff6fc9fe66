#pragma once

#include <sqlite3.h>

#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include "data/DataAccess.h"
#include "data/PrepareDatabase.h"
#include "fakes/FakeLog.h"
#include "fakes/TempFolder.h"
#include "fuzz/Fuzz.h"

namespace tessivo::fuzz {

inline std::string bytesOf(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

inline void writeBytes(const std::string& path, const std::string& bytes) {
  std::ofstream(path, std::ios::binary)
      .write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
}

/// Runs statements on a database file of its own, pages of 512 bytes; the file's bytes.
inline std::string databaseOf(const std::vector<std::string>& statements) {
  const TempFolder folder;
  const std::string path = folder.file("made");
  sqlite3* database = nullptr;
  sqlite3_open(path.c_str(), &database);
  sqlite3_exec(database, "PRAGMA page_size = 512", nullptr, nullptr, nullptr);
  for (const std::string& statement : statements) {
    const int code = sqlite3_exec(database, statement.c_str(), nullptr, nullptr, nullptr);
    holds(code == SQLITE_OK, statement.c_str());
  }
  sqlite3_close(database);
  return bytesOf(path);
}

}  // namespace tessivo::fuzz
