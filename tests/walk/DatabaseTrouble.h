#pragma once

#include <string>

struct sqlite3;

namespace tessivo::walk {

/// What can be wrong with the database's file.
enum class Trouble {
  locked,    ///< another program holds it
  full,      ///< the disk has no room
  readOnly,  ///< the user may not write it
};

/// As long as it lives, the file has that trouble. One at a time.
class DatabaseTrouble {
 public:
  DatabaseTrouble(Trouble trouble, const std::string& file);
  ~DatabaseTrouble();
  DatabaseTrouble(const DatabaseTrouble&) = delete;
  DatabaseTrouble& operator=(const DatabaseTrouble&) = delete;

  /// Once, before any database is opened: a full disk is played between SQLite and the system.
  static void prepare();

 private:
  Trouble trouble_;
  std::string file_;
  sqlite3* holder_ = nullptr;
};

}  // namespace tessivo::walk
