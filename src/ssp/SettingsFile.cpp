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

/// Beside the file first, so that a crash leaves the old one.
bool replaceFile(const std::string& path, const std::string& text) {
  if (path.empty()) return false;
  const std::string fresh = path + ".new";
  std::error_code error;
  if (writeWhole(fresh, text)) {
    std::filesystem::rename(toFilePath(fresh), toFilePath(path), error);
    if (!error) return true;
  }
  std::filesystem::remove(toFilePath(fresh), error);
  return false;
}

}  // namespace

SettingsFile::SettingsFile(std::string besideProgram, std::string ofUser)
    : besideProgram_(std::move(besideProgram)), ofUser_(std::move(ofUser)) {}

std::string SettingsFile::read() const {
  if (!ofUser_.empty()) {
    if (const auto text = readIniText(ofUser_)) return *text;
  }
  return readIniText(besideProgram_).value_or("");
}

bool SettingsFile::save(const std::string& text) const {
  if (!replaceFile(besideProgram_, text)) return replaceFile(ofUser_, text);
  std::error_code none;
  // It would count first.
  if (!ofUser_.empty()) std::filesystem::remove(toFilePath(ofUser_), none);
  return true;
}

}  // namespace tessivo::ssp
