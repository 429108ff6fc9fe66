#pragma once

#include <array>
#include <string_view>
#include <utility>

#include "win32/ResourceCounts.h"
#include "win32/WaitFor.h"

namespace tessivo {

inline constexpr DWORD kQuietMs = 2000;

/// Runs the message loop until no thread and no window of the process has come or gone for a while;
/// false when that does not happen.
inline bool settle() {
  int threads = 0;
  int windows = 0;
  ULONGLONG since = 0;
  return waitFor(
      [&] {
        const int threadsNow = processThreads();
        const int windowsNow = processWindows();
        if (std::exchange(threads, threadsNow) != threadsNow ||
            std::exchange(windows, windowsNow) != windowsNow) {
          since = GetTickCount64();
        }
        return GetTickCount64() - since > kQuietMs;
      },
      30000);
}

inline BOOL CALLBACK countPictureWindow(HWND child, LPARAM counted) {
  std::array<wchar_t, 64> name{};
  GetClassNameW(child, name.data(), static_cast<int>(name.size()));
  *reinterpret_cast<int*>(counted) += std::wstring_view(name.data()) == L"TessivoPictureWindow";
  return TRUE;
}

/// Below a playback window: one for each item that is shown or not yet let go.
inline int pictureWindows(HWND playbackWindow) {
  int count = 0;
  EnumChildWindows(playbackWindow, countPictureWindow, reinterpret_cast<LPARAM>(&count));
  return count;
}

}  // namespace tessivo
