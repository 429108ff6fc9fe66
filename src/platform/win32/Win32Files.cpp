#include "platform/win32/Win32Files.h"

#include <windows.h>

#include <memory>

#include "platform/FileRoot.h"
#include "platform/win32/WindowsText.h"

namespace tessivo {
namespace {

constexpr std::chrono::milliseconds kSoon{10};

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

/// Nothing for a text that no path can be.
std::optional<std::wstring> usable(const std::string& path) {
  std::wstring wide = toWide(path);
  if (wide.empty() || wide.find(L'\0') != std::wstring::npos) return std::nullopt;
  if (wide.size() >= MAX_PATH) wide = unlimited(fullPath(wide));
  return wide;
}

}  // namespace

/// Those that lie on the same drive or share as the first, as long as its answers come soon.
std::vector<bool> Win32Files::firstFilesExist(const std::vector<std::string>& paths) const {
  if (paths.empty()) return {};
  const std::string root = rootOf(paths.front());
  std::vector<std::optional<std::wstring>> files;
  for (std::size_t i = 0; i < paths.size() && rootOf(paths[i]) == root; ++i) {
    files.push_back(usable(paths[i]));
  }
  const auto exist = std::make_shared<std::vector<bool>>();
  const auto inTime = answers_.ask(root, [ask = ask_, files, exist] {
    const auto begin = std::chrono::steady_clock::now();
    for (const auto& file : files) {
      exist->push_back(file && ask(*file));
      if (std::chrono::steady_clock::now() - begin > kSoon) break;
    }
    return true;
  });
  if (inTime) return exist->empty() ? std::vector<bool>{false} : *exist;
  std::vector<bool> believed;
  for (const auto& file : files) believed.push_back(file.has_value());
  return believed;
}

bool Win32Files::isFile(const std::wstring& path) {
  const DWORD attributes = GetFileAttributesW(path.c_str());
  return attributes != INVALID_FILE_ATTRIBUTES && !(attributes & FILE_ATTRIBUTE_DIRECTORY);
}

std::optional<std::vector<std::string>> Win32Files::filesIn(const std::string& folder) const {
  if (folder.empty()) return std::nullopt;
  const auto pattern = usable(folder + (folder.ends_with('\\') ? "*" : "\\*"));
  if (!pattern) return std::nullopt;
  WIN32_FIND_DATAW entry{};
  HANDLE search = FindFirstFileW(pattern->c_str(), &entry);
  std::vector<std::string> names;
  if (search == INVALID_HANDLE_VALUE) {
    // The root of an empty drive, which has not even the entry of the folder itself.
    if (GetLastError() == ERROR_FILE_NOT_FOUND) return names;
    return std::nullopt;
  }
  do {
    if (!(entry.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY)) {
      names.push_back(fromWide(&entry.cFileName[0]));
    }
  } while (FindNextFileW(search, &entry));
  // A share that dies on the way must not look like a folder with fewer files.
  const bool whole = GetLastError() == ERROR_NO_MORE_FILES;
  FindClose(search);
  if (!whole) return std::nullopt;
  return names;
}

}  // namespace tessivo
