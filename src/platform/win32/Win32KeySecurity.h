#pragma once

#include "platform/KeySecurity.h"

namespace tessivo {

class Win32KeySecurity : public KeySecurity {
 public:
  std::uint32_t accountIdentifierOf(const std::string& account, Bytes& identifier) const override;
  std::uint32_t open(RegistryRoot root, const std::string& key, std::uint32_t access,
                     Key& opened) override;
  void close(Key key) override;
  std::uint32_t readDescriptor(Key key, Bytes& descriptor, std::uint32_t& needed) const override;
  std::uint32_t listOf(const Bytes& descriptor, std::optional<AccessList>& list) const override;
  std::uint32_t makeList(std::uint32_t size, const std::vector<AccessEntry>& entries,
                         std::uint32_t mask, const Bytes& accountIdentifier,
                         Bytes& list) const override;
  std::uint32_t writeList(Key key, const Bytes& list) override;
  std::string messageOf(std::uint32_t error) const override;
};

}  // namespace tessivo
