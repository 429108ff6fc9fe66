// Sends the player that runs a message that says nothing, and ends: the least that a second start
// can do. hand_over_bench compares with it.
#include <windows.h>

int WINAPI wWinMain(HINSTANCE, HINSTANCE, PWSTR, int) {
  const HWND player = FindWindowW(nullptr, L"play27182831415");
  SendMessageTimeoutW(player, WM_NULL, 0, 0, SMTO_NORMAL, 10000, nullptr);
  return 0;
}
