#include "platform/win32/Win32KeySecurity.h"

#include <windows.h>

#include <array>
#include <span>

#include "platform/win32/RegistryRoots.h"
#include "platform/win32/WindowsText.h"

namespace tessivo {
namespace {

constexpr std::size_t kDomainSize = 255;
constexpr std::size_t kMessageSize = 1000;

HKEY keyOf(KeySecurity::Key key) {
  return reinterpret_cast<HKEY>(key);
}

/// What the functions take as a place to be written, though they only read it.
template <typename Structure>
Structure* placeOf(Bytes& bytes) {
  return reinterpret_cast<Structure*>(bytes.data());
}

/// Entries that allow or deny, with and without an object, are laid out alike up to the account's
/// identifier only for the two plain kinds; of the others nobody is said to be their account.
Bytes accountOf(ACE_HEADER* header) {
  if (header->AceType != ACCESS_ALLOWED_ACE_TYPE && header->AceType != ACCESS_DENIED_ACE_TYPE) {
    return {};
  }
  PSID identifier = &reinterpret_cast<ACCESS_ALLOWED_ACE*>(header)->SidStart;
  const auto* begin = static_cast<const std::uint8_t*>(identifier);
  return {begin, begin + GetLengthSid(identifier)};
}

}  // namespace

std::uint32_t Win32KeySecurity::accountIdentifierOf(const std::string& account,
                                                    Bytes& identifier) const {
  const std::wstring name = toWide(account);
  std::array<wchar_t, kDomainSize + 1> domain{};
  DWORD identifierSize = 0;
  DWORD domainSize = kDomainSize;
  SID_NAME_USE use = SidTypeUnknown;
  LookupAccountNameW(nullptr, name.c_str(), nullptr, &identifierSize, domain.data(), &domainSize,
                     &use);
  if (identifierSize == 0) return GetLastError();
  identifier.resize(identifierSize);
  domainSize = kDomainSize;
  return LookupAccountNameW(nullptr, name.c_str(), identifier.data(), &identifierSize,
                            domain.data(), &domainSize, &use)
             ? 0
             : GetLastError();
}

std::uint32_t Win32KeySecurity::open(RegistryRoot root, const std::string& key,
                                     std::uint32_t access, Key& opened) {
  HKEY handle = nullptr;
  const LSTATUS status = RegOpenKeyExW(handleOf(root), toWide(key).c_str(), 0, access, &handle);
  opened = reinterpret_cast<Key>(handle);
  return static_cast<std::uint32_t>(status);
}

void Win32KeySecurity::close(Key key) {
  RegCloseKey(keyOf(key));
}

std::uint32_t Win32KeySecurity::readDescriptor(Key key, Bytes& descriptor,
                                               std::uint32_t& needed) const {
  auto size = static_cast<DWORD>(descriptor.size());
  const LSTATUS status =
      RegGetKeySecurity(keyOf(key), DACL_SECURITY_INFORMATION, descriptor.data(), &size);
  needed = size;
  return static_cast<std::uint32_t>(status);
}

std::uint32_t Win32KeySecurity::listOf(const Bytes& descriptor,
                                       std::optional<AccessList>& list) const {
  list.reset();
  Bytes copy = descriptor;
  BOOL present = FALSE;
  BOOL defaulted = FALSE;
  ACL* acl = nullptr;
  if (!GetSecurityDescriptorDacl(copy.data(), &present, &acl, &defaulted)) return GetLastError();
  if (!present || !acl) return 0;
  ACL_SIZE_INFORMATION size{};
  if (!GetAclInformation(acl, &size, sizeof size, AclSizeInformation)) return GetLastError();
  AccessList found{size.AclBytesInUse, {}};
  for (DWORD i = 0; i < size.AceCount; ++i) {
    void* entry = nullptr;
    if (!GetAce(acl, i, &entry)) return GetLastError();
    auto* header = static_cast<ACE_HEADER*>(entry);
    const std::span bytes(static_cast<const std::uint8_t*>(entry), header->AceSize);
    found.entries.push_back({{bytes.begin(), bytes.end()}, accountOf(header)});
  }
  list = std::move(found);
  return 0;
}

std::uint32_t Win32KeySecurity::makeList(std::uint32_t size,
                                         const std::vector<AccessEntry>& entries,
                                         std::uint32_t mask, const Bytes& accountIdentifier,
                                         Bytes& list) const {
  list.assign(size, 0);
  ACL* const acl = placeOf<ACL>(list);
  if (!InitializeAcl(acl, size, ACL_REVISION)) return GetLastError();
  for (const AccessEntry& entry : entries) {
    Bytes copy = entry.bytes;
    if (!AddAce(acl, ACL_REVISION, MAXDWORD, copy.data(), static_cast<DWORD>(copy.size()))) {
      return GetLastError();
    }
  }
  Bytes account = accountIdentifier;
  return AddAccessAllowedAce(acl, ACL_REVISION, mask, account.data()) ? 0 : GetLastError();
}

std::uint32_t Win32KeySecurity::writeList(Key key, const Bytes& list) {
  Bytes copy = list;
  SECURITY_DESCRIPTOR descriptor{};
  if (!InitializeSecurityDescriptor(&descriptor, SECURITY_DESCRIPTOR_REVISION) ||
      !SetSecurityDescriptorDacl(&descriptor, TRUE, placeOf<ACL>(copy), FALSE)) {
    return GetLastError();
  }
  return static_cast<std::uint32_t>(
      RegSetKeySecurity(keyOf(key), DACL_SECURITY_INFORMATION, &descriptor));
}

std::string Win32KeySecurity::messageOf(std::uint32_t error) const {
  std::array<wchar_t, kMessageSize> text{};
  const DWORD length =
      FormatMessageW(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr, error, 0,
                     text.data(), static_cast<DWORD>(text.size()), nullptr);
  return fromWide({text.data(), length});
}

}  // namespace tessivo
