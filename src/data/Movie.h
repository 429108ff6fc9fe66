#pragma once

#include <memory>
#include <string>
#include <utility>

#include "data/MovieKeys.h"

namespace tessivo {

/// One item of the playlist. While it is in a PlayList, only that list changes its key and marks.
struct Movie {
  explicit Movie(MovieKeys& keys) : strKey(keys.newKey()) {}
  /// An item that has its key already: one that was stored.
  explicit Movie(std::string key) : strKey(std::move(key)) {}

  std::string strKey;
  std::string strFileName;  ///< without the folder, as lists show it
  std::string strFilePath;
  bool boolIsPlayItem = false;  ///< the one that is or will be played
  bool boolIsActItem = false;   ///< the one selected in the panel
};

using MoviePtr = std::shared_ptr<Movie>;

}  // namespace tessivo
