#pragma once

#include <stdexcept>
#include <string>

namespace tessivo {

/// Why the database refused.
enum class DataFault {
  cannotOpen,  ///< no such file, no access, not a file
  damaged,     ///< not a database, or one whose pages contradict each other
  noTable,     ///< it lacks a table that a statement names (as a driver says it)
  busy,        ///< another program holds it
  readOnly,    ///< it may be read but not written
  accessFile,  ///< an Access file, and no driver for it
  failed,      ///< anything else: a statement that is wrong, a full disk, a misuse of a recordset
};

/// A failure of the database. what() is a text for the operator's log.
class DataError : public std::runtime_error {
 public:
  DataError(DataFault fault, const std::string& text) : std::runtime_error(text), fault_(fault) {}
  DataFault fault() const { return fault_; }

 private:
  DataFault fault_;
};

}  // namespace tessivo
