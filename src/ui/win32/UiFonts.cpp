#include "ui/win32/UiFonts.h"

#include <cwchar>

namespace tessivo::ui {
namespace {

constexpr std::int32_t kTwipsPerPoint = 20;
constexpr std::int32_t kFontPoints = 9;

UniqueGdi<HFONT> makeFont(TwipsPerPixel twips, LONG weight) {
  LOGFONTW font{};
  font.lfHeight = -toPixels(kFontPoints * kTwipsPerPoint, twips.y);
  font.lfWeight = weight;
  font.lfCharSet = GB2312_CHARSET;
  font.lfQuality = DEFAULT_QUALITY;
  std::wcscpy(font.lfFaceName, L"Microsoft YaHei UI");
  return UniqueGdi<HFONT>(CreateFontIndirectW(&font));
}

}  // namespace

UiFonts::UiFonts(TwipsPerPixel twips)
    : plain_(makeFont(twips, FW_NORMAL)), bold_(makeFont(twips, FW_BOLD)) {}

}  // namespace tessivo::ui
