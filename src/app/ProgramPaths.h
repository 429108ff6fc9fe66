#pragma once

#include <string>

namespace tessivo {

/// The program's paths, formed once at start from the folder of the executable.
struct ProgramPaths {
  std::string programFolder;      ///< without a trailing backslash
  std::string parentFolder;       ///< the program folder up to its last backslash
  std::string database;           ///< the file for the settings and the playlist
  std::string databaseForOthers;  ///< the same file, for those who open it themselves
  std::string screenSaverFolder;
  std::string associationStore;
  std::string helpPage;
};

ProgramPaths formProgramPaths(const std::string& programFolder);

}  // namespace tessivo
