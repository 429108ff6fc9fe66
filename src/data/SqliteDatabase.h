#pragma once

#include <memory>
#include <string>
#include <vector>

#include "data/Database.h"

struct sqlite3;
struct sqlite3_stmt;

namespace tessivo {

/// A SQLite file. Only openDatabase and prepareDatabase make one.
///
/// It keeps a rollback journal beside the file while a transaction is written (so that a closed
/// database is one file) and waits for the disk at every commit: after a crash or a power cut the
/// file holds all of a transaction or nothing of it. Somebody else's lock is waited for 40 ms, no
/// longer, because callers are on the user-interface thread.
class SqliteDatabase final : public Database {
 public:
  enum class Missing { fails, isCreated };

  /// Opens the file; throws DataError. Damage shows when something is read, not here.
  SqliteDatabase(const std::string& path, Missing missing);

  ResultSet query(const std::string& sql) override;
  ResultSet openTable(const std::string& table) override;
  void insertRow(const std::string& table, const std::vector<FieldValue>& fields) override;
  void updateRow(const std::string& table, const std::vector<FieldValue>& changes,
                 const std::vector<FieldValue>& original) override;
  void begin() override;
  void commit() override;

 private:
  struct Close {
    void operator()(sqlite3* db) const;
    void operator()(sqlite3_stmt* statement) const;
  };
  using Statement = std::unique_ptr<sqlite3_stmt, Close>;

  Statement prepare(const std::string& sql);
  bool step(sqlite3_stmt* statement);
  void run(const char* sql);
  void rollback();
  ResultSet allRows(sqlite3_stmt* statement);
  void bind(sqlite3_stmt* statement, int index, const Value& value);
  [[noreturn]] void fail(const std::string& what);

  template <typename Change>
  void inTransaction(Change change);

  std::string path_;
  std::unique_ptr<sqlite3, Close> db_;
  std::string insertSql_;  ///< what insert_ was prepared from: rows come in long runs
  Statement insert_;
  bool inTransaction_ = false;
};

}  // namespace tessivo
