#pragma once

#include <functional>
#include <string>

namespace tessivo::ssp {

/// Where a screen-saver program keeps its settings: beside itself, or in the user's own folder
/// where the program's may not be written. What lies in the user's folder counts first.
class SettingsFile {
 public:
  /// Brings what was written to the file of that path to the disk itself. False when it cannot.
  using Flush = std::function<bool(const std::string& path)>;

  /// Two paths; the second may be empty: there is none. Without `flush` the system writes when it
  /// likes.
  SettingsFile(std::string besideProgram, std::string ofUser, Flush flush = nullptr);

  /// Empty when there is none. At most a byte more than an ini file may have.
  std::string read() const;
  /// Whether the text is what `read` finds from now on. Where a file cannot be written it stays as
  /// it was.
  bool save(const std::string& text) const;

 private:
  enum class Replaced { done, notWritten, heldByOthers };
  Replaced replaceFile(const std::string& path, const std::string& text) const;
  bool saveForUser(const std::string& text) const;

  std::string besideProgram_;
  std::string ofUser_;
  Flush flush_;
};

}  // namespace tessivo::ssp
