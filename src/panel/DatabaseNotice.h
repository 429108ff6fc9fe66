#pragma once

#include <string>

#include "data/PrepareDatabase.h"

namespace tessivo {

/// What the user is told at the start about the database; empty when there is nothing to tell.
std::string databaseNotice(DatabaseState state);

}  // namespace tessivo
