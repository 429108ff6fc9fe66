// shell_menu PLAYER VERB LIST [OPTION VALUE]…: plays the part of the component in Explorer's
// context menu. Lays the full paths of LIST (UTF-8, a path a line) into a named piece of shared
// memory, starts the player with the verb (1: add and play, 2: add only), that name and the size,
// and keeps the memory until the process has ended: "exit code N".
//
//   pad N        zero bytes behind the text (2)
//   size TEXT    announce that size instead of the true one
//   name NAME    announce that name instead of the true one
//   arguments TEXT   start the player with that; of @NAME@ and @SIZE@ the true ones are put in
#include <windows.h>
// After windows.h, which it needs:
#include <shellapi.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <map>
#include <string>
#include <vector>

#include "base/FilePath.h"
#include "platform/win32/WindowsText.h"

namespace {

using namespace tessivo;

constexpr wchar_t kBetweenPaths[] = L"@@_F%D-F_@";
constexpr wchar_t kBetweenFields[] = L"/?%/";

[[noreturn]] void fail(const std::string& why) {
  std::printf("shell_menu: %s\n", why.c_str());
  std::exit(2);
}

std::vector<std::wstring> arguments() {
  int count = 0;
  LPWSTR* list = CommandLineToArgvW(GetCommandLineW(), &count);
  std::vector<std::wstring> texts(list + 1, list + count);
  LocalFree(list);
  return texts;
}

/// The selected files, joined as the player expects them.
std::wstring joinedPaths(const std::wstring& listFile) {
  std::ifstream file(toFilePath(fromWide(listFile)), std::ios::binary);
  if (!file) fail("cannot read " + fromWide(listFile));
  std::wstring joined;
  std::string line;
  while (std::getline(file, line)) {
    if (line.ends_with('\r')) line.pop_back();
    if (!joined.empty()) joined += kBetweenPaths;
    joined += toWide(line);
  }
  return joined;
}

/// Shared memory with the text and zero bytes behind it, for as long as this program runs.
void share(const std::wstring& name, const std::wstring& text, DWORD size) {
  const HANDLE mapping =
      CreateFileMappingW(INVALID_HANDLE_VALUE, nullptr, PAGE_READWRITE, 0, size, name.c_str());
  void* const view = mapping ? MapViewOfFile(mapping, FILE_MAP_WRITE, 0, 0, size) : nullptr;
  if (!view) fail("no shared memory");
  // Fresh memory of the page file is zero.
  std::copy(text.begin(), text.end(), static_cast<wchar_t*>(view));
}

void replace(std::wstring& text, const std::wstring& what, const std::wstring& by) {
  const auto at = text.find(what);
  if (at != std::wstring::npos) text.replace(at, what.size(), by);
}

DWORD run(const std::wstring& player, const std::wstring& argumentsText) {
  std::wstring line = L'"' + player + L"\" " + argumentsText;
  STARTUPINFOW how{};
  how.cb = sizeof how;
  PROCESS_INFORMATION made{};
  if (!CreateProcessW(player.c_str(), line.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr,
                      &how, &made)) {
    fail("cannot start " + fromWide(player));
  }
  WaitForSingleObject(made.hProcess, INFINITE);
  DWORD code = 0;
  GetExitCodeProcess(made.hProcess, &code);
  return code;
}

}  // namespace

int main() {
  const auto words = arguments();
  if (words.size() < 3 || words.size() % 2 == 0) fail("which player, which verb, which list?");
  std::map<std::wstring, std::wstring> options{{L"pad", L"2"}};
  for (std::size_t i = 3; i < words.size(); i += 2) options[words[i]] = words[i + 1];

  const std::wstring text = joinedPaths(words[2]);
  const auto size = static_cast<DWORD>(text.size() * sizeof(wchar_t)) +
                    std::wcstoul(options[L"pad"].c_str(), nullptr, 10);
  const std::wstring name = L"TessivoShellMenu" + std::to_wstring(GetCurrentProcessId());
  share(name, text, size);

  std::wstring line = options.contains(L"arguments")
                          ? options[L"arguments"]
                          : L"DMenuF_" + words[1] + L"__" + kBetweenFields +
                                (options.contains(L"name") ? options[L"name"] : L"@NAME@") +
                                kBetweenFields +
                                (options.contains(L"size") ? options[L"size"] : L"@SIZE@");
  replace(line, L"@NAME@", name);
  replace(line, L"@SIZE@", std::to_wstring(size));
  std::printf("exit code %lu\n", run(words[0], line));
  return 0;
}
