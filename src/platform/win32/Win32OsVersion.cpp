#include "platform/win32/Win32OsVersion.h"

#include <windows.h>

namespace tessivo {

OsVersion win32OsVersion() {
  OSVERSIONINFOW info{};
  info.dwOSVersionInfoSize = sizeof info;
  GetVersionExW(&info);
  return {info.dwPlatformId, info.dwMajorVersion, info.dwMinorVersion};
}

}  // namespace tessivo
