// Starts and ends: what any start of a Windows program costs. hand_over_bench compares with it.
#include <windows.h>

int WINAPI wWinMain(HINSTANCE, HINSTANCE, PWSTR, int) {
  return 0;
}
