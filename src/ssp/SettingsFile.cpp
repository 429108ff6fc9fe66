#include "ssp/SettingsFile.h"

#include <filesystem>
#include <fstream>
#include <utility>

#include "base/FilePath.h"
#include "base/IniText.h"

namespace tessivo::ssp {
namespace {

bool writeWhole(const std::string& path, const std::string& text) {
  std::ofstream file(toFilePath(path), std::ios::binary | std::ios::trunc);
  file.write(text.data(), static_cast<std::streamsize>(text.size()));
  file.close();
  return !file.fail();
}

}  // namespace

SettingsFile::SettingsFile(std::string besideProgram, std::string ofUser, Flush flush)
    : besideProgram_(std::move(besideProgram)),
      ofUser_(std::move(ofUser)),
      flush_(std::move(flush)) {}

std::string SettingsFile::read() const {
  if (!ofUser_.empty()) {
    if (const auto text = readIniText(ofUser_)) return *text;
  }
  return readIniText(besideProgram_).value_or("");
}

bool SettingsFile::save(const std::string& text) const {
  if (!replaceFile(besideProgram_, text)) return saveForUser(text);
  if (ofUser_.empty()) return true;
  // It would count first.
  std::error_code error;
  std::filesystem::remove(toFilePath(ofUser_), error);
  return !error || saveForUser(text) || !readIniText(ofUser_);
}

/// Beside the file first, so that a crash leaves the old one.
bool SettingsFile::replaceFile(const std::string& path, const std::string& text) const {
  if (path.empty()) return false;
  const std::string fresh = path + ".new";
  std::error_code error;
  if (writeWhole(fresh, text)) {
    if (flush_) flush_(fresh);
    std::filesystem::rename(toFilePath(fresh), toFilePath(path), error);
    if (!error) return true;
  }
  std::filesystem::remove(toFilePath(fresh), error);
  return false;
}

/// Into the old file where nobody may replace it: another program has it open.
bool SettingsFile::saveForUser(const std::string& text) const {
  if (replaceFile(ofUser_, text)) return true;
  std::error_code error;
  return std::filesystem::is_regular_file(toFilePath(ofUser_), error) && writeWhole(ofUser_, text);
}

}  // namespace tessivo::ssp
