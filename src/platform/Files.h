#pragma once

#include <optional>
#include <string>
#include <vector>

namespace tessivo {

/// Questions to the file system. Paths are UTF-8.
class Files {
 public:
  virtual ~Files() = default;
  /// Whether the path names an existing file (not a folder). Any error means no. A file system that
  /// does not answer at once means yes: whoever opens the file finds out, and need not wait here.
  virtual bool fileExists(const std::string& path) const = 0;
  /// The same of the first of several, in their order: of one at least, and of as many as can be
  /// said soon. Where another thread answers, many cost hardly more than one.
  virtual std::vector<bool> firstFilesExist(const std::vector<std::string>& paths) const {
    std::vector<bool> exist;
    exist.reserve(paths.size());
    for (const std::string& path : paths) exist.push_back(fileExists(path));
    return exist;
  }
  /// The names, without the folder, of the files in a folder, in the order in which the system
  /// lists them; folders are not among them. Nothing when the folder cannot be read.
  virtual std::optional<std::vector<std::string>> filesIn(const std::string& folder) const = 0;
};

}  // namespace tessivo
