#pragma once

#include <atomic>
#include <chrono>
#include <cstddef>
#include <filesystem>
#include <iterator>
#include <string>
#include <system_error>

#include "base/FilePath.h"

namespace tessivo {

/// A folder of one test, gone at its end. Its name holds blanks, a ';' and Chinese, as a program
/// folder may.
class TempFolder {
 public:
  explicit TempFolder(const std::string& kind = "tessivo test; 泰思维 ")
      : path_(std::filesystem::temp_directory_path() / toFilePath(kind + uniqueNumber())) {
    std::filesystem::create_directories(path_);
  }
  ~TempFolder() {
    std::error_code none;
    std::filesystem::remove_all(path_, none);
  }
  TempFolder(const TempFolder&) = delete;
  TempFolder& operator=(const TempFolder&) = delete;

  const std::filesystem::path& path() const { return path_; }
  std::string file(const std::string& name) const {
    const auto utf8 = (path_ / toFilePath(name)).u8string();
    return std::string(utf8.begin(), utf8.end());
  }
  std::size_t fileCount() const {
    const std::filesystem::directory_iterator files(path_);
    return static_cast<std::size_t>(std::distance(begin(files), end(files)));
  }

 private:
  static std::string uniqueNumber() {
    static std::atomic<int> number = 0;
    const auto ticks = std::chrono::steady_clock::now().time_since_epoch().count();
    return std::to_string(ticks) + "-" + std::to_string(++number);
  }
  std::filesystem::path path_;
};

}  // namespace tessivo
