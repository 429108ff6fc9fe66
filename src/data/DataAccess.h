#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "data/Recordset.h"

namespace tessivo {

/// How everybody reads and writes the database: a recordset of its own for each operation, with a
/// connection that closes when the recordset goes. Make one where it is needed.
class DataAccess {
 public:
  /// When a write counts: each at once, or all together when the recordset's connection is told to
  /// commit (without that, none).
  enum class Commit { eachWrite, together };

  explicit DataAccess(Commit commit = Commit::eachWrite) : commit_(commit) {}

  /// Opens the database file and runs one SQL statement. Throws DataError.
  std::shared_ptr<Recordset> objrsGetRecordSet(const std::string& sql,
                                               const std::string& databasePath) const;

  /// The same, for callers who take a failure as a value: null, and the reason in `errorText`,
  /// which is "" otherwise.
  std::shared_ptr<Recordset> objrsGetRecordSet1(const std::string& sql,
                                                const std::string& databasePath,
                                                std::string& errorText) const;

  /// Divides an open recordset into pages of `pageSize` rows and moves to the first row of page
  /// `pageNumber`, or of the last page when there are not that many. An empty recordset, or one
  /// that stands at its beginning or end, changes nothing. Throws DataError for a size or a number
  /// below 1; then, too, the results stay as they were.
  void DividePage(Recordset& rows, std::int32_t pageSize, std::int32_t pageNumber);

  /// The results of the last DividePage, 0 before the first.
  std::int32_t lngGetPageCount() const { return pageCount_; }
  std::int32_t lngGetPresentPageNum() const { return presentPage_; }
  /// How many rows the page moved to has.
  std::int32_t lngGetPresentPageRecordCount() const { return presentPageRows_; }

 private:
  Commit commit_;
  std::int32_t pageCount_ = 0;
  std::int32_t presentPage_ = 0;
  std::int32_t presentPageRows_ = 0;
};

}  // namespace tessivo
