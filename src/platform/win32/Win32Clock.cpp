#include "platform/win32/Win32Clock.h"

#include <windows.h>

namespace tessivo {

LocalTime Win32Clock::now() const {
  SYSTEMTIME time{};
  GetLocalTime(&time);
  return {time.wYear, time.wMonth, time.wDay,
          ((time.wHour * 60 + time.wMinute) * 60 + time.wSecond) * 1000 + time.wMilliseconds};
}

std::uint64_t Win32Clock::ticksMs() const {
  return GetTickCount64();
}

}  // namespace tessivo
