// Apart from the shell's other uses: its header knows another Shell than ours.
#include "platform/win32/AssociationsNotice.h"

#include <windows.h>
// After windows.h, which it needs:
#include <shlobj.h>

namespace tessivo {

void noticeAssociationsChanged() {
  SHChangeNotify(SHCNE_ASSOCCHANGED, SHCNF_IDLIST, nullptr, nullptr);
}

}  // namespace tessivo
