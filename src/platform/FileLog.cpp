#include "platform/FileLog.h"

#include <algorithm>
#include <cstdio>
#include <system_error>

#include "base/FilePath.h"
#include "base/Text.h"
#include "platform/DateTimeText.h"

namespace tessivo {
namespace {

std::string stamp(const LocalTime& time) {
  char milliseconds[16];
  std::snprintf(milliseconds, sizeof milliseconds, ".%03d", time.msOfDay % 1000);
  return dateTimeText(time) + milliseconds;
}

/// What is too long ends before a character that it would cut.
std::string_view cut(std::string_view text) {
  if (text.size() <= FileLog::kLongestText) return text;
  std::size_t end = FileLog::kLongestText;
  while (end > 0 && (static_cast<unsigned char>(text[end]) & 0xC0) == 0x80) --end;
  return text.substr(0, end);
}

std::string oneLine(std::string_view text) {
  std::string line(cut(text));
  std::replace_if(
      line.begin(), line.end(), [](char c) { return c == '\r' || c == '\n'; }, ' ');
  return line;
}

}  // namespace

FileLog::FileLog(const std::string& path, const Clock& clock, std::uintmax_t sizeLimit)
    : path_(toFilePath(path)), clock_(clock), sizeLimit_(sizeLimit) {
  open();
}

void FileLog::open() {
  std::error_code failed;
  size_ = std::filesystem::file_size(path_, failed);
  if (failed) size_ = 0;
  file_.open(path_, std::ios::app | std::ios::binary);
}

void FileLog::rotate() {
  file_.close();
  std::filesystem::path old = path_;
  old += ".1";
  std::error_code failed;
  std::filesystem::rename(path_, old, failed);
  open();
}

void FileLog::write(std::string_view level, std::string_view text) noexcept {
  try {
    if (size_ >= sizeLimit_) rotate();
    std::string line = stamp(clock_.now());
    line.append(" ").append(level).append(" ").append(oneLine(text)).append("\r\n");
    file_ << line << std::flush;
    size_ += line.size();
    // A full disk must not end the log for good.
    file_.clear();
  } catch (...) {
    // The log has nobody to complain to.
    size_ = 0;
  }
}

}  // namespace tessivo
