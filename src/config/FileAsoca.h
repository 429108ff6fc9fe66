#pragma once

#include <optional>
#include <string>

#include "config/RegAccess.h"

namespace tessivo {

/// One file type that the program can be the handler of. It reads, sets and removes the type's
/// association in the registry and remembers which program identifier had the extension before, so
/// that it can be handed back. What the registry refuses shows in `boolAssociate` and is otherwise
/// silent. The settings dialog uses it.
class FileAsoca {
 public:
  explicit FileAsoca(Registry& registry) : registry_(registry) {}

  /// The database of the settings.
  std::string strConfigFilePath;
  /// The extension with its dot, ".mp3".
  std::string strAppAsocaKeyName;
  std::string strDescriptionInfo;
  /// The program identifier of this program for the type.
  std::string strAppIdKeyName;
  /// The identifier that had the extension before.
  std::string strOldAppIdKeyName;
  /// Who gets the extension when the one before is gone: the first of the two that exists.
  std::string strDefaultAppIdKeyName1;
  std::string strDefaultAppIdKeyName2;
  std::string strMainAppFilePath;
  std::string strDefaultIcoFilePath;
  /// The context-menu handler's class identifier and name.
  std::string strMenuHandlerGUID;
  std::string strMenuHandlerName;
  /// Who has the extension, as last read or written.
  std::string strCurrAppIdKeyName;

  /// Whether the extension belongs to this program, as last read or set.
  bool boolAssociate() const { return boolAssociate_; }

  /// Who has the extension now; nothing when nobody has (its default value cannot be read). Changes
  /// no field.
  std::optional<std::string> owner() const;
  /// Reads who has the extension.
  void checkAssociationState();
  /// Registers the type: an extension that nobody has is taken, one of another program left.
  void InitializeRegistry();
  /// Takes the extension, or hands it back to the one before or a fall-back. An extension that
  /// nobody can be given keeps belonging to this program.
  void setAssociationState(bool state);
  /// Hands the extension back and removes what this program registered for the type.
  void deleteAssociationKeyFromReg();
  /// Keeps `strOldAppIdKeyName` in the database, which is not written when it is there already. An
  /// extension with a single quote is not found.
  void saveOldAppIdKeyNameToDB() const;

 private:
  enum class FallBack { given, refused, noneUsable };

  bool read(const std::string& key, std::string& value) const;
  bool write(const std::string& key, const std::string& value);
  void remove(const std::string& key);
  bool exists(const std::string& identifier) const;
  bool giveExtensionTo(const std::string& identifier);
  bool isOurs(const std::string& identifier) const;
  void take();
  void handBack();
  void writeIdKeys();
  void deleteIdKeys();
  FallBack restoreFallBack();
  void clearExtension();

  Registry& registry_;
  bool boolAssociate_ = false;
};

}  // namespace tessivo
