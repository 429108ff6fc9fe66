// note_arguments FILE …: writes its command line into the file, as UTF-8. The file appears whole.
#include <windows.h>
// After windows.h, which it needs:
#include <shellapi.h>

#include <string>

#include "platform/win32/WindowsText.h"

namespace {

bool write(const std::wstring& path, const std::string& text) {
  const HANDLE file = CreateFileW(path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW, 0, nullptr);
  if (file == INVALID_HANDLE_VALUE) return false;
  DWORD written = 0;
  const bool ok =
      WriteFile(file, text.data(), static_cast<DWORD>(text.size()), &written, nullptr) != 0;
  CloseHandle(file);
  return ok;
}

}  // namespace

int main() {
  int count = 0;
  LPWSTR* list = CommandLineToArgvW(GetCommandLineW(), &count);
  if (!list || count < 2) return 2;
  const std::wstring path = list[1];
  LocalFree(list);
  const std::wstring unfinished = path + L".part";
  if (!write(unfinished, tessivo::fromWide(GetCommandLineW()))) return 1;
  return MoveFileW(unfinished.c_str(), path.c_str()) ? 0 : 1;
}
