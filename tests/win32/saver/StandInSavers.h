#pragma once

#include <windows.h>

#include <fstream>
#include <sstream>
#include <string>

#include "base/FilePath.h"
#include "fakes/TempFolder.h"
#include "platform/win32/ProgramFolder.h"
#include "platform/win32/WindowsText.h"
#include "win32/WaitFor.h"

namespace tessivo {

/// A folder with copies of the stand-in for a screen-saver program, whose name says what they do
/// (tests/programs/stand_in_saver.cpp).
class StandInSavers {
 public:
  /// `name` without ".exe", relative to the folder. The program's path; empty when that failed.
  std::string add(const std::string& name) {
    const std::string copy = path(name);
    const bool copied = CopyFileW(toWide(programFolder() + R"(\stand_in_saver.exe)").c_str(),
                                  toWide(copy).c_str(), TRUE) != 0;
    return copied ? copy : "";
  }
  std::string path(const std::string& name) const { return folder.file(name + ".exe"); }
  /// A file that is no program, under the name of one.
  std::string addText(const std::string& name) {
    std::ofstream(toFilePath(path(name))) << "no program";
    return path(name);
  }
  /// What the copies of that name have noted.
  std::string notes(const std::string& name) const {
    std::ifstream file(toFilePath(folder.file(name + ".txt")), std::ios::binary);
    std::ostringstream text;
    text << file.rdbuf();
    return text.str();
  }
  /// How many of their lines begin so.
  int noted(const std::string& name, const std::string& begin) const {
    std::istringstream lines(notes(name));
    int count = 0;
    for (std::string line; std::getline(lines, line);) count += line.starts_with(begin);
    return count;
  }
  /// Waits until that many do.
  bool waitForNotes(const std::string& name, const std::string& begin, int count = 1) const {
    return waitFor([&] { return noted(name, begin) >= count; });
  }
  /// One of the copies ends, when it looks the next time.
  void endOne(const std::string& name) const {
    std::ofstream file(toFilePath(folder.file(name + ".end")));
  }
  /// Waits until it has.
  bool end(const std::string& name) const {
    const int before = noted(name, "end");
    endOne(name);
    return waitForNotes(name, "end", before + 1);
  }

  TempFolder folder;
};

}  // namespace tessivo
