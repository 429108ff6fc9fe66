#include "fakes/FaultyDisk.h"

#include <gtest/gtest.h>
#include <sqlite3.h>

#include <algorithm>
#include <cstddef>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <optional>
#include <random>
#include <system_error>
#include <utility>
#include <vector>

#include "base/FilePath.h"

namespace tessivo {
namespace {

constexpr std::size_t kSector = 512;

/// The bytes of a file; nothing when there is none.
using Content = std::optional<std::string>;

struct Change {
  enum class Kind { create, write, truncate, remove } kind;
  std::size_t at = 0;  ///< where a write begins, and how long a cut file is
  std::string bytes;
};

struct File {
  Content onDisk;
  std::vector<Change> pending;  ///< what has not been brought to the disk
};

enum class Step { create, write, truncate, remove, sync };

enum class Fault { none, powerLoss, full, inputOutput };

struct Disk {
  sqlite3_vfs* system = nullptr;
  std::map<std::string, File> files;
  Fault fault = Fault::none;
  int faultAt = 0;
  bool lasts = false;
  FaultyDisk::Left left = FaultyDisk::Left::all;
  std::mt19937 random;
  int steps = 0;
  bool happened = false;
  bool isOff = false;

  void order(Fault ordered, int at) {
    fault = ordered;
    faultAt = at;
    steps = 0;
    happened = false;
  }
};

Disk& disk() {
  static Disk the;
  return the;
}

int errorOf(Step step) {
  switch (step) {
    case Step::create:
      return SQLITE_CANTOPEN;
    case Step::write:
      return SQLITE_IOERR_WRITE;
    case Step::truncate:
      return SQLITE_IOERR_TRUNCATE;
    case Step::remove:
      return SQLITE_IOERR_DELETE;
    case Step::sync:
      return SQLITE_IOERR_FSYNC;
  }
  return SQLITE_IOERR;
}

/// Every step asks here first, whether it may be done.
int admit(Step step) {
  Disk& d = disk();
  if (d.isOff) return errorOf(step);
  if (d.fault == Fault::none || (d.fault == Fault::full && step != Step::write)) return SQLITE_OK;
  ++d.steps;
  const bool fails = d.steps == d.faultAt || (d.lasts && d.steps > d.faultAt);
  if (!fails) return SQLITE_OK;
  d.happened = true;
  d.isOff = d.fault == Fault::powerLoss;
  return d.fault == Fault::full ? SQLITE_FULL : errorOf(step);
}

void apply(const Change& change, Content& content) {
  if (change.kind == Change::Kind::remove) {
    content.reset();
    return;
  }
  if (!content) content.emplace();
  if (change.kind == Change::Kind::truncate) content->resize(change.at);
  if (change.kind == Change::Kind::write) {
    const std::size_t end = change.at + change.bytes.size();
    if (content->size() < end) content->resize(end);
    content->replace(change.at, change.bytes.size(), change.bytes);
  }
}

/// Of a write some sectors by chance, of anything else all or nothing.
void applyByChance(const Change& change, Content& content, std::mt19937& random) {
  if (change.kind != Change::Kind::write) {
    if (random() % 2 == 0) apply(change, content);
    return;
  }
  for (std::size_t from = 0; from < change.bytes.size();) {
    const std::size_t at = change.at + from;
    const std::size_t count = std::min(kSector - at % kSector, change.bytes.size() - from);
    if (random() % 2 == 0) {
      apply({Change::Kind::write, at, change.bytes.substr(from, count)}, content);
    }
    from += count;
  }
}

Content contentOf(const std::string& path) {
  std::ifstream stream(toFilePath(path), std::ios::binary);
  if (!stream) return std::nullopt;
  return std::string(std::istreambuf_iterator<char>(stream), {});
}

void putContent(const std::string& path, const Content& content) {
  if (!content) {
    std::error_code none;
    std::filesystem::remove(toFilePath(path), none);
    return;
  }
  std::ofstream stream(toFilePath(path), std::ios::binary | std::ios::trunc);
  stream.write(content->data(), static_cast<std::streamsize>(content->size()));
}

File& fileOf(const std::string& path) {
  const auto [entry, isNew] = disk().files.try_emplace(path);
  if (isNew) entry->second.onDisk = contentOf(path);
  return entry->second;
}

/// What has been done, or what a loss of power has interrupted.
void note(const std::string& path, Change change) {
  fileOf(path).pending.push_back(std::move(change));
}

// A file that SQLite has open. SQLite owns the memory, so that it holds pointers alone.
struct Watched {
  sqlite3_file base;
  const std::string* path;
  sqlite3_file* system;
};

Watched& watched(sqlite3_file* file) {
  return *reinterpret_cast<Watched*>(file);
}
sqlite3_file* systemFile(sqlite3_file* file) {
  return watched(file).system;
}

int closeFile(sqlite3_file* file) {
  return systemFile(file)->pMethods->xClose(systemFile(file));
}

int readFile(sqlite3_file* file, void* bytes, int count, sqlite3_int64 at) {
  if (disk().isOff) return SQLITE_IOERR_READ;
  return systemFile(file)->pMethods->xRead(systemFile(file), bytes, count, at);
}

int writeFile(sqlite3_file* file, const void* bytes, int count, sqlite3_int64 at) {
  const bool wasOff = disk().isOff;
  const int refused = admit(Step::write);
  Change change{Change::Kind::write, static_cast<std::size_t>(at),
                std::string(static_cast<const char*>(bytes), static_cast<std::size_t>(count))};
  if (refused != SQLITE_OK) {
    const bool isInterrupted = disk().isOff && !wasOff;
    if (isInterrupted && disk().left == FaultyDisk::Left::sectors) {
      note(*watched(file).path, std::move(change));
    }
    return refused;
  }
  note(*watched(file).path, std::move(change));
  return systemFile(file)->pMethods->xWrite(systemFile(file), bytes, count, at);
}

int truncateFile(sqlite3_file* file, sqlite3_int64 length) {
  if (const int refused = admit(Step::truncate); refused != SQLITE_OK) return refused;
  note(*watched(file).path, {Change::Kind::truncate, static_cast<std::size_t>(length), ""});
  return systemFile(file)->pMethods->xTruncate(systemFile(file), length);
}

/// Nothing is to be brought anywhere: no test turns off the machine.
int syncFile(sqlite3_file* file, int) {
  if (const int refused = admit(Step::sync); refused != SQLITE_OK) return refused;
  File& synced = fileOf(*watched(file).path);
  for (const Change& change : synced.pending) apply(change, synced.onDisk);
  synced.pending.clear();
  return SQLITE_OK;
}

int sizeOfFile(sqlite3_file* file, sqlite3_int64* size) {
  return systemFile(file)->pMethods->xFileSize(systemFile(file), size);
}
int lockFile(sqlite3_file* file, int lock) {
  return systemFile(file)->pMethods->xLock(systemFile(file), lock);
}
int unlockFile(sqlite3_file* file, int lock) {
  return systemFile(file)->pMethods->xUnlock(systemFile(file), lock);
}
int askForReserved(sqlite3_file* file, int* isReserved) {
  return systemFile(file)->pMethods->xCheckReservedLock(systemFile(file), isReserved);
}
int controlFile(sqlite3_file* file, int what, void* argument) {
  return systemFile(file)->pMethods->xFileControl(systemFile(file), what, argument);
}
int sectorSize(sqlite3_file* file) {
  return systemFile(file)->pMethods->xSectorSize(systemFile(file));
}
int deviceCharacteristics(sqlite3_file* file) {
  return systemFile(file)->pMethods->xDeviceCharacteristics(systemFile(file));
}

/// Of the first version: without shared memory, without mapped files.
const sqlite3_io_methods kMethods{1,
                                  closeFile,
                                  readFile,
                                  writeFile,
                                  truncateFile,
                                  syncFile,
                                  sizeOfFile,
                                  lockFile,
                                  unlockFile,
                                  askForReserved,
                                  controlFile,
                                  sectorSize,
                                  deviceCharacteristics,
                                  nullptr,
                                  nullptr,
                                  nullptr,
                                  nullptr,
                                  nullptr,
                                  nullptr};

bool exists(const std::string& path) {
  std::error_code none;
  return std::filesystem::exists(toFilePath(path), none);
}

int openFile(sqlite3_vfs*, const char* name, sqlite3_file* file, int flags, int* outFlags) {
  sqlite3_vfs* const system = disk().system;
  file->pMethods = nullptr;
  const std::string path = name ? name : "";
  fileOf(path);
  const bool isNew = name && (flags & SQLITE_OPEN_CREATE) != 0 && !exists(path);
  if (disk().isOff) return SQLITE_CANTOPEN;
  if (const int refused = isNew ? admit(Step::create) : SQLITE_OK; refused != SQLITE_OK) {
    return refused;
  }
  if (isNew) note(path, {Change::Kind::create, 0, ""});
  auto* inner = reinterpret_cast<sqlite3_file*>(reinterpret_cast<char*>(file) + sizeof(Watched));
  const int code = system->xOpen(system, name, inner, flags, outFlags);
  if (code != SQLITE_OK) return code;
  watched(file) = {{&kMethods}, &disk().files.find(path)->first, inner};
  return SQLITE_OK;
}

int removeFile(sqlite3_vfs*, const char* name, int syncFolder) {
  sqlite3_vfs* const system = disk().system;
  File& file = fileOf(name);
  if (!exists(name)) return SQLITE_IOERR_DELETE_NOENT;
  if (const int refused = admit(Step::remove); refused != SQLITE_OK) return refused;
  if (syncFolder != 0) {
    file = {};
  } else {
    note(name, {Change::Kind::remove, 0, ""});
  }
  return system->xDelete(system, name, 0);
}

sqlite3_vfs& ownVfs() {
  static sqlite3_vfs vfs;
  return vfs;
}

}  // namespace

FaultyDisk::FaultyDisk() {
  disk() = {};
  disk().system = sqlite3_vfs_find(nullptr);
  static_assert(sizeof(Watched) % alignof(sqlite3_int64) == 0);
  sqlite3_vfs& vfs = ownVfs();
  vfs = *disk().system;
  vfs.zName = "faulty";
  vfs.szOsFile += static_cast<int>(sizeof(Watched));
  vfs.xOpen = openFile;
  vfs.xDelete = removeFile;
  EXPECT_EQ(sqlite3_vfs_register(&vfs, 1), SQLITE_OK);
}

FaultyDisk::~FaultyDisk() {
  sqlite3_vfs_unregister(&ownVfs());
}

void FaultyDisk::losePowerAt(int step, Left left, unsigned seed) {
  disk().order(Fault::powerLoss, step);
  disk().files.clear();
  disk().left = left;
  disk().random.seed(seed);
}

void FaultyDisk::powerOn() {
  Disk& d = disk();
  for (auto& [path, file] : d.files) {
    if (path.empty()) continue;
    for (const Change& change : file.pending) {
      if (d.left == Left::all) apply(change, file.onDisk);
      if (d.left == Left::sectors) applyByChance(change, file.onDisk, d.random);
    }
    if (d.happened) putContent(path, file.onDisk);
  }
  d.files.clear();
  d.fault = Fault::none;
  d.isOff = false;
}

void FaultyDisk::failAt(int step, Error error, Lasts lasts) {
  disk().order(error == Error::full ? Fault::full : Fault::inputOutput, step);
  disk().lasts = lasts == Lasts::untilMended;
}

void FaultyDisk::mend() {
  disk().fault = Fault::none;
}

bool FaultyDisk::happened() const {
  return disk().happened;
}

}  // namespace tessivo
