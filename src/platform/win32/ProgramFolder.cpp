#include "platform/win32/ProgramFolder.h"

#include <windows.h>
// After windows.h, which it needs:
#include <shlobj.h>

#include "platform/CommandLineText.h"
#include "platform/win32/WindowsText.h"

namespace tessivo {
namespace {

/// Empty when the system names none.
std::string knownFolder(const KNOWNFOLDERID& id) {
  PWSTR folder = nullptr;
  const HRESULT result = SHGetKnownFolderPath(id, 0, nullptr, &folder);
  std::string path = SUCCEEDED(result) ? fromWide(folder) : "";
  CoTaskMemFree(folder);
  return path;
}

}  // namespace

std::string programPath() {
  std::wstring path(MAX_PATH, L'\0');
  for (;;) {
    const DWORD length = GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size()));
    if (length < path.size()) return fromWide({path.data(), length});
    path.resize(path.size() * 2);
  }
}

std::string programFolder() {
  const std::string path = programPath();
  return path.substr(0, path.rfind('\\'));
}

std::string commandLineArguments() {
  return std::string(argumentText(fromWide(GetCommandLineW())));
}

std::string localDataFolder() {
  std::string path = knownFolder(FOLDERID_LocalAppData);
  if (path.empty()) return path;
  path += "\\Tessivo";
  CreateDirectoryW(toWide(path).c_str(), nullptr);
  return path;
}

std::string picturesFolder() {
  return knownFolder(FOLDERID_Pictures);
}

}  // namespace tessivo
