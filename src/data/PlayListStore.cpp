// Loading and saving of the PlayList.

#include <exception>
#include <filesystem>
#include <system_error>

#include "base/FilePath.h"
#include "data/DataAccess.h"
#include "data/DataFiles.h"
#include "data/PlayList.h"

namespace tessivo {

void PlayList::strPLDBFilePath(const std::string& path) {
  path_ = path;
  unread_ = false;
}

bool PlayList::boolGetPlayListFromPLDB() {
  clearList();
  unread_ = true;
  report_.clear();
  try {
    const auto rows = DataAccess().objrsGetRecordSet1("select * from play_list order by item_order",
                                                      path_, report_);
    if (!rows) return false;
    for (; !rows->eof(); rows->moveNext()) appendStored(*rows);
    if (playItems_.empty()) markFirst();
  } catch (const std::exception& error) {  // no memory, too
    clearList();
    report_ = error.what();
    return false;
  }
  unread_ = false;
  return true;
}

void PlayList::appendStored(const Recordset& row) {
  auto movie = std::make_shared<Movie>(asText(row.value("flag_for_play_list")));
  movie->strFileName = asText(row.value("file_name"));
  movie->strFilePath = asText(row.value("file_path"));
  movie->boolIsPlayItem = isOne(row.value("is_play_item"));
  keys_.reserve(movie->strKey);
  append(movie, movie->boolIsPlayItem);
}

void PlayList::markFirst() {
  if (items_.empty()) return;
  items_.at(0)->boolIsPlayItem = true;
  playItems_.push_back(items_.at(0));
}

bool PlayList::boolSavePlayListToPLDB() {
  report_.clear();
  if (unread_ && items_.empty()) return true;
  try {
    if (unread_ && !keepUnreadFile()) return false;
    std::string error;
    const auto emptied = DataAccess(DataAccess::Commit::together)
                             .objrsGetRecordSet1("delete from play_list", path_, error);
    if (!emptied) {
      report_ = error;
      return false;
    }
    if (!items_.empty()) {
      Recordset rows(emptied->connection(), "play_list", CommandType::table);
      appendRows(rows);
    }
    emptied->connection()->commit();
    return true;
  } catch (const std::exception& error) {  // no memory, too
    report_ = error.what();
    return false;
  }
}

void PlayList::appendRows(Recordset& rows) const {
  std::int64_t order = 0;
  items_.forEach([&](const MoviePtr& movie) {
    rows.addNew();
    rows.setValue("flag_for_play_list", movie->strKey);
    rows.setValue("file_name", movie->strFileName);
    rows.setValue("file_path", movie->strFilePath);
    rows.setValue("is_play_item", std::int64_t{movie->boolIsPlayItem ? 1 : 0});
    rows.setValue("item_order", ++order);
    rows.update();
  });
}

bool PlayList::keepUnreadFile() {
  std::error_code error;
  const auto file = toFilePath(path_);
  const bool holdsSomething =
      std::filesystem::is_regular_file(file, error) && std::filesystem::file_size(file, error) > 0;
  if (holdsSomething) {
    std::string copy;
    if (!copyBeside(path_, ".unread-", copy)) {
      report_ = "the stored list could not be read and not be copied: " + copy;
      return false;
    }
    report_ = "the stored list could not be read; a copy of it: " + copy;
  }
  unread_ = false;
  return true;
}

}  // namespace tessivo
