#include "platform/win32/CrashNote.h"

#include <windows.h>

#include <array>
#include <atomic>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <string>

namespace tessivo {
namespace {

// Everything is ready before: in a crash nothing can be allocated.
std::array<wchar_t, 32768> logFile;
std::atomic<DWORD> noting = 0;  ///< the thread that has the word
constexpr DWORD kNoteMs = 5000;

using Line = std::array<char, 1024>;

/// The path of the library or program that holds the address, cut to what a line has room for.
void nameOfModuleAt(const void* address, std::array<char, 600>& name) {
  HMODULE module = nullptr;
  std::array<wchar_t, 200> path{};
  constexpr DWORD kByAddress =
      GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT;
  if (!GetModuleHandleExW(kByAddress, static_cast<const wchar_t*>(address), &module) ||
      GetModuleFileNameW(module, path.data(), static_cast<DWORD>(path.size() - 1)) == 0) {
    std::snprintf(name.data(), name.size(), "no module");
    return;
  }
  const int length = WideCharToMultiByte(CP_UTF8, 0, path.data(), -1, name.data(),
                                         static_cast<int>(name.size()), nullptr, nullptr);
  if (length == 0) std::snprintf(name.data(), name.size(), "a module");
}

void append(const Line& text) {
  SYSTEMTIME now{};
  GetLocalTime(&now);
  std::array<char, 1100> line{};
  const int length = std::snprintf(
      line.data(), line.size(), "%04d-%02d-%02d %02d:%02d:%02d.%03d error %s\r\n", now.wYear,
      now.wMonth, now.wDay, now.wHour, now.wMinute, now.wSecond, now.wMilliseconds, text.data());
  HANDLE file = CreateFileW(logFile.data(), FILE_APPEND_DATA,
                            FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                            OPEN_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
  if (file == INVALID_HANDLE_VALUE || length <= 0) return;
  DWORD written = 0;
  WriteFile(file, line.data(), static_cast<DWORD>(length), &written, nullptr);
  CloseHandle(file);
}

/// Of several threads that crash at once one has the word. The others wait for the end, and bring
/// it about when it does not come. Who crashes again over the note leaves it at that.
void noteOnce(const Line& text) {
  DWORD other = 0;
  if (!noting.compare_exchange_strong(other, GetCurrentThreadId())) {
    if (other != GetCurrentThreadId()) Sleep(kNoteMs);
    return;
  }
  append(text);
  SystemParametersInfoW(SPI_SETSCREENSAVEACTIVE, TRUE, nullptr, SPIF_UPDATEINIFILE);
  // As in Win32SystemPower: an answer of the X server's, where there is one, sends it off.
  BOOL active = FALSE;
  SystemParametersInfoW(SPI_GETSCREENSAVEACTIVE, 0, &active, 0);
}

LONG WINAPI noteException(EXCEPTION_POINTERS* what) {
  const EXCEPTION_RECORD& record = *what->ExceptionRecord;
  std::array<char, 600> module{};
  nameOfModuleAt(record.ExceptionAddress, module);
  Line text{};
  std::snprintf(text.data(), text.size(), "crash: exception 0x%08lx at %p in %s, thread %lu",
                record.ExceptionCode, record.ExceptionAddress, module.data(), GetCurrentThreadId());
  noteOnce(text);
  TerminateProcess(GetCurrentProcess(), record.ExceptionCode);
  return EXCEPTION_EXECUTE_HANDLER;
}

[[noreturn]] void noteTermination() {
  Line text{};
  std::snprintf(text.data(), text.size(), "crash: an exception that nobody caught, thread %lu",
                GetCurrentThreadId());
  noteOnce(text);
  TerminateProcess(GetCurrentProcess(), EXIT_FAILURE);
  std::abort();
}

}  // namespace

void noteCrashes(const std::filesystem::path& logPath) {
  const std::wstring wide = logPath.wstring();
  if (wide.size() >= logFile.size()) return;
  wide.copy(logFile.data(), wide.size());
  logFile[wide.size()] = L'\0';
  SetUnhandledExceptionFilter(noteException);
  std::set_terminate(noteTermination);
}

}  // namespace tessivo
