#include "platform/win32/Win32FileVersions.h"

#include <windows.h>

#include "platform/win32/WindowsText.h"

namespace tessivo {

std::vector<std::uint8_t> Win32FileVersions::resourceOf(const std::string& file) const {
  const std::wstring name = toWide(file);
  if (name.empty() || name.find(L'\0') != std::wstring::npos) return {};
  // Some hundred bytes to a few thousand; what claims more is damaged.
  constexpr DWORD kGreatest = 1 << 20;
  DWORD unused = 0;
  const DWORD size = GetFileVersionInfoSizeW(name.c_str(), &unused);
  if (size == 0 || size > kGreatest) return {};
  std::vector<std::uint8_t> resource(size);
  if (!GetFileVersionInfoW(name.c_str(), 0, size, resource.data())) return {};
  return resource;
}

}  // namespace tessivo
