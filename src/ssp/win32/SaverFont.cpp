#include "ssp/win32/SaverFont.h"

#include <cwchar>

#include "platform/win32/WindowsText.h"

namespace tessivo::ssp {

UniqueGdi<HFONT> makeSaverFont(std::int32_t height) {
  LOGFONTW font{};
  font.lfHeight = -height;
  font.lfWeight = FW_NORMAL;
  font.lfCharSet = GB2312_CHARSET;
  font.lfQuality = ANTIALIASED_QUALITY;
  std::wcscpy(font.lfFaceName, L"Microsoft YaHei UI");
  return UniqueGdi<HFONT>(CreateFontIndirectW(&font));
}

Size measureSaverText(HDC dc, const std::string& text, std::int32_t fontHeight) {
  const auto font = makeSaverFont(fontHeight);
  const HGDIOBJ before = SelectObject(dc, font.get());
  const std::wstring wide = toWide(text);
  SIZE size{};
  GetTextExtentPoint32W(dc, wide.c_str(), static_cast<int>(wide.size()), &size);
  SelectObject(dc, before);
  return {size.cx, size.cy};
}

void drawSaverText(HDC dc, const std::string& text, HFONT font, COLORREF colour, const RECT& at) {
  const HGDIOBJ before = SelectObject(dc, font);
  SetBkMode(dc, TRANSPARENT);
  SetTextColor(dc, colour);
  const std::wstring wide = toWide(text);
  RECT edges = at;
  DrawTextW(dc, wide.c_str(), static_cast<int>(wide.size()), &edges,
            DT_CENTER | DT_VCENTER | DT_SINGLELINE | DT_NOPREFIX);
  SelectObject(dc, before);
}

}  // namespace tessivo::ssp
