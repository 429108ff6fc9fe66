#include "data/DataFiles.h"

#include <filesystem>
#include <fstream>
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

void renameDatabase(const std::string& from, const std::string& to) {
  std::error_code none;
  std::filesystem::rename(toFilePath(from), toFilePath(to));
  std::filesystem::rename(toFilePath(from + "-journal"), toFilePath(to + "-journal"), none);
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
  return std::fstream(toFilePath(path), std::ios::in | std::ios::out | std::ios::binary).is_open();
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

std::string putInPlace(const std::string& made, const std::string& path,
                       const std::string& suffix) {
  std::error_code error;
  std::string kept;
  if (std::filesystem::exists(toFilePath(path), error)) kept = keepAside(path, suffix);
  try {
    std::filesystem::rename(toFilePath(made), toFilePath(path));
  } catch (const std::filesystem::filesystem_error&) {
    if (!kept.empty()) renameDatabase(kept, path);
    throw;
  }
  return kept;
}

}  // namespace tessivo
