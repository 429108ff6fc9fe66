#include "platform/win32/Win32TrayIcons.h"

#include <algorithm>
#include <span>

#include "platform/win32/Gdi.h"
#include "platform/win32/WindowsText.h"

namespace tessivo {
namespace {

/// As much as the field holds, its last character being a NUL. A character of two units is not cut
/// in half.
void store(std::span<wchar_t> field, const std::string& text) {
  const std::wstring wide = toWide(text);
  std::size_t length = std::min(wide.size(), field.size() - 1);
  if (length < wide.size() && length > 0 && IS_HIGH_SURROGATE(wide[length - 1])) --length;
  std::ranges::fill(field, L'\0');
  std::copy_n(wide.begin(), length, field.begin());
}

UniqueIcon load(int icon) {
  return UniqueIcon(static_cast<HICON>(LoadImageW(GetModuleHandleW(nullptr), MAKEINTRESOURCEW(icon),
                                                  IMAGE_ICON, GetSystemMetrics(SM_CXSMICON),
                                                  GetSystemMetrics(SM_CYSMICON), LR_DEFAULTCOLOR)));
}

}  // namespace

NOTIFYICONDATAW shellRecord(const TrayIconRecord& record) {
  NOTIFYICONDATAW data{};
  data.cbSize = NOTIFYICONDATAW_V2_SIZE;
  data.hWnd = reinterpret_cast<HWND>(record.window);
  data.uID = record.identifier;
  data.uFlags = record.flags;
  data.uCallbackMessage = record.callbackMessage;
  data.dwState = record.state;
  data.dwStateMask = record.stateMask;
  data.uTimeout = record.timeoutMs;
  data.dwInfoFlags = record.infoFlags;
  store(data.szTip, record.tip);
  store(data.szInfo, record.info);
  store(data.szInfoTitle, record.infoTitle);
  return data;
}

void Win32TrayIcons::add(const TrayIconRecord& record) {
  // The shell makes a copy of the picture.
  const UniqueIcon picture = load(record.icon);
  NOTIFYICONDATAW data = shellRecord(record);
  data.hIcon = picture.get();
  Shell_NotifyIconW(NIM_ADD, &data);
}

void Win32TrayIcons::remove(const TrayIconRecord& record) {
  NOTIFYICONDATAW data = shellRecord(record);
  Shell_NotifyIconW(NIM_DELETE, &data);
}

}  // namespace tessivo
