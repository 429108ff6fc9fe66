#pragma once

#include <chrono>
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "platform/BoundedAnswers.h"
#include "platform/Files.h"

namespace tessivo {

/// The file system of Windows, paths of any length.
class Win32Files : public Files {
 public:
  /// How long a drive or a share may take to say whether a file exists.
  static constexpr std::chrono::milliseconds kPatience{100};

  /// Asks the system, and waits for it as long as it takes. Callable from any thread.
  static bool isFile(const std::wstring& path);

  explicit Win32Files(std::function<bool(const std::wstring&)> ask = isFile)
      : ask_(std::move(ask)) {}

  bool fileExists(const std::string& path) const override {
    return firstFilesExist({path}).front();
  }
  std::vector<bool> firstFilesExist(const std::vector<std::string>& paths) const override;
  std::optional<std::vector<std::string>> filesIn(const std::string& folder) const override;

 private:
  const std::function<bool(const std::wstring&)> ask_;
  mutable BoundedAnswers answers_{kPatience};
};

}  // namespace tessivo
