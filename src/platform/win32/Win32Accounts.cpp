#include "platform/win32/Win32Accounts.h"

#include <windows.h>
// After windows.h, which it needs:
#include <lm.h>

#include <array>
#include <span>

#include "platform/win32/WindowsText.h"

namespace tessivo {
namespace {

constexpr DWORD kMostBytes = 1024;
constexpr DWORD kNameSize = 199;

/// This machine has no name, for which the system wants no text at all: an empty one need not do
/// (Wine takes it for the name of another machine).
const wchar_t* nameOrNothing(const std::wstring& server) {
  return server.empty() ? nullptr : server.c_str();
}

/// Takes the names out of the system's buffer, which is given back.
template <typename Entry, typename NameOf>
std::uint32_t takeNames(NET_API_STATUS status, BYTE* buffer, DWORD count, const NameOf& nameOf,
                        std::vector<std::string>& groups) {
  groups.clear();
  if (status == NERR_Success && buffer) {
    for (const Entry& entry : std::span(reinterpret_cast<const Entry*>(buffer), count)) {
      groups.push_back(fromWide(nameOf(entry)));
    }
  }
  if (buffer) NetApiBufferFree(buffer);
  return status;
}

}  // namespace

std::string Win32Accounts::currentUserName() const {
  std::array<wchar_t, kNameSize + 1> name{};
  DWORD size = kNameSize;  // becomes the name's length with its NUL
  if (!GetUserNameW(name.data(), &size)) return "";
  return fromWide({name.data(), size});
}

std::uint32_t Win32Accounts::localGroupsOf(const std::string& server, const std::string& user,
                                           std::vector<std::string>& groups) const {
  BYTE* buffer = nullptr;
  DWORD count = 0;
  DWORD total = 0;
  const std::wstring name = toWide(server);
  const NET_API_STATUS status = NetUserGetLocalGroups(nameOrNothing(name), toWide(user).c_str(), 0,
                                                      0, &buffer, kMostBytes, &count, &total);
  return takeNames<LOCALGROUP_USERS_INFO_0>(
      status, buffer, count, [](const auto& entry) { return entry.lgrui0_name; }, groups);
}

std::uint32_t Win32Accounts::globalGroupsOf(const std::string& server, const std::string& user,
                                            std::vector<std::string>& groups) const {
  BYTE* buffer = nullptr;
  DWORD count = 0;
  DWORD total = 0;
  const NET_API_STATUS status = NetUserGetGroups(toWide(server).c_str(), toWide(user).c_str(), 0,
                                                 &buffer, kMostBytes, &count, &total);
  return takeNames<GROUP_USERS_INFO_0>(
      status, buffer, count, [](const auto& entry) { return entry.grui0_name; }, groups);
}

std::optional<bool> Win32Accounts::processIsElevated() const {
  HANDLE token = nullptr;
  if (!OpenProcessToken(GetCurrentProcess(), TOKEN_QUERY, &token)) return std::nullopt;
  TOKEN_ELEVATION elevation{};
  DWORD size = sizeof elevation;
  const bool told = GetTokenInformation(token, TokenElevation, &elevation, size, &size) != FALSE;
  CloseHandle(token);
  return told ? std::optional(elevation.TokenIsElevated != 0) : std::nullopt;
}

}  // namespace tessivo
