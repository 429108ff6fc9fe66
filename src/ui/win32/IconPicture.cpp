#include "ui/win32/IconPicture.h"

namespace tessivo::ui {

UniqueIcon loadIcon(int resource, int side) {
  if (resource == 0) return nullptr;
  return UniqueIcon(
      static_cast<HICON>(LoadImageW(GetModuleHandleW(nullptr), MAKEINTRESOURCEW(resource),
                                    IMAGE_ICON, side, side, LR_DEFAULTCOLOR)));
}

}  // namespace tessivo::ui
