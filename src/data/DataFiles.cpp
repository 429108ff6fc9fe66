#include "data/DataFiles.h"

#include <filesystem>
#include <fstream>
#include <string_view>
#include <system_error>

#include "base/FilePath.h"

namespace tessivo {

bool isAccessFile(const std::string& path) {
  std::ifstream file(toFilePath(path), std::ios::binary);
  char start[19] = {};
  if (!file.read(start, sizeof start)) return false;
  const std::string_view format(start + 4, sizeof start - 4);
  return format == "Standard Jet DB" || format == "Standard ACE DB";
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
  std::error_code none;
  std::string aside = freeNameBeside(path, suffix);
  std::filesystem::rename(toFilePath(path), toFilePath(aside));
  std::filesystem::rename(toFilePath(path + "-journal"), toFilePath(aside + "-journal"), none);
  return aside;
}

}  // namespace tessivo
