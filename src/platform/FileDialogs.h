#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "platform/Displays.h"

namespace tessivo {

/// What the open-file dialog is to show and how much it may answer.
struct OpenFilesRequest {
  std::string title;
  std::uint32_t flags = 0;       ///< the system's OFN_ bits, passed on unchanged
  std::string filter;            ///< "name|patterns|name|patterns…"
  std::int32_t filterIndex = 1;  ///< the filter's entry chosen at first, from 1
  std::int32_t maxLength = 0;    ///< of the answer in UTF-16 characters, its last NUL included
  WindowHandle owner = 0;        ///< the dialog is modal over it
  /// The dialog begins in the user's folder of videos, and later where something was chosen last.
  /// Without this it begins where the system likes.
  bool beginsInVideos = false;
};

enum class FileDialogOutcome {
  chosen,
  cancelled,
  tooMany,  ///< the chosen names do not fit into `maxLength` characters
  failed,   ///< the dialog could not be shown, or broke off; the log has the reason
};

struct OpenFilesAnswer {
  FileDialogOutcome outcome = FileDialogOutcome::cancelled;
  /// Empty unless chosen. One path; of several files the folder and then the names, separated by
  /// NUL characters, with none at the end. A drive's root is the only folder that ends with '\'.
  std::string text;
};

/// What the dialog that asks for a folder is to show.
struct ChooseFolderRequest {
  std::string title;
  std::string folder;      ///< where it begins; one that is not there: where the system likes
  WindowHandle owner = 0;  ///< the dialog is modal over it
};

/// The system's dialogs that ask for files and folders. The control panel and the dialogs of
/// settings ask.
class FileDialogs {
 public:
  virtual ~FileDialogs() = default;
  /// Shows the dialog and serves messages until the user has answered. Leaves the process's
  /// current folder as it was.
  virtual OpenFilesAnswer openFiles(const OpenFilesRequest& request) = 0;
  /// The same for one folder of the file system. Nothing when the user cancelled, or the dialog
  /// could not be shown; the log has the reason then.
  virtual std::optional<std::string> chooseFolder(const ChooseFolderRequest& request) = 0;
};

}  // namespace tessivo
