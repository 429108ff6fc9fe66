#pragma once

#include <windows.h>
// after windows.h
#include <tlhelp32.h>
#include <winternl.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <initializer_list>
#include <ostream>
#include <string>
#include <string_view>

namespace tessivo {

// What the process holds of the system's, to be compared with what it held before. Where the system
// does not count drawing and user objects (Wine), each handle number is tried: a handle without its
// upper half is taken there.

inline constexpr std::uintptr_t kHandleNumbers = 0x10000;

inline int drawingObjects() {
  if (const DWORD count = GetGuiResources(GetCurrentProcess(), GR_GDIOBJECTS)) {
    return static_cast<int>(count);
  }
  int count = 0;
  for (std::uintptr_t i = 1; i < kHandleNumbers; ++i) {
    count += GetObjectType(reinterpret_cast<HGDIOBJ>(i)) != 0;
  }
  return count;
}

/// Windows and menus, and what else the system counts with them.
inline int userObjects() {
  if (const DWORD count = GetGuiResources(GetCurrentProcess(), GR_USEROBJECTS)) {
    return static_cast<int>(count);
  }
  int count = 0;
  for (std::uintptr_t i = 0; i < kHandleNumbers; i += 2) {  // the lowest bit does not count
    DWORD process = 0;
    GetWindowThreadProcessId(reinterpret_cast<HWND>(i), &process);
    count += process == GetCurrentProcessId() || IsMenu(reinterpret_cast<HMENU>(i));
  }
  return count;
}

/// Windows of this process below a parent, those of other threads and the hidden ones too.
inline int windowsBelow(HWND parent) {
  int count = 0;
  for (HWND window = nullptr; (window = FindWindowExW(parent, window, nullptr, nullptr));) {
    DWORD process = 0;
    GetWindowThreadProcessId(window, &process);
    if (process == GetCurrentProcessId()) count += 1 + windowsBelow(window);
  }
  return count;
}
inline int processWindows() {
  return windowsBelow(nullptr) + windowsBelow(HWND_MESSAGE);
}

/// What kind of thing a handle of this process names: "Event", "File", "Key" …
inline std::wstring kindOfHandle(HANDLE handle) {
  struct TypeInformation {
    UNICODE_STRING name;
    std::array<char, 1000> rest;
  };
  using Query = LONG(WINAPI*)(HANDLE, int, void*, ULONG, ULONG*);
  static const auto query = reinterpret_cast<Query>(
      reinterpret_cast<void*>(GetProcAddress(GetModuleHandleW(L"ntdll.dll"), "NtQueryObject")));
  TypeInformation type{};
  if (query(handle, 2, &type, sizeof(type), nullptr) < 0) return {};
  return {type.name.Buffer, type.name.Length / sizeof(wchar_t)};
}

/// Where the system does not count them (Wine) each number is tried, and kinds that it loses by
/// itself can be left out (see docs/testing.md).
inline int processHandles(std::initializer_list<std::wstring_view> wineLoses = {L"Key", L"Event"}) {
  DWORD counted = 0;
  if (GetProcessHandleCount(GetCurrentProcess(), &counted) && counted > 0) {
    return static_cast<int>(counted);
  }
  int count = 0;
  constexpr int kLongestGap = 4096;
  for (std::uintptr_t number = 4, last = 4; number - last < kLongestGap; number += 4) {
    const std::wstring kind = kindOfHandle(reinterpret_cast<HANDLE>(number));
    if (kind.empty()) continue;
    last = number;
    count += std::find(wineLoses.begin(), wineLoses.end(), kind) == wineLoses.end();
  }
  return count;
}

/// Without the threads of the system's pools, which come and go as it likes.
inline int processThreads() {
  using Query = LONG(WINAPI*)(HANDLE, int, void*, ULONG, ULONG*);
  const HMODULE system = GetModuleHandleW(L"ntdll.dll");
  const auto query = reinterpret_cast<Query>(
      reinterpret_cast<void*>(GetProcAddress(system, "NtQueryInformationThread")));
  const HANDLE snapshot = CreateToolhelp32Snapshot(TH32CS_SNAPTHREAD, 0);
  THREADENTRY32 entry{};
  entry.dwSize = sizeof(entry);
  int count = 0;
  for (BOOL more = Thread32First(snapshot, &entry); more; more = Thread32Next(snapshot, &entry)) {
    if (entry.th32OwnerProcessID != GetCurrentProcessId()) continue;
    const HANDLE thread = OpenThread(THREAD_QUERY_INFORMATION, FALSE, entry.th32ThreadID);
    if (!thread) continue;  // it has just ended
    void* start = nullptr;
    query(thread, 9, &start, sizeof(start), nullptr);
    CloseHandle(thread);
    HMODULE starter = nullptr;
    GetModuleHandleExW(
        GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
        static_cast<const wchar_t*>(start), &starter);
    count += starter != system;
  }
  CloseHandle(snapshot);
  return count;
}

struct ResourceCounts {
  int windows = processWindows();
  int user = userObjects();
  int drawing = drawingObjects();
  int events = processHandles({L"Key"}) - processHandles();
  int otherHandles = processHandles();
  int threads = processThreads();
};

inline std::ostream& operator<<(std::ostream& out, const ResourceCounts& counts) {
  return out << counts.windows << " windows, " << counts.user << " user objects, " << counts.drawing
             << " drawing objects, " << counts.events << " events, " << counts.otherHandles
             << " other handles, " << counts.threads << " threads";
}

}  // namespace tessivo
