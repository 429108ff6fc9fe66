#include "platform/win32/Win32Shell.h"

#include <windows.h>
// After windows.h, which it needs:
#include <shellapi.h>

#include <cstdint>

#include "platform/win32/AssociationsNotice.h"
#include "platform/win32/Guarded.h"
#include "platform/win32/WindowsText.h"

namespace tessivo {

void Win32Shell::open(WindowHandle owner, const std::string& file, const std::string& parameters) {
  guarded(log_, [&] {
    const std::wstring name = toWide(file);
    const std::wstring text = toWide(parameters);
    SHELLEXECUTEINFOW order{};
    order.cbSize = sizeof order;
    // ShellExecuteW has no place for this, and the system may then tell the user by a box of its
    // own that a program is missing: over the show, where nobody closes it.
    order.fMask = SEE_MASK_FLAG_NO_UI;
    order.hwnd = reinterpret_cast<HWND>(owner);
    order.lpVerb = L"open";
    order.lpFile = name.c_str();
    order.lpParameters = text.c_str();
    order.lpDirectory = L"";
    order.nShow = SW_SHOWNORMAL;
    if (ShellExecuteExW(&order)) return;
    const DWORD error = GetLastError();
    // What ShellExecuteW would have answered: 32 or less, as nothing was opened.
    const auto code = reinterpret_cast<std::intptr_t>(order.hInstApp);
    log_.error("cannot open " + file + ", shell code " + std::to_string(code) + ", error " +
               std::to_string(error));
  });
}

void Win32Shell::associationsChanged() {
  noticeAssociationsChanged();
}

}  // namespace tessivo
