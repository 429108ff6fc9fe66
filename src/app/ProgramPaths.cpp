#include "app/ProgramPaths.h"

namespace tessivo {

ProgramPaths formProgramPaths(const std::string& programFolder) {
  ProgramPaths paths;
  paths.programFolder = programFolder;
  const auto separator = programFolder.rfind('\\');
  paths.parentFolder =
      separator == std::string::npos ? programFolder : programFolder.substr(0, separator);
  paths.database = programFolder + "\\SysConfig";
  paths.databaseForOthers = programFolder + "\\sysconfig";
  paths.screenSaverFolder = programFolder + "\\SSP";
  paths.associationStore = paths.parentFolder + "\\FileAssocia";
  paths.helpPage = programFolder + "\\Help\\FunctionIntroduce.htm";
  return paths;
}

}  // namespace tessivo
