// Shows a window and ends after a while: what any start of a Windows program with a window costs.
//
//   empty_window SECONDS [MS]     its title is "empty window " and its arguments; asks where the
//   pointer
//                                 is so often, when that is said
#include <windows.h>
// After windows.h, which it needs:
#include <cwchar>
#include <string>

namespace {
constexpr UINT_PTR kEnd = 1;
constexpr UINT_PTR kLook = 2;
}  // namespace

int WINAPI wWinMain(HINSTANCE instance, HINSTANCE, PWSTR arguments, int) {
  WNDCLASSW windowClass{};
  windowClass.lpfnWndProc = DefWindowProcW;
  windowClass.hInstance = instance;
  windowClass.lpszClassName = L"EmptyWindow";
  RegisterClassW(&windowClass);
  const std::wstring title = std::wstring(L"empty window ") + arguments;
  const HWND window = CreateWindowW(L"EmptyWindow", title.c_str(), WS_OVERLAPPEDWINDOW | WS_VISIBLE,
                                    100, 100, 400, 300, nullptr, nullptr, instance, nullptr);
  wchar_t* rest = nullptr;
  SetTimer(window, kEnd, static_cast<UINT>(1000 * std::wcstoul(arguments, &rest, 10)), nullptr);
  if (const auto every = static_cast<UINT>(std::wcstoul(rest, nullptr, 10))) {
    SetTimer(window, kLook, every, nullptr);
  }
  MSG message;
  while (GetMessageW(&message, nullptr, 0, 0) > 0) {
    if (message.message == WM_TIMER && message.wParam == kEnd) break;
    POINT pointer;
    if (message.message == WM_TIMER) GetCursorPos(&pointer);
    DispatchMessageW(&message);
  }
  return 0;
}
