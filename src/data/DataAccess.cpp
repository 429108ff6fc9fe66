#include "data/DataAccess.h"

#include <algorithm>
#include <exception>

namespace tessivo {

std::shared_ptr<Recordset> DataAccess::objrsGetRecordSet(const std::string& sql,
                                                         const std::string& databasePath) const {
  const auto connection = openDatabase(connectionStringFor(databasePath));
  if (commit_ == Commit::together) connection->begin();
  return std::make_shared<Recordset>(connection, sql);
}

std::shared_ptr<Recordset> DataAccess::objrsGetRecordSet1(const std::string& sql,
                                                          const std::string& databasePath,
                                                          std::string& errorText) const {
  errorText.clear();
  try {
    return objrsGetRecordSet(sql, databasePath);
  } catch (const std::exception& error) {
    errorText = error.what();
    return nullptr;
  }
}

void DataAccess::DividePage(Recordset& rows, std::int32_t pageSize, std::int32_t pageNumber) {
  if (rows.bof() || rows.eof()) return;
  rows.setPageSize(pageSize);
  const auto pages = rows.pageCount();
  const auto page = std::min(pageNumber, pages);
  rows.setAbsolutePage(page);
  presentPage_ = page;
  pageCount_ = pages;
  presentPageRows_ =
      page < pages ? rows.pageSize() : rows.recordCount() - rows.absolutePosition() + 1;
}

}  // namespace tessivo
