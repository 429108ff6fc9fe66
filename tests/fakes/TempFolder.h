#pragma once

#include <atomic>
#include <chrono>
#include <filesystem>
#include <string>

namespace tessivo {

/// A folder of a test's own, gone with everything in it at its end.
class TempFolder {
 public:
  TempFolder() {
    static std::atomic<unsigned> serial{0};
    const auto ticks = std::chrono::steady_clock::now().time_since_epoch().count();
    path_ = std::filesystem::temp_directory_path() /
            ("tessivo-test-" + std::to_string(ticks) + "-" + std::to_string(++serial));
    std::filesystem::create_directories(path_);
  }
  ~TempFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
  }
  TempFolder(const TempFolder&) = delete;
  TempFolder& operator=(const TempFolder&) = delete;

  const std::filesystem::path& path() const { return path_; }
  /// UTF-8 path of a file in it.
  std::string file(const std::string& name) const {
    const auto text = (path_ / std::filesystem::path(name)).u8string();
    return {text.begin(), text.end()};
  }

 private:
  std::filesystem::path path_;
};

}  // namespace tessivo
