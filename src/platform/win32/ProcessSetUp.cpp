#include "platform/win32/ProcessSetUp.h"

#include <windows.h>

namespace tessivo {

void setUpProcess() {
  SetDefaultDllDirectories(LOAD_LIBRARY_SEARCH_SYSTEM32 | LOAD_LIBRARY_SEARCH_APPLICATION_DIR);
  SetDllDirectoryW(L"");
  SetErrorMode(SEM_FAILCRITICALERRORS | SEM_NOGPFAULTERRORBOX | SEM_NOOPENFILEERRORBOX);
}

}  // namespace tessivo
