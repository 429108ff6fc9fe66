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

std::string freeNameBeside(const std::string& path, const std::string& suffix) {
  for (int number = 1;; ++number) {
    auto name = path + suffix + std::to_string(number);
    std::error_code error;
    if (!std::filesystem::exists(toFilePath(name), error)) return name;
  }
}

}  // namespace tessivo
