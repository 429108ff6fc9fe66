#pragma once

#include <string>

namespace tessivo {

/// Questions to the file system. Paths are UTF-8.
class Files {
 public:
  virtual ~Files() = default;
  /// Whether the path names an existing file (not a folder). Any error means no.
  virtual bool fileExists(const std::string& path) const = 0;
};

}  // namespace tessivo
