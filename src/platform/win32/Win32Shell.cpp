#include "platform/win32/Win32Shell.h"

#include <windows.h>
// After windows.h, which it needs:
#include <shellapi.h>
#include <shlwapi.h>

#include <array>
#include <cstdint>
#include <cwchar>

#include "platform/PageAnchor.h"
#include "platform/win32/AssociationsNotice.h"
#include "platform/win32/Guarded.h"
#include "platform/win32/WindowsText.h"

namespace tessivo {
namespace {

/// The program behind an extension or a scheme; empty when there is none.
std::wstring programFor(const wchar_t* type) {
  std::array<wchar_t, MAX_PATH> program{};
  auto length = static_cast<DWORD>(program.size());
  const HRESULT result = AssocQueryStringW(ASSOCF_INIT_IGNOREUNKNOWN, ASSOCSTR_EXECUTABLE, type,
                                           L"open", program.data(), &length);
  return result == S_OK ? program.data() : L"";
}

/// The browser, when it is also what pages of the disk are opened with: only a browser understands
/// an address.
std::wstring browserOfPages() {
  const std::wstring browser = programFor(L"http");
  return _wcsicmp(browser.c_str(), programFor(L".htm").c_str()) == 0 ? browser : L"";
}

bool isThere(const std::string& path) {
  return GetFileAttributesW(toWide(path).c_str()) != INVALID_FILE_ATTRIBUTES;
}

SHELLEXECUTEINFOW orderFor(WindowHandle owner, const std::wstring& name, const std::wstring& text) {
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
  return order;
}

/// The shell itself looks for a file of the whole name, "#" and all, and of an address of the disk
/// it hands on only what stands before the "#". So the browser is started with the address.
bool openedAtAnchor(WindowHandle owner, const PageAnchor& place) {
  const std::wstring browser = browserOfPages();
  if (browser.empty() || !isThere(place.page)) return false;
  const std::wstring address = toWide('"' + addressOf(place) + '"');
  auto order = orderFor(owner, browser, address);
  return ShellExecuteExW(&order) != 0;
}

}  // namespace

bool Win32Shell::open(WindowHandle owner, const std::string& file, const std::string& parameters) {
  bool opened = false;
  guarded(log_, [&] {
    const auto place = pageAnchorOf(file);
    opened = place && openedAtAnchor(owner, *place);
    if (opened) return;
    // A page from its beginning is better than none.
    const std::wstring name = toWide(place ? place->page : file);
    const std::wstring text = toWide(parameters);
    auto order = orderFor(owner, name, text);
    opened = ShellExecuteExW(&order) != 0;
    if (opened) return;
    const DWORD error = GetLastError();
    // What ShellExecuteW would have answered: 32 or less, as nothing was opened.
    const auto code = reinterpret_cast<std::intptr_t>(order.hInstApp);
    log_.error("cannot open " + file + ", shell code " + std::to_string(code) + ", error " +
               std::to_string(error));
  });
  return opened;
}

void Win32Shell::associationsChanged() {
  noticeAssociationsChanged();
}

}  // namespace tessivo
