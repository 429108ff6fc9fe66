#include "platform/win32/Win32Processes.h"

#include <windows.h>
// After windows.h, which it needs:
#include <psapi.h>

#include <algorithm>
#include <array>
#include <memory>
#include <type_traits>

#include "platform/win32/WindowsText.h"

namespace tessivo {
namespace {

struct HandleCloser {
  void operator()(HANDLE handle) const { CloseHandle(handle); }
};
using Handle = std::unique_ptr<std::remove_pointer_t<HANDLE>, HandleCloser>;

using NameBuffer = std::array<wchar_t, 260>;

/// Up to the first NUL, and within the buffer where there is none.
std::string textOf(const NameBuffer& buffer) {
  return fromWide({buffer.begin(), std::find(buffer.begin(), buffer.end(), L'\0')});
}

/// What the system itself knows of an executable whose modules are not to be had: one that is just
/// coming up, or one of 64 bits looked at by a program of 32.
std::optional<ProcessModule> imageOf(HANDLE process) {
  NameBuffer buffer{};
  auto size = static_cast<DWORD>(buffer.size());
  if (!QueryFullProcessImageNameW(process, 0, buffer.data(), &size)) return std::nullopt;
  const std::string path = textOf(buffer);
  return ProcessModule{std::string(fileNameOf(path)), path};
}

}  // namespace

std::uint32_t Win32Processes::start(const std::string& program, const std::string& arguments,
                                    WindowStyle style) {
  // The executable is named apart from the command line, which would be split at a blank.
  const std::wstring path = toWide(program);
  if (path.find(L'\0') != std::wstring::npos) return ERROR_INVALID_NAME;
  std::wstring commandLine = L'"' + path + L"\" " + toWide(arguments);
  STARTUPINFOW how{};
  how.cb = sizeof how;
  how.dwFlags = STARTF_USESHOWWINDOW;
  how.wShowWindow = static_cast<WORD>(style);
  PROCESS_INFORMATION started{};
  if (!CreateProcessW(path.c_str(), commandLine.data(), nullptr, nullptr, FALSE, 0, nullptr,
                      nullptr, &how, &started)) {
    const DWORD error = GetLastError();
    return error == 0 ? ERROR_GEN_FAILURE : error;
  }
  CloseHandle(started.hThread);
  CloseHandle(started.hProcess);
  return 0;
}

std::optional<std::uint32_t> Win32Processes::enumerate(std::span<std::uint32_t> identifiers) const {
  DWORD bytes = 0;
  static_assert(sizeof(DWORD) == sizeof(std::uint32_t));
  if (!EnumProcesses(reinterpret_cast<DWORD*>(identifiers.data()),
                     static_cast<DWORD>(identifiers.size_bytes()), &bytes)) {
    return std::nullopt;
  }
  return bytes;
}

std::optional<ProcessModule> Win32Processes::firstModule(std::uint32_t identifier) const {
  const Handle process(OpenProcess(PROCESS_QUERY_INFORMATION | PROCESS_VM_READ, FALSE, identifier));
  if (!process) return std::nullopt;
  HMODULE module = nullptr;
  constexpr DWORD kOneModule = sizeof(HMODULE);  // NOLINT(bugprone-sizeof-expression): a handle
  DWORD needed = 0;
  if (!EnumProcessModules(process.get(), &module, kOneModule, &needed)) {
    return imageOf(process.get());
  }
  NameBuffer baseName{};
  NameBuffer path{};
  const auto size = static_cast<DWORD>(path.size());
  GetModuleBaseNameW(process.get(), module, baseName.data(), size);
  GetModuleFileNameExW(process.get(), module, path.data(), size);
  return ProcessModule{textOf(baseName), textOf(path)};
}

}  // namespace tessivo
