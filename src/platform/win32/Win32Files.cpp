#include "platform/win32/Win32Files.h"

#include <windows.h>

#include "platform/win32/WindowsText.h"

namespace tessivo {
namespace {

std::wstring fullPath(const std::wstring& path) {
  std::wstring full(GetFullPathNameW(path.c_str(), 0, nullptr, nullptr), L'\0');
  full.resize(
      GetFullPathNameW(path.c_str(), static_cast<DWORD>(full.size()), full.data(), nullptr));
  return full;
}

/// The path in the form that has no limit of 260 characters. It must be given in full.
std::wstring unlimited(const std::wstring& path) {
  if (path.starts_with(LR"(\\?\)") || path.starts_with(LR"(\\.\)")) return path;
  if (path.starts_with(LR"(\\)")) return LR"(\\?\UNC)" + path.substr(1);
  return LR"(\\?\)" + path;
}

}  // namespace

bool Win32Files::fileExists(const std::string& path) const {
  std::wstring wide = toWide(path);
  if (wide.empty() || wide.find(L'\0') != std::wstring::npos) return false;
  if (wide.size() >= MAX_PATH) wide = unlimited(fullPath(wide));
  const DWORD attributes = GetFileAttributesW(wide.c_str());
  return attributes != INVALID_FILE_ATTRIBUTES && !(attributes & FILE_ATTRIBUTE_DIRECTORY);
}

}  // namespace tessivo
