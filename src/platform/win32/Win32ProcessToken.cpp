#include "platform/win32/Win32ProcessToken.h"

#include "platform/win32/WindowsText.h"

namespace tessivo {

std::uint32_t Win32ProcessToken::open(std::uint32_t access) {
  return OpenProcessToken(GetCurrentProcess(), access, &token_) ? 0 : GetLastError();
}

std::uint32_t Win32ProcessToken::lookUp(const std::string& privilege,
                                        std::uint64_t& identifier) const {
  LUID found{};
  if (!LookupPrivilegeValueW(nullptr, toWide(privilege).c_str(), &found)) return GetLastError();
  ULARGE_INTEGER whole{};
  whole.LowPart = found.LowPart;
  whole.HighPart = static_cast<DWORD>(found.HighPart);
  identifier = whole.QuadPart;
  return 0;
}

std::uint32_t Win32ProcessToken::adjust(bool disableAll, const TokenPrivilege& privilege) {
  ULARGE_INTEGER whole{};
  whole.QuadPart = privilege.identifier;
  TOKEN_PRIVILEGES record{};
  record.PrivilegeCount = privilege.count;
  record.Privileges[0].Luid = {whole.LowPart, static_cast<LONG>(whole.HighPart)};
  record.Privileges[0].Attributes = privilege.attributes;
  static_assert(sizeof record == 16);
  return AdjustTokenPrivileges(token_, disableAll, &record, sizeof record, nullptr, nullptr)
             ? 0
             : GetLastError();
}

}  // namespace tessivo
