#include "data/DataFiles.h"

#include <filesystem>
#include <fstream>
#include <new>
#include <string_view>
#include <system_error>

#include "base/FilePath.h"

namespace tessivo {

namespace {

constexpr std::string_view kNewerFormat = "Standard ACE DB";

/// What stands where an Access file names its format; "" when the file is too short.
std::string formatOf(const std::string& path) {
  std::ifstream file(toFilePath(path), std::ios::binary);
  char start[19] = {};
  if (!file.read(start, sizeof start)) return {};
  return {start + 4, sizeof start - 4};
}

/// Tries it; nothing is left.
bool canBeMade(const std::string& path) {
  const auto file = toFilePath(path);
  bool isMade = false;
  try {
    isMade = std::ofstream(file, std::ios::binary).is_open();
  } catch (const std::bad_alloc&) {
    isMade = false;
  }
  std::error_code none;
  std::filesystem::remove(file, none);
  return isMade;
}

std::string journalOf(const std::string& path) {
  return path + "-journal";
}

void renameDatabase(const std::string& from, const std::string& to) {
  std::error_code none;
  std::filesystem::rename(toFilePath(from), toFilePath(to));
  std::filesystem::rename(toFilePath(journalOf(from)), toFilePath(journalOf(to)), none);
}

void copyOver(const std::string& from, const std::string& to, std::error_code& error) {
  std::filesystem::copy_file(toFilePath(from), toFilePath(to),
                             std::filesystem::copy_options::overwrite_existing, error);
}

/// Gives the file at `path` a second name and returns that; "" where there is none, or no hard
/// link, or where a journal would have to go along.
std::string keepLinked(const std::string& path, const std::string& suffix) {
  std::error_code error;
  if (std::filesystem::exists(toFilePath(journalOf(path)), error)) return "";
  std::string kept = freeNameBeside(path, suffix);
  std::filesystem::create_hard_link(toFilePath(path), toFilePath(kept), error);
  return error ? "" : kept;
}

void replaceLinked(const std::string& made, const std::string& path, const std::string& kept) {
  try {
    std::filesystem::rename(toFilePath(made), toFilePath(path));
  } catch (const std::filesystem::filesystem_error&) {
    std::error_code none;
    std::filesystem::remove(toFilePath(kept), none);
    throw;
  }
}

}  // namespace

bool isAccessFile(const std::string& path) {
  return formatOf(path) == "Standard Jet DB" || isNewerAccessFile(path);
}

bool isNewerAccessFile(const std::string& path) {
  return formatOf(path) == kNewerFormat;
}

bool holdsSomething(const std::string& path) {
  return std::ifstream(toFilePath(path), std::ios::binary).get() !=
         std::ifstream::traits_type::eof();
}

bool canBeWritten(const std::string& path) {
  constexpr auto kBothWays = std::ios::in | std::ios::out | std::ios::binary;
  return std::fstream(toFilePath(path), kBothWays).is_open() && canBeMade(path + ".try");
}

std::string freeNameBeside(const std::string& path, const std::string& suffix) {
  for (int number = 1;; ++number) {
    auto name = path + suffix + std::to_string(number);
    std::error_code error;
    if (!std::filesystem::exists(toFilePath(name), error)) return name;
  }
}

std::string keepAside(const std::string& path, const std::string& suffix) {
  std::string aside = freeNameBeside(path, suffix);
  renameDatabase(path, aside);
  return aside;
}

bool copyBeside(const std::string& path, const std::string& suffix, std::string& copy) {
  copy = freeNameBeside(path, suffix);
  const std::string unfinished = path + suffix + "new";
  std::error_code error;
  copyOver(path, unfinished, error);
  // What a program that was killed has not finished is undone by its journal, in the copy, too.
  std::error_code none;
  const bool isUnfinished = std::filesystem::exists(toFilePath(journalOf(path)), none);
  if (!error && isUnfinished) copyOver(journalOf(path), journalOf(copy), error);
  if (!error) std::filesystem::rename(toFilePath(unfinished), toFilePath(copy), error);
  if (!error) return true;
  std::filesystem::remove(toFilePath(unfinished), none);
  std::filesystem::remove(toFilePath(journalOf(copy)), none);
  return false;
}

std::string putInPlace(const std::string& made, const std::string& path,
                       const std::string& suffix) {
  std::string kept = keepLinked(path, suffix);
  if (!kept.empty()) {
    replaceLinked(made, path, kept);
    return kept;
  }
  std::error_code error;
  const bool isTaken = std::filesystem::exists(toFilePath(path), error);
  // A journal without its database must not be taken for that of the new one.
  const bool isLeft = std::filesystem::exists(toFilePath(journalOf(path)), error);
  if (isTaken) {
    kept = keepAside(path, suffix);
  } else if (isLeft) {
    std::filesystem::rename(toFilePath(journalOf(path)),
                            toFilePath(journalOf(freeNameBeside(path, suffix))));
  }
  try {
    std::filesystem::rename(toFilePath(made), toFilePath(path));
  } catch (const std::filesystem::filesystem_error&) {
    if (!kept.empty()) renameDatabase(kept, path);
    throw;
  }
  return kept;
}

}  // namespace tessivo
