#include "walk/DatabaseTrouble.h"

#include <sqlite3.h>
#include <unistd.h>

#include <filesystem>
#include <map>

#include "base/FilePath.h"

namespace tessivo::walk {
namespace {

bool diskIsFull = false;
sqlite3_vfs* systemVfs = nullptr;

int writeUnlessFull(sqlite3_file* file, const void* bytes, int count, sqlite3_int64 at);

/// The system's methods by those that look whether the disk is full.
std::map<const sqlite3_io_methods*, const sqlite3_io_methods*>& originals() {
  static std::map<const sqlite3_io_methods*, const sqlite3_io_methods*> all;
  return all;
}

const sqlite3_io_methods* watched(const sqlite3_io_methods* original) {
  static std::map<const sqlite3_io_methods*, sqlite3_io_methods> copies;
  auto [copy, isNew] = copies.try_emplace(original, *original);
  if (isNew) {
    copy->second.xWrite = writeUnlessFull;
    originals()[&copy->second] = original;
  }
  return &copy->second;
}

int writeUnlessFull(sqlite3_file* file, const void* bytes, int count, sqlite3_int64 at) {
  if (diskIsFull) return SQLITE_FULL;
  return originals().at(file->pMethods)->xWrite(file, bytes, count, at);
}

int openWatched(sqlite3_vfs*, const char* name, sqlite3_file* file, int flags, int* outFlags) {
  const int code = systemVfs->xOpen(systemVfs, name, file, flags, outFlags);
  if (file->pMethods) file->pMethods = watched(file->pMethods);
  return code;
}

void mayWrite(const std::string& file, bool may) {
  using std::filesystem::perm_options;
  using std::filesystem::perms;
  std::error_code none;
  std::filesystem::permissions(toFilePath(file), perms::owner_write,
                               may ? perm_options::add : perm_options::remove, none);
}

/// File modes do not bind the super-user.
void actAsNobody(bool nobody) {
  static const uid_t user = geteuid();
  constexpr uid_t kNobody = 65534;
  if (user == 0 && seteuid(nobody ? kNobody : user) != 0) _exit(2);
}

}  // namespace

void DatabaseTrouble::prepare() {
  systemVfs = sqlite3_vfs_find(nullptr);
  static sqlite3_vfs vfs = *systemVfs;
  vfs.zName = "walk";
  vfs.xOpen = openWatched;
  sqlite3_vfs_register(&vfs, 1);
}

DatabaseTrouble::DatabaseTrouble(Trouble trouble, const std::string& file)
    : trouble_(trouble), file_(file) {
  if (trouble == Trouble::full) diskIsFull = true;
  if (trouble == Trouble::readOnly) {
    mayWrite(file, false);
    actAsNobody(true);
  }
  if (trouble == Trouble::locked) {
    sqlite3_open(file.c_str(), &holder_);
    sqlite3_exec(holder_, "BEGIN EXCLUSIVE", nullptr, nullptr, nullptr);
  }
}

DatabaseTrouble::~DatabaseTrouble() {
  diskIsFull = false;
  if (trouble_ == Trouble::readOnly) {
    actAsNobody(false);
    mayWrite(file_, true);
  }
  if (holder_) sqlite3_close(holder_);
}

}  // namespace tessivo::walk
