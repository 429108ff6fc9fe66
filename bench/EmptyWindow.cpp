// Shows a window and ends after a while: what any start of a Windows program with a window costs.
//
//   empty_window SECONDS     its title is "empty window SECONDS"
#include <windows.h>
// After windows.h, which it needs:
#include <cwchar>
#include <string>

int WINAPI wWinMain(HINSTANCE instance, HINSTANCE, PWSTR seconds, int) {
  WNDCLASSW windowClass{};
  windowClass.lpfnWndProc = DefWindowProcW;
  windowClass.hInstance = instance;
  windowClass.lpszClassName = L"EmptyWindow";
  RegisterClassW(&windowClass);
  const std::wstring title = std::wstring(L"empty window ") + seconds;
  const HWND window = CreateWindowW(L"EmptyWindow", title.c_str(), WS_OVERLAPPEDWINDOW | WS_VISIBLE,
                                    100, 100, 400, 300, nullptr, nullptr, instance, nullptr);
  SetTimer(window, 1, static_cast<UINT>(1000 * std::wcstoul(seconds, nullptr, 10)), nullptr);
  MSG message;
  while (GetMessageW(&message, nullptr, 0, 0) > 0 && message.message != WM_TIMER) {
    DispatchMessageW(&message);
  }
  return 0;
}
