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
  if (replaceFile(besideProgram_, text) != Replaced::done) return saveForUser(text);
  if (ofUser_.empty()) return true;
  // It would count first.
  std::error_code error;
  std::filesystem::remove(toFilePath(ofUser_), error);
  return !error || saveForUser(text) || !readIniText(ofUser_);
}

/// Beside the file first, so that a crash leaves the old one.
SettingsFile::Replaced SettingsFile::replaceFile(const std::string& path,
                                                 const std::string& text) const {
  if (path.empty()) return Replaced::notWritten;
  const std::string fresh = path + ".new";
  std::error_code error;
  const bool isWritten = writeWhole(fresh, text);
  if (isWritten && flush_ && !flush_(fresh)) {
    std::filesystem::remove(toFilePath(fresh), error);
    return Replaced::notWritten;
  }
  if (isWritten) {
    std::filesystem::rename(toFilePath(fresh), toFilePath(path), error);
    if (!error) return Replaced::done;
  }
  std::filesystem::remove(toFilePath(fresh), error);
  return isWritten ? Replaced::heldByOthers : Replaced::notWritten;
}

/// Into the old file where nobody may replace it, since another program has it open; not where
/// there was no room for another: the old text would be gone.
bool SettingsFile::saveForUser(const std::string& text) const {
  const Replaced replaced = replaceFile(ofUser_, text);
  if (replaced != Replaced::heldByOthers) return replaced == Replaced::done;
  std::error_code error;
  return std::filesystem::is_regular_file(toFilePath(ofUser_), error) &&
         writeWhole(ofUser_, text) && (!flush_ || flush_(ofUser_));
}

}  // namespace tessivo::ssp
