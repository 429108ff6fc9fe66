// A stand-in for a screen-saver program: tests copy it into a folder under the name they need. What
// happens to it becomes a line in the file NAME.txt beside NAME.exe:
//
//   start style S tick T: COMMAND LINE   S and the command line as it was started with
//   owner yes                            whether the window is there whose title ends the arguments
//   window focus yes                     whether its window has the keyboard after half a second
//   end tick T
//
// Ticks are the system's milliseconds. What is in its name says what it does after the first line:
//
//   stays     it ends when there is a file NAME.end, which it deletes, so that of several copies
//             one ends
//   settings  it looks for its owner, shows a window, and ends when that is closed, or as above
//
// Without either it ends at once.
#include <windows.h>

#include <string>

#include "platform/win32/WindowsText.h"

namespace {

constexpr UINT kLookMs = 50;
constexpr ULONGLONG kFocusMs = 500;

/// This program's file, with another extension.
std::wstring besideMe(const wchar_t* extension) {
  std::wstring path(32767, L'\0');
  path.resize(GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size())));
  return path.substr(0, path.rfind(L'.')) + extension;
}

bool isNamed(const wchar_t* word) {
  const std::wstring path = besideMe(L"");
  return path.find(word, path.rfind(L'\\')) != std::wstring::npos;
}

/// Several copies may write at the same time.
void note(const std::wstring& line) {
  const HANDLE file = CreateFileW(besideMe(L".txt").c_str(), FILE_APPEND_DATA,
                                  FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                                  OPEN_ALWAYS, 0, nullptr);
  const std::string text = tessivo::fromWide(line + L"\n");
  DWORD written = 0;
  WriteFile(file, text.data(), static_cast<DWORD>(text.size()), &written, nullptr);
  CloseHandle(file);
}

std::wstring tick() {
  return L" tick " + std::to_wstring(GetTickCount64());
}

const wchar_t* yesOrNo(bool yes) {
  return yes ? L"yes" : L"no";
}

/// How the first window is to come up, as whoever started the program said.
int startStyle() {
  STARTUPINFOW how{};
  GetStartupInfoW(&how);
  return (how.dwFlags & STARTF_USESHOWWINDOW) != 0 ? how.wShowWindow : SW_SHOWNORMAL;
}

void noteStart() {
  note(L"start style " + std::to_wstring(startStyle()) + tick() + L": " + GetCommandLineW());
}

void noteOwner() {
  const std::wstring line = GetCommandLineW();
  const std::wstring title = line.substr(line.rfind(L"##") + 2);
  note(std::wstring(L"owner ") + yesOrNo(FindWindowW(nullptr, title.c_str()) != nullptr));
}

HWND showWindow() {
  WNDCLASSW kind{};
  kind.lpfnWndProc = DefWindowProcW;
  kind.lpszClassName = L"stand_in_saver";
  kind.hbrBackground = static_cast<HBRUSH>(GetStockObject(WHITE_BRUSH));
  RegisterClassW(&kind);
  const HWND window = CreateWindowExW(0, kind.lpszClassName, L"stand_in_saver", WS_OVERLAPPEDWINDOW,
                                      700, 300, 300, 200, nullptr, nullptr, nullptr, nullptr);
  ShowWindow(window, startStyle());  // Wine does not know SW_SHOWDEFAULT
  return window;
}

/// Until the window, if there is one, is closed or the file says that it is enough.
void stay(HWND window) {
  const ULONGLONG start = GetTickCount64();
  bool isFocusNoted = window == nullptr;
  SetTimer(nullptr, 0, kLookMs, nullptr);
  MSG message;
  while (GetMessageW(&message, nullptr, 0, 0) > 0) {
    TranslateMessage(&message);
    DispatchMessageW(&message);
    if (!isFocusNoted && GetTickCount64() - start > kFocusMs) {
      isFocusNoted = true;
      note(std::wstring(L"window focus ") + yesOrNo(GetForegroundWindow() == window));
    }
    if (window && !IsWindow(window)) return;
    if (DeleteFileW(besideMe(L".end").c_str())) return;
  }
}

}  // namespace

int main() {
  noteStart();
  if (isNamed(L"settings")) {
    noteOwner();
    stay(showWindow());
  } else if (isNamed(L"stays")) {
    stay(nullptr);
  }
  note(L"end" + tick());
  return 0;
}
