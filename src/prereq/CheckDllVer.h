#pragma once

#include <string>

#include "platform/FileVersions.h"

namespace tessivo {

/// Reads the version of a file.
class CheckDllVer {
 public:
  explicit CheckDllVer(const FileVersions& versions) : versions_(versions) {}

  /// The file's version, "12.0.7601.16982", or "N/A" when it has none or there is no such file. A
  /// bare file name is looked for where the system looks for libraries.
  std::string GetVersionInfo(const std::string& fileName) const;

 private:
  const FileVersions& versions_;
};

}  // namespace tessivo
