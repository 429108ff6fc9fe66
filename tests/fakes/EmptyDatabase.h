#pragma once

#include <gtest/gtest.h>

#include <string>

#include "data/DataAccess.h"
#include "data/PrepareDatabase.h"

namespace tessivo {

/// A new database of which even the shipped rows are gone.
inline void prepareEmptyDatabase(const std::string& path, Log& log) {
  ASSERT_EQ(prepareDatabase(path, log), DatabaseState::created);
  for (const std::string table : {"file_association", "file_association_config"}) {
    DataAccess().objrsGetRecordSet("delete from " + table, path);
  }
}

}  // namespace tessivo
