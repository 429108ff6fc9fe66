#include "soak/OwnMemory.h"

#include <malloc.h>
#include <sqlite3.h>

#include <atomic>
#include <cstdlib>
#include <new>

namespace {

std::atomic<std::size_t> blocks = 0;
std::atomic<std::size_t> bytes = 0;

void release(void* got) noexcept {
  if (!got) return;
  --blocks;
  bytes -= _msize(got);
  std::free(got);  // NOLINT(cppcoreguidelines-no-malloc): what operator delete is
}

}  // namespace

void* operator new(std::size_t size) {
  // NOLINTNEXTLINE(cppcoreguidelines-no-malloc): what operator new is
  void* const got = std::malloc(size > 0 ? size : 1);
  if (!got) throw std::bad_alloc();
  ++blocks;
  bytes += _msize(got);
  return got;
}
void operator delete(void* got) noexcept {
  release(got);
}
void operator delete(void* got, std::size_t) noexcept {
  release(got);
}

namespace tessivo {

OwnMemory ownMemory() {
  return {blocks, bytes, static_cast<std::size_t>(sqlite3_memory_used())};
}

}  // namespace tessivo
