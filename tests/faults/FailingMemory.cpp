#include "faults/FailingMemory.h"

#include <sqlite3.h>

#include <cstddef>
#include <cstdlib>
#include <new>

namespace {

struct {
  bool counts = false;
  bool lasts = false;
  bool happened = false;
  int left = 0;
} memory;

sqlite3_mem_methods sqlitesOwn;

bool fails() {
  if (!memory.counts) return false;
  if (memory.lasts && memory.happened) return true;
  if (--memory.left != 0) return false;
  memory.happened = true;
  return true;
}

void* allocateForSqlite(int size) {
  return fails() ? nullptr : sqlitesOwn.xMalloc(size);
}
void* reallocateForSqlite(void* old, int size) {
  return fails() ? nullptr : sqlitesOwn.xRealloc(old, size);
}

}  // namespace

void* operator new(std::size_t size) {
  if (fails()) throw std::bad_alloc();
  if (void* const got = std::malloc(size)) return got;
  throw std::bad_alloc();
}
void operator delete(void* got) noexcept {
  std::free(got);
}
void operator delete(void* got, std::size_t) noexcept {
  std::free(got);
}

namespace tessivo {

FailingMemory::FailingMemory(int request, Lasts lasts) {
  memory = {true, lasts == Lasts::untilItGoes, false, request};
}

FailingMemory::~FailingMemory() {
  memory.counts = false;
}

bool FailingMemory::happened() const {
  return memory.happened;
}

void FailingMemory::prepare() {
  sqlite3_config(SQLITE_CONFIG_GETMALLOC, &sqlitesOwn);
  static sqlite3_mem_methods failing = sqlitesOwn;
  failing.xMalloc = allocateForSqlite;
  failing.xRealloc = reallocateForSqlite;
  sqlite3_config(SQLITE_CONFIG_MALLOC, &failing);
  // What it asks for once is asked for now.
  sqlite3_initialize();
}

}  // namespace tessivo
