#pragma once

#include <cstdint>
#include <filesystem>
#include <fstream>
#include <string>

#include "platform/Clock.h"
#include "platform/Log.h"

namespace tessivo {

/// The log as a text file. A line is "2026-01-31 23:59:59.123 info text" and is on disk when the
/// call returns. A file that has reached its size limit becomes `<path>.1`, in the place of the one
/// before, and a new file begins. When the file cannot be written the entries are lost in silence;
/// the composition root asks `isOpen` and gives another path.
class FileLog : public Log {
 public:
  static constexpr std::uintmax_t kSizeLimit = 1'048'576;
  /// Bytes of a text that are written; of a longer one the rest is left out.
  static constexpr std::size_t kLongestText = 8192;

  /// `path` is UTF-8; what is there already is continued. The clock must outlive the log.
  FileLog(const std::string& path, const Clock& clock, std::uintmax_t sizeLimit = kSizeLimit);

  bool isOpen() const { return file_.is_open(); }
  const std::filesystem::path& path() const { return path_; }
  void info(std::string_view text) override { write("info", text); }
  void error(std::string_view text) override { write("error", text); }

 private:
  void write(std::string_view level, std::string_view text) noexcept;
  void open();
  void rotate();

  std::filesystem::path path_;
  const Clock& clock_;
  std::uintmax_t sizeLimit_;
  std::uintmax_t size_ = 0;
  std::ofstream file_;
};

}  // namespace tessivo
