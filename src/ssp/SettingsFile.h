#pragma once

#include <string>

namespace tessivo::ssp {

/// Where a screen-saver program keeps its settings: beside itself, or in the user's own folder
/// where the program's may not be written. What lies in the user's folder counts first.
class SettingsFile {
 public:
  /// Two paths; the second may be empty: there is none.
  SettingsFile(std::string besideProgram, std::string ofUser);

  /// Empty when there is none. At most a byte more than an ini file may have.
  std::string read() const;
  /// Either the whole text is saved or nothing is changed. False when neither file can be written.
  bool save(const std::string& text) const;

 private:
  std::string besideProgram_;
  std::string ofUser_;
};

}  // namespace tessivo::ssp
