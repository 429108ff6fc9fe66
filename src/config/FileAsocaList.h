#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "config/FileAsoca.h"

namespace tessivo {

/// The file types that the program can be the handler of, as the database lists them. Lives as long
/// as the settings dialog.
class FileAsocaList {
 public:
  explicit FileAsocaList(Registry& registry) : registry_(registry) {}

  /// The database of the settings.
  std::string strConfigFilePath;
  /// The folder of the program's executable, and that of the icon files.
  std::string strMainAppFolderPath;
  std::string strDefaultIcoFolderPath;

  /// Reads the file names and the context-menu handler that count for all types.
  void getConfigInfoFromDB();
  /// Reads the types, in the order of their extensions. What cannot be read leaves the list empty.
  void getBaseAssocListFromDB();
  /// Reads who has each extension.
  void getInfoFromRegistry() const;
  /// Registers all types, and the context-menu handler as approved.
  void InitializeRegistry();
  /// Takes all that back.
  void deleteAllFileAssocItemFromReg();

  /// How many types there are; they count from 1.
  std::int32_t lngGetListCount() const { return static_cast<std::int32_t>(list_.size()) - 1; }
  /// Nothing outside the list.
  std::shared_ptr<FileAsoca> objGetAFileAsocaObjByIndex(std::int32_t index) const;

 private:
  std::string approvedValue() const;

  Registry& registry_;
  std::string mainAppFileName_;
  std::string defaultIcoFileName_;
  std::string menuHandlerGuid_;
  std::string menuHandlerName_;
  std::vector<std::shared_ptr<FileAsoca>> list_{nullptr};  ///< from index 1 on
};

}  // namespace tessivo
