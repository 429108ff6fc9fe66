// window_texts TITLE: prints the texts to be seen in all windows whose titles begin so, of
// whichever program, one a line, those of a window in its controls' order.
#include <windows.h>
// After windows.h, which it needs:
#include <shellapi.h>

#include "PanelWindow.h"

namespace {

using namespace tessivo;

std::string begin;

BOOL CALLBACK printText(HWND window, LPARAM /*unused*/) {
  if (IsWindowVisible(window)) std::printf("%s\n", textOf(window).c_str());
  return TRUE;
}

BOOL CALLBACK printWindow(HWND window, LPARAM /*unused*/) {
  if (IsWindowVisible(window) && textOf(window).starts_with(begin)) {
    EnumChildWindows(window, printText, 0);
  }
  return TRUE;
}

}  // namespace

int main() {
  int count = 0;
  LPWSTR* list = CommandLineToArgvW(GetCommandLineW(), &count);
  if (!list || count != 2) return 2;
  begin = fromWide(list[1]);
  LocalFree(list);
  EnumWindows(printWindow, 0);
  return 0;
}
