#pragma once

#include "data/Database.h"

namespace tessivo {

/// Fills the two tables of the file associations with the rows that the program ships: the types of
/// media that it plays, their descriptions and identifiers, and who gets an extension back when
/// nobody had it before. Only while both tables are empty; returns whether it did. Throws
/// DataError.
bool addShippedAssociations(Database& database);

}  // namespace tessivo
