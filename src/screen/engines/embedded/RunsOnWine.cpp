#include "screen/engines/embedded/RunsOnWine.h"

#include <windows.h>

namespace tessivo {

bool runsOnWine() {
  static const bool answer =
      GetProcAddress(GetModuleHandleW(L"ntdll.dll"), "wine_get_version") != nullptr;
  return answer;
}

}  // namespace tessivo
