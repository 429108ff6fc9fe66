#pragma once

#include <cstddef>

namespace tessivo {

/// What the program itself holds: blocks of operator new, which this replaces where it is linked
/// in, and bytes of SQLite's. What the system's components hold is not in it.
struct OwnMemory {
  std::size_t blocks;
  std::size_t bytes;
  std::size_t databaseBytes;
};

OwnMemory ownMemory();

}  // namespace tessivo
