#include "config/SetRegItemACL.h"

#include <algorithm>

namespace tessivo {
namespace {

constexpr std::uint32_t kAllAccess = 0xF003F;
constexpr std::uint32_t kInsufficientBuffer = 122;
constexpr std::size_t kFirstDescriptorBytes = 256;
/// An entry without the account's identifier, and what of the identifier is counted in it already.
constexpr std::uint32_t kEntryBytes = 12;
constexpr std::uint32_t kCountedTwice = 4;

/// A number as text with a place for its sign, which is a blank here.
std::string withSignPlace(std::uint32_t number) {
  return ' ' + std::to_string(number);
}

}  // namespace

void SetRegItemACL::pSetKeyAccess(RegistryRoot rootKey, const std::string& subKey,
                                  const std::string& accountName, std::uint32_t accessMask,
                                  bool& result) {
  result = false;
  strDiagnostic_.clear();
  Bytes account;
  if (security_.accountIdentifierOf(accountName, account) != 0) return;
  KeySecurity::Key key = 0;
  if (security_.open(rootKey, subKey, kAllAccess, key) != 0) return;
  std::optional<AccessList> old;
  if (!readList(key, old)) return;  // the key stays open
  if (!old->entries.empty()) {
    Bytes list;
    if (!makeList(*old, account, accessMask, list)) return;  // and here
    result = writeList(key, list);
  } else {
    result = true;
  }
  security_.close(key);
}

bool SetRegItemACL::readList(KeySecurity::Key key, std::optional<AccessList>& list) const {
  Bytes descriptor(kFirstDescriptorBytes);
  std::uint32_t needed = 0;
  std::uint32_t error = security_.readDescriptor(key, descriptor, needed);
  if (error == kInsufficientBuffer) {
    descriptor.resize(needed);
    error = security_.readDescriptor(key, descriptor, needed);
  }
  return error == 0 && security_.listOf(descriptor, list) == 0 && list.has_value();
}

bool SetRegItemACL::makeList(const AccessList& old, const Bytes& account, std::uint32_t accessMask,
                             Bytes& list) const {
  std::vector<AccessEntry> kept = old.entries;
  std::erase_if(kept, [&](const auto& entry) { return entry.accountIdentifier == account; });
  const std::uint32_t size = old.bytesInUse +
                             2 * (static_cast<std::uint32_t>(account.size()) + kEntryBytes) -
                             kCountedTwice;
  return security_.makeList(size, kept, accessMask, account, list) == 0;
}

bool SetRegItemACL::writeList(KeySecurity::Key key, const Bytes& list) {
  const std::uint32_t error = security_.writeList(key, list);
  if (error != 0) strDiagnostic_ = diagnosticOf(error, "RegSetKeySecurity");
  return error == 0;
}

std::string SetRegItemACL::diagnosticOf(std::uint32_t error, const std::string& apiName) const {
  std::string message = security_.messageOf(error);
  if (message.empty()) message = "System error code: " + withSignPlace(error);
  return "ErrorCode: " + withSignPlace(error) + "API: " + apiName + "System error: " + message;
}

}  // namespace tessivo
