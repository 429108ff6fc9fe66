#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "data/PlayList.h"
#include "data/SysConfig.h"
#include "fakes/VirtualTime.h"
#include "unit/data/DataTestSupport.h"

namespace tessivo {

/// A list and settings that say of each row where they belong to, so that a mixture shows.
class StoredContent {
 public:
  explicit StoredContent(const std::string& path, std::size_t textLength = 150)
      : path_(path), textLength_(textLength) {}

  /// Items that say `content`.
  std::unique_ptr<PlayList> list(const std::string& content, int count) {
    auto made = std::make_unique<PlayList>(keys_);
    made->strPLDBFilePath(path_);
    for (int i = 1; i <= count; ++i) {
      auto movie = std::make_shared<Movie>(keys_);
      movie->strFileName = content;
      movie->strFilePath = pathOf(i);
      made->addAItem(movie);
    }
    return made;
  }

  /// Settings in which every number is `mark`.
  SysConfig settings(std::int16_t mark) const {
    SysConfig made;
    made.strDBFilePath(path_);
    made.intVolumeValue(mark);
    made.lngSSDelayMinute(mark);
    made.lngCurrentPlayPosition(mark);
    made.lngCurrentPlayItemLen(mark);
    return made;
  }

  /// What all stored items say and how many they are, "new 200"; "none" without any; else what is
  /// wrong. `working` is the file that is looked into, `path` usually.
  std::string storedList() const { return storedList(path_); }
  std::string storedList(const std::string& working) const {
    MovieKeys keys(time_);
    PlayList stored(keys);
    stored.strPLDBFilePath(working);
    if (!stored.boolGetPlayListFromPLDB()) return "not readable: " + stored.strReport();
    const int count = stored.lngListCount();
    if (count == 0) return "none";
    for (int i = 1; i <= count; ++i) {
      const auto movie = stored.objGetAItem(i);
      if (movie->strFileName != stored.objGetAItem(1)->strFileName) return "mixed";
      if (movie->strFilePath != pathOf(i)) return "in disorder";
    }
    return stored.objGetAItem(1)->strFileName + " " + std::to_string(count);
  }

  /// The mark of the stored settings; "none" without settings; else what is wrong.
  std::string storedSettings() const {
    SysConfig stored;
    stored.strDBFilePath(path_);
    if (!stored.boolGetData()) {
      return stored.strReport().empty() ? "none" : "not readable: " + stored.strReport();
    }
    const auto mark = stored.intVolumeValue();
    const bool isWhole = stored.lngSSDelayMinute() == mark &&
                         stored.lngCurrentPlayPosition() == mark &&
                         stored.lngCurrentPlayItemLen() == mark;
    return isWhole ? std::to_string(mark) : "mixed";
  }

  /// Whether the next start of the program takes the file as it is, and SQLite sees no fault in it.
  std::string verdict() const {
    RecordingLog log;
    const auto state = prepareDatabase(path_, log);
    if (state != DatabaseState::ready) return "not taken as it is";
    const auto found = runSql(path_, "pragma integrity_check");
    return found.empty() ? "no verdict" : found.front();
  }

 private:
  std::string pathOf(int item) const {
    return std::string(textLength_, 'p') + std::to_string(item);
  }

  std::string path_;
  std::size_t textLength_;
  VirtualTime time_;
  MovieKeys keys_{time_};
};

}  // namespace tessivo
