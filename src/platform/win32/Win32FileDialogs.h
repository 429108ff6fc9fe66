#pragma once

#include <string>

#include "platform/FileDialogs.h"
#include "platform/Log.h"

namespace tessivo {

/// The dialogs of the system's common-dialog library.
class Win32FileDialogs : public FileDialogs {
 public:
  explicit Win32FileDialogs(Log& log) : log_(log) {}

  OpenFilesAnswer openFiles(const OpenFilesRequest& request) override;
  /// The thread must have COM's single-threaded apartment.
  std::optional<std::string> chooseFolder(const ChooseFolderRequest& request) override;

 private:
  OpenFilesAnswer ask(const OpenFilesRequest& request);
  std::optional<std::string> askFolder(const ChooseFolderRequest& request);

  Log& log_;
  std::wstring
      folder_;  ///< that a dialog which begins in the videos begins in; "" before the first
};

}  // namespace tessivo
