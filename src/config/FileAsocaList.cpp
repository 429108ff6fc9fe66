#include "config/FileAsocaList.h"

#include "data/DataAccess.h"
#include "data/DataError.h"

namespace tessivo {
namespace {

constexpr const char* kApproved =
    "HKEY_LOCAL_MACHINE\\Software\\Microsoft\\Windows\\CurrentVersion\\Shell "
    "Extensions\\Approved\\";

/// Nothing when the rows cannot be read.
std::shared_ptr<Recordset> rowsOf(const std::string& sql, const std::string& database) {
  std::string errorText;
  return DataAccess().objrsGetRecordSet1(sql, database, errorText);
}

std::string textOf(const Recordset& row, const char* column) {
  return asText(row.value(column));
}

}  // namespace

void FileAsocaList::getConfigInfoFromDB() {
  try {
    const auto row = rowsOf("select * from file_association_config", strConfigFilePath);
    if (!row || row->bof() || row->eof()) return;
    mainAppFileName_ = textOf(*row, "main_app_file_name");
    defaultIcoFileName_ = textOf(*row, "main_default_ico_file_name");
    menuHandlerGuid_ = textOf(*row, "menu_handler_guid");
    menuHandlerName_ = textOf(*row, "menu_handler_name");
    row->close();
  } catch (const DataError&) {
    // Columns that are not there: what was read so far stays.
  }
}

void FileAsocaList::getBaseAssocListFromDB() {
  list_.assign(1, nullptr);
  try {
    const auto row =
        rowsOf("select * from file_association order by app_association", strConfigFilePath);
    if (!row) return;
    for (; !row->eof(); row->moveNext()) {
      const auto type = std::make_shared<FileAsoca>(registry_);
      type->strConfigFilePath = strConfigFilePath;
      type->strAppAsocaKeyName = textOf(*row, "app_association");
      type->strDescriptionInfo = textOf(*row, "description_info");
      type->strAppIdKeyName = textOf(*row, "app_id");
      type->strOldAppIdKeyName = textOf(*row, "old_app_id");
      type->strDefaultAppIdKeyName1 = textOf(*row, "default_app_id_1");
      type->strDefaultAppIdKeyName2 = textOf(*row, "default_app_id_2");
      if (!mainAppFileName_.empty()) {
        type->strMainAppFilePath = strMainAppFolderPath + "\\" + mainAppFileName_;
      }
      // Here the folder decides, not the file's name.
      if (!strDefaultIcoFolderPath.empty()) {
        type->strDefaultIcoFilePath = strDefaultIcoFolderPath + "\\" + defaultIcoFileName_;
      }
      type->strMenuHandlerGUID = menuHandlerGuid_;
      type->strMenuHandlerName = menuHandlerName_;
      list_.push_back(type);
    }
    row->close();
  } catch (const DataError&) {
    // Columns that are not there: the types read so far stay.
  }
}

void FileAsocaList::getInfoFromRegistry() const {
  for (std::int32_t i = 1; i <= lngGetListCount(); ++i) {
    objGetAFileAsocaObjByIndex(i)->checkAssociationState();
  }
}

std::string FileAsocaList::approvedValue() const {
  return kApproved + menuHandlerGuid_;
}

void FileAsocaList::InitializeRegistry() {
  std::string errorText;
  std::int32_t errorFlag = 0;
  if (!menuHandlerGuid_.empty()) {
    RegAccess(registry_).boolRegWrite(approvedValue(), menuHandlerName_, errorText, errorFlag);
  }
  for (std::int32_t i = 1; i <= lngGetListCount(); ++i) {
    objGetAFileAsocaObjByIndex(i)->InitializeRegistry();
  }
}

void FileAsocaList::deleteAllFileAssocItemFromReg() {
  for (std::int32_t i = 1; i <= lngGetListCount(); ++i) {
    objGetAFileAsocaObjByIndex(i)->deleteAssociationKeyFromReg();
  }
  std::string errorText;
  std::int32_t errorFlag = 0;
  if (!menuHandlerGuid_.empty()) {
    RegAccess(registry_).boolRegDelete(approvedValue(), errorText, errorFlag);
  }
}

std::shared_ptr<FileAsoca> FileAsocaList::objGetAFileAsocaObjByIndex(std::int32_t index) const {
  if (index < 1 || index > lngGetListCount()) return nullptr;
  return list_[static_cast<std::size_t>(index)];
}

}  // namespace tessivo
