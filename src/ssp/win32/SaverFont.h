#pragma once

#include <windows.h>

#include <cstdint>
#include <string>

#include "platform/win32/Gdi.h"
#include "ssp/Size.h"

namespace tessivo::ssp {

/// The typeface of the program's forms with letters that many pixels high, without coloured edges,
/// which would show on black.
UniqueGdi<HFONT> makeSaverFont(std::int32_t height);

/// The size of the text in that font.
Size measureSaverText(HDC dc, const std::string& text, std::int32_t fontHeight);

/// Writes the text into the middle of the rectangle.
void drawSaverText(HDC dc, const std::string& text, HFONT font, COLORREF colour, const RECT& at);

}  // namespace tessivo::ssp
