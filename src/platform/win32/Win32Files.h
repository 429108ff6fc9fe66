#pragma once

#include "platform/Files.h"

namespace tessivo {

/// The file system of Windows, paths of any length.
class Win32Files : public Files {
 public:
  bool fileExists(const std::string& path) const override;
  std::optional<std::vector<std::string>> filesIn(const std::string& folder) const override;
};

}  // namespace tessivo
