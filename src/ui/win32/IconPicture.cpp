#include "ui/win32/IconPicture.h"

namespace tessivo::ui {

UniqueIcon loadIcon(int resource, int side) {
  if (resource == 0) return nullptr;
  return UniqueIcon(
      static_cast<HICON>(LoadImageW(GetModuleHandleW(nullptr), MAKEINTRESOURCEW(resource),
                                    IMAGE_ICON, side, side, LR_DEFAULTCOLOR)));
}

UniqueIcon loadIconWithSpace(int resource, int side, int space) {
  UniqueIcon icon = loadIcon(resource, side);
  if (!icon) return icon;
  BITMAPINFO format{};
  format.bmiHeader.biSize = sizeof format.bmiHeader;
  format.bmiHeader.biWidth = side + space;
  format.bmiHeader.biHeight = side;
  format.bmiHeader.biPlanes = 1;
  format.bmiHeader.biBitCount = 32;
  void* pixels = nullptr;  // all clear
  const UniqueGdi<HBITMAP> colour(
      CreateDIBSection(nullptr, &format, DIB_RGB_COLORS, &pixels, nullptr, 0));
  const UniqueGdi<HBITMAP> mask(CreateBitmap(side + space, side, 1, 1, nullptr));
  if (!colour || !mask) return icon;
  const HDC dc = CreateCompatibleDC(nullptr);
  const HGDIOBJ before = SelectObject(dc, mask.get());
  PatBlt(dc, 0, 0, side + space, side, WHITENESS);
  SelectObject(dc, colour.get());
  DrawIconEx(dc, 0, 0, icon.get(), side, side, 0, nullptr, DI_NORMAL);
  SelectObject(dc, before);
  DeleteDC(dc);
  ICONINFO parts{};
  parts.fIcon = TRUE;
  parts.hbmMask = mask.get();
  parts.hbmColor = colour.get();
  return UniqueIcon(CreateIconIndirect(&parts));
}

}  // namespace tessivo::ui
