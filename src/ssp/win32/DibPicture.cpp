#include "ssp/win32/DibPicture.h"

namespace tessivo::ssp {

UniqueGdi<HBITMAP> makeDib(Size size, std::uint8_t** pixels) {
  BITMAPINFO info{};
  info.bmiHeader.biSize = sizeof info.bmiHeader;
  info.bmiHeader.biWidth = size.width;
  info.bmiHeader.biHeight = -size.height;
  info.bmiHeader.biPlanes = 1;
  info.bmiHeader.biBitCount = 32;
  info.bmiHeader.biCompression = BI_RGB;
  void* bits = nullptr;
  UniqueGdi<HBITMAP> picture(CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &bits, nullptr, 0));
  if (pixels) *pixels = static_cast<std::uint8_t*>(bits);
  return picture;
}

}  // namespace tessivo::ssp
