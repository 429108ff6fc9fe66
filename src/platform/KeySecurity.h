#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "platform/Registry.h"

namespace tessivo {

using Bytes = std::vector<std::uint8_t>;

/// One entry of an access list.
struct AccessEntry {
  Bytes bytes;              ///< the entry as the system keeps it
  Bytes accountIdentifier;  ///< whom it is about

  bool operator==(const AccessEntry&) const = default;
};

/// The access list of a registry key.
struct AccessList {
  std::uint32_t bytesInUse = 0;
  std::vector<AccessEntry> entries;
};

/// Who may do what with a registry key. Every operation returns 0, or the system's error.
class KeySecurity {
 public:
  using Key = std::uintptr_t;

  virtual ~KeySecurity() = default;
  /// The security identifier of an account of this machine.
  virtual std::uint32_t accountIdentifierOf(const std::string& account,
                                            Bytes& identifier) const = 0;
  virtual std::uint32_t open(RegistryRoot root, const std::string& key, std::uint32_t access,
                             Key& opened) = 0;
  virtual void close(Key key) = 0;
  /// Reads the key's security descriptor into as many bytes as there are; `needed` is how many it
  /// takes when those are too few, which is the error 122.
  virtual std::uint32_t readDescriptor(Key key, Bytes& descriptor, std::uint32_t& needed) const = 0;
  /// The discretionary list of a descriptor; nothing when it has none.
  virtual std::uint32_t listOf(const Bytes& descriptor, std::optional<AccessList>& list) const = 0;
  /// Makes a list of `size` bytes: the entries, and after them one that allows the account what the
  /// mask says.
  virtual std::uint32_t makeList(std::uint32_t size, const std::vector<AccessEntry>& entries,
                                 std::uint32_t mask, const Bytes& accountIdentifier,
                                 Bytes& list) const = 0;
  /// Gives the key that discretionary list.
  virtual std::uint32_t writeList(Key key, const Bytes& list) = 0;
  /// The system's words for an error; empty when it has none.
  virtual std::string messageOf(std::uint32_t error) const = 0;
};

}  // namespace tessivo
