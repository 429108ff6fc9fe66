#pragma once

#include <memory>
#include <string>
#include <vector>

#include "data/Database.h"

namespace tessivo {

/// A database that is read and written through an ODBC driver of the machine. Only openDatabase
/// makes one. The driver takes care of locks and of what a crash leaves; a transaction counts as a
/// whole.
class OdbcDatabase final : public Database {
 public:
  /// Connects without asking anybody anything. Throws DataError, with DataFault::accessFile when
  /// the machine has no driver of the name in the connection string.
  explicit OdbcDatabase(const std::string& connectionString);
  ~OdbcDatabase() override;

  ResultSet query(const std::string& sql) override;
  ResultSet openTable(const std::string& table) override;
  void insertRow(const std::string& table, const std::vector<FieldValue>& fields) override;
  void updateRow(const std::string& table, const std::vector<FieldValue>& changes,
                 const std::vector<FieldValue>& original) override;
  void begin() override;
  void commit() override;

 private:
  class Connection;
  template <typename Change>
  void inTransaction(Change change);

  std::unique_ptr<Connection> connection_;
  bool inTransaction_ = false;
};

}  // namespace tessivo
