// Applies the display settings as they are. After a virtual monitor was added or taken away this
// makes Wine look again and tell every running program (WM_DISPLAYCHANGE). It must be a program of
// its own: one that runs already keeps asking the X server's old answer.
#include <windows.h>

int main() {
  const LONG result = ChangeDisplaySettingsExW(nullptr, nullptr, nullptr, 0, nullptr);
  return result == DISP_CHANGE_SUCCESSFUL ? 0 : 1;
}
