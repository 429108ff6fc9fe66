#include "config/FileAsoca.h"

#include "base/Text.h"
#include "data/DataAccess.h"
#include "data/DataError.h"

namespace tessivo {
namespace {

constexpr const char* kClasses = "HKCR\\";
/// The identifier's default value, where other programs have a description.
constexpr const char* kIdValue = "0";
constexpr const char* kHandlers = R"(\shellex\ContextMenuHandlers)";
constexpr const char* kCommand = R"(\shell\open\command)";
constexpr const char* kIcon = "\\DefaultIcon";

}  // namespace

bool FileAsoca::read(const std::string& key, std::string& value) const {
  std::string errorText;
  std::int32_t errorFlag = 0;
  return RegAccess(registry_).boolRegRead(kClasses + key + "\\", value, errorText, errorFlag);
}

bool FileAsoca::write(const std::string& key, const std::string& value) {
  std::string errorText;
  std::int32_t errorFlag = 0;
  return RegAccess(registry_).boolRegWrite(kClasses + key + "\\", value, errorText, errorFlag);
}

void FileAsoca::remove(const std::string& key) {
  std::string errorText;
  std::int32_t errorFlag = 0;
  RegAccess(registry_).boolRegDelete(kClasses + key + "\\", errorText, errorFlag);
}

bool FileAsoca::exists(const std::string& identifier) const {
  std::string ignored;
  return !identifier.empty() && read(identifier, ignored);
}

/// Not to nobody: the database may lack the identifier.
bool FileAsoca::giveExtensionTo(const std::string& identifier) {
  if (identifier.empty() || !write(strAppAsocaKeyName, identifier)) return false;
  strCurrAppIdKeyName = identifier;
  return true;
}

bool FileAsoca::isOurs(const std::string& identifier) const {
  return !identifier.empty() && toUpper(identifier) == toUpper(strAppIdKeyName);
}

std::optional<std::string> FileAsoca::owner() const {
  std::string identifier;
  return read(strAppAsocaKeyName, identifier) ? std::optional(identifier) : std::nullopt;
}

void FileAsoca::checkAssociationState() {
  boolAssociate_ = read(strAppAsocaKeyName, strCurrAppIdKeyName) && isOurs(strCurrAppIdKeyName);
}

void FileAsoca::InitializeRegistry() {
  if (!read(strAppAsocaKeyName, strCurrAppIdKeyName) && !giveExtensionTo(strAppIdKeyName)) {
    strCurrAppIdKeyName.clear();
  }
  strOldAppIdKeyName = strCurrAppIdKeyName;
  writeIdKeys();
  boolAssociate_ = isOurs(strCurrAppIdKeyName);
  saveOldAppIdKeyNameToDB();
}

void FileAsoca::setAssociationState(bool state) {
  bool created = false;
  if (!read(strAppAsocaKeyName, strCurrAppIdKeyName)) {
    if (!giveExtensionTo(strAppIdKeyName)) {
      boolAssociate_ = false;
      return;
    }
    strOldAppIdKeyName = strAppIdKeyName;
    created = true;
  }
  boolAssociate_ = state;
  if (state) {
    take();
  } else if (created) {
    boolAssociate_ = true;  // nobody else could have it
  } else {
    handBack();
  }
}

void FileAsoca::take() {
  if (isOurs(strCurrAppIdKeyName)) return;
  const std::string before = strCurrAppIdKeyName;
  boolAssociate_ = giveExtensionTo(strAppIdKeyName);
  if (boolAssociate_) strOldAppIdKeyName = before;
  writeIdKeys();
}

void FileAsoca::handBack() {
  if (!isOurs(strCurrAppIdKeyName)) return;  // another program has taken it meanwhile
  const bool toOld = !isOurs(strOldAppIdKeyName) && exists(strOldAppIdKeyName);
  boolAssociate_ =
      !(toOld ? giveExtensionTo(strOldAppIdKeyName) : restoreFallBack() == FallBack::given);
}

/// The first usable one it is, also when the registry refuses it.
FileAsoca::FallBack FileAsoca::restoreFallBack() {
  for (const std::string& identifier : {strDefaultAppIdKeyName1, strDefaultAppIdKeyName2}) {
    if (isOurs(identifier) || !exists(identifier)) continue;
    if (!giveExtensionTo(identifier)) return FallBack::refused;
    strOldAppIdKeyName = identifier;
    return FallBack::given;
  }
  return FallBack::noneUsable;
}

void FileAsoca::clearExtension() {
  if (restoreFallBack() == FallBack::noneUsable) write(strAppAsocaKeyName, "");
}

void FileAsoca::deleteAssociationKeyFromReg() {
  std::string current;
  if (read(strAppAsocaKeyName, current) && isOurs(current)) {
    if (!isOurs(strOldAppIdKeyName) && exists(strOldAppIdKeyName)) {
      write(strAppAsocaKeyName, strOldAppIdKeyName);
    } else {
      clearExtension();
    }
  }
  deleteIdKeys();
}

void FileAsoca::writeIdKeys() {
  const std::string& id = strAppIdKeyName;
  write(id, kIdValue);
  write(id + kIcon, strDefaultIcoFilePath);
  write(id + kCommand, '"' + strMainAppFilePath + "\" %1");
  write(id + kHandlers + "\\" + strMenuHandlerName, strMenuHandlerGUID);
}

/// The innermost first: a key with keys below it would stay.
void FileAsoca::deleteIdKeys() {
  const std::string& id = strAppIdKeyName;
  remove(id + kHandlers + "\\" + strMenuHandlerName);
  remove(id + kHandlers);
  remove(id + "\\shellex");
  remove(id + kCommand);
  remove(id + "\\shell\\open");
  remove(id + "\\shell");
  remove(id + kIcon);
  remove(id);
}

void FileAsoca::saveOldAppIdKeyNameToDB() const {
  try {
    std::string errorText;
    const auto row = DataAccess().objrsGetRecordSet1(
        "select * from file_association where app_association='" + strAppAsocaKeyName + "'",
        strConfigFilePath, errorText);
    if (!row || row->bof() || row->eof()) return;
    if (asText(row->value("old_app_id")) == strOldAppIdKeyName) return;
    row->setValue("old_app_id", Value(strOldAppIdKeyName));
    row->update();
    row->close();
  } catch (const DataError&) {
    // The extension is handed back all the same, to the one that the database knows.
  }
}

}  // namespace tessivo
