#ifndef _WIN32

#include "fakes/KilledProcess.h"

#include <fcntl.h>
#include <sqlite3.h>
#include <sys/syscall.h>

#include <cerrno>

namespace {

bool g_counts = false;
int g_changesLeft = 0;

void countDown() {
  if (g_counts && g_changesLeft-- == 0) kill(getpid(), SIGKILL);
}

ssize_t countedWrite(int file, const void* bytes, size_t length) {
  countDown();
  return write(file, bytes, length);
}
ssize_t countedWriteAt(int file, const void* bytes, size_t length, off_t place) {
  countDown();
  return pwrite(file, bytes, length, place);
}
int countedTruncate(int file, off_t length) {
  countDown();
  return ftruncate(file, length);
}
int countedUnlink(const char* path) {
  countDown();
  return unlink(path);
}

template <typename Function>
void replaceCall(const char* name, Function* function) {
  auto* vfs = sqlite3_vfs_find(nullptr);
  const auto call = reinterpret_cast<sqlite3_syscall_ptr>(function);
  if (vfs->xSetSystemCall(vfs, name, call) != SQLITE_OK) _exit(3);
}

}  // namespace

// In the place of the C library's, for std::filesystem, too.
extern "C" {
int rename(const char* from, const char* to) {
  countDown();
  return static_cast<int>(syscall(SYS_renameat2, AT_FDCWD, from, AT_FDCWD, to, 0));
}
int link(const char* from, const char* to) {
  countDown();
  return static_cast<int>(syscall(SYS_linkat, AT_FDCWD, from, AT_FDCWD, to, 0));
}
int remove(const char* path) {
  countDown();
  if (syscall(SYS_unlinkat, AT_FDCWD, path, 0) == 0) return 0;
  if (errno != EISDIR) return -1;
  return static_cast<int>(syscall(SYS_unlinkat, AT_FDCWD, path, AT_REMOVEDIR));
}
}

namespace tessivo {

void dieAfterChanges(int changes) {
  g_changesLeft = changes;
  g_counts = true;
  replaceCall("write", &countedWrite);
  replaceCall("pwrite", &countedWriteAt);
  replaceCall("pwrite64", &countedWriteAt);
  replaceCall("ftruncate", &countedTruncate);
  replaceCall("unlink", &countedUnlink);
}

}  // namespace tessivo

#endif
