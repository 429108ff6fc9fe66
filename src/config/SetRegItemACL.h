#pragma once

#include <cstdint>
#include <string>

#include "platform/KeySecurity.h"

namespace tessivo {

/// Lets an account do something with a registry key. Nothing calls it at present.
class SetRegItemACL {
 public:
  explicit SetRegItemACL(KeySecurity& security) : security_(security) {}

  /// Adds to the key's access list an entry that allows the account what the mask says, after all
  /// others; entries about the account that were there go. `result` is whether that succeeded. A
  /// key whose list is empty is left as it is, which counts as success.
  void pSetKeyAccess(RegistryRoot rootKey, const std::string& subKey,
                     const std::string& accountName, std::uint32_t accessMask, bool& result);
  /// What the system said when it refused the new list in the last call; empty when it did not.
  const std::string& strDiagnostic() const { return strDiagnostic_; }

 private:
  bool readList(KeySecurity::Key key, std::optional<AccessList>& list) const;
  bool makeList(const AccessList& old, const Bytes& account, std::uint32_t accessMask,
                Bytes& list) const;
  bool writeList(KeySecurity::Key key, const Bytes& list);
  std::string diagnosticOf(std::uint32_t error, const std::string& apiName) const;

  KeySecurity& security_;
  std::string strDiagnostic_;
};

}  // namespace tessivo
