#include "platform/win32/Win32TrayIcons.h"

namespace tessivo {
namespace {

TrayIconRecord filled() {
  TrayIconRecord record;
  record.window = 42;
  record.identifier = 123;
  record.flags = 23;
  record.callbackMessage = 512;
  record.tip = "Tessivo 泰思维";
  record.state = 1;
  record.stateMask = 3;
  record.info = "一\r\n二";
  record.timeoutMs = 10000;
  record.infoTitle = "题";
  record.infoFlags = 1;
  return record;
}

TEST(Win32TrayIconsTest, TheShellsRecordHasTheFieldsOfOurs) {
  const NOTIFYICONDATAW data = shellRecord(filled());
  // The wide form of the record that has 488 bytes in the other one.
  EXPECT_EQ(data.cbSize, NOTIFYICONDATAW_V2_SIZE);
  EXPECT_EQ(NOTIFYICONDATAA_V2_SIZE, sizeof(void*) == 4 ? 488U : 504U);
  EXPECT_EQ(data.hWnd, reinterpret_cast<HWND>(42));
  EXPECT_EQ(data.uID, 123U);
  EXPECT_EQ(data.uFlags, static_cast<UINT>(NIF_MESSAGE | NIF_ICON | NIF_TIP | NIF_INFO));
  EXPECT_EQ(data.uCallbackMessage, static_cast<UINT>(WM_MOUSEMOVE));
  EXPECT_STREQ(data.szTip, L"Tessivo 泰思维");
  EXPECT_EQ(data.dwState, 1U);
  EXPECT_EQ(data.dwStateMask, 3U);
  EXPECT_STREQ(data.szInfo, L"一\r\n二");
  EXPECT_EQ(data.uTimeout, 10000U);
  EXPECT_STREQ(data.szInfoTitle, L"题");
  EXPECT_EQ(data.dwInfoFlags, static_cast<DWORD>(NIIF_INFO));
}

TEST(Win32TrayIconsTest, TextsAreCutToTheirFields) {
  TrayIconRecord record = filled();
  record.tip = std::string(500, 't');
  record.info = std::string(500, 'i');
  record.infoTitle = std::string(500, 'n');
  const NOTIFYICONDATAW data = shellRecord(record);
  EXPECT_EQ(std::wstring(data.szTip), std::wstring(127, L't'));
  EXPECT_EQ(std::wstring(data.szInfo), std::wstring(255, L'i'));
  EXPECT_EQ(std::wstring(data.szInfoTitle), std::wstring(63, L'n'));
}

TEST(Win32TrayIconsTest, NoCharacterIsCutInHalf) {
  TrayIconRecord record = filled();
  record.infoTitle = std::string(62, 'n') + "🎬";
  EXPECT_EQ(std::wstring(shellRecord(record).szInfoTitle), std::wstring(62, L'n'));
}

}  // namespace
}  // namespace tessivo
