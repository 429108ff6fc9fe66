#pragma once

#include <gtest/gtest.h>
#include <sqlite3.h>

#include <atomic>
#include <chrono>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <string_view>
#include <system_error>
#include <vector>

#include "base/FilePath.h"
#include "data/DataFiles.h"
#include "data/PrepareDatabase.h"
#include "fakes/EmptyDatabase.h"
#include "fakes/TempFolder.h"
#include "platform/Log.h"

namespace tessivo {

struct RecordingLog : Log {
  void info(std::string_view text) override { infos.emplace_back(text); }
  void error(std::string_view text) override { errors.emplace_back(text); }
  std::vector<std::string> infos;
  std::vector<std::string> errors;
};

/// A connection beside the program's: sets databases up, looks into them, locks them.
class OtherProgram {
 public:
  explicit OtherProgram(const std::string& path) {
    EXPECT_EQ(sqlite3_open(path.c_str(), &db_), SQLITE_OK);
  }
  ~OtherProgram() { sqlite3_close(db_); }
  OtherProgram(const OtherProgram&) = delete;
  OtherProgram& operator=(const OtherProgram&) = delete;

  /// The rows, their fields joined by '|', Null as "NULL".
  std::vector<std::string> run(const std::string& sql) {
    std::vector<std::string> rows;
    char* error = nullptr;
    EXPECT_EQ(sqlite3_exec(db_, sql.c_str(), &collect, &rows, &error), SQLITE_OK)
        << sql << ": " << (error ? error : "");
    sqlite3_free(error);
    return rows;
  }

 private:
  static int collect(void* rows, int count, char** fields, char**) {
    std::string row;
    for (int i = 0; i < count; ++i) {
      row += (i > 0 ? "|" : "") + std::string(fields[i] ? fields[i] : "NULL");
    }
    static_cast<std::vector<std::string>*>(rows)->push_back(row);
    return 0;
  }
  sqlite3* db_ = nullptr;
};

inline std::vector<std::string> runSql(const std::string& path, const std::string& sql) {
  return OtherProgram(path).run(sql);
}

inline std::string contentOf(const std::string& path) {
  std::ifstream file(toFilePath(path), std::ios::binary);
  return std::string(std::istreambuf_iterator<char>(file), {});
}

inline void writeFile(const std::string& path, std::string_view content) {
  std::ofstream file(toFilePath(path), std::ios::binary | std::ios::trunc);
  file.write(content.data(), static_cast<std::streamsize>(content.size()));
}

/// A test with a fresh database without rows.
class DatabaseTest : public testing::Test {
 protected:
  void SetUp() override {
    RecordingLog log;
    prepareEmptyDatabase(path, log);
  }

  TempFolder folder;
  const std::string path = folder.file("SysConfig");
};

}  // namespace tessivo
