#pragma once

#include <cstdint>
#include <string>

#include "platform/Registry.h"

namespace tessivo {

/// Reads, writes and deletes in the registry by one path: root, keys and value separated by '\'.
/// A path that ends with '\' names a key, to read and write its default value. The root is written
/// out ("HKEY_CLASSES_ROOT") or short (HKCR, HKCU, HKLM), in any case.
///
/// Every operation returns whether it succeeded. If it did not, `errorText` says why and
/// `errorFlag` is -1; if it did, both are left as they were, so that the caller clears them before.
class RegAccess {
 public:
  static constexpr std::int32_t kFailed = -1;

  explicit RegAccess(Registry& registry) : registry_(registry) {}

  /// A number is read as its text; what is neither text nor number cannot be read. `value` changes
  /// only on success. A key whose default value was never set cannot be read.
  bool boolRegRead(const std::string& path, std::string& value, std::string& errorText,
                   std::int32_t& errorFlag) const;
  /// Writes a text and makes the keys that are missing.
  bool boolRegWrite(const std::string& path, const std::string& value, std::string& errorText,
                    std::int32_t& errorFlag);
  /// Deletes the value, or the key, which must have no keys below it.
  bool boolRegDelete(const std::string& path, std::string& errorText, std::int32_t& errorFlag);

 private:
  Registry& registry_;
};

}  // namespace tessivo
