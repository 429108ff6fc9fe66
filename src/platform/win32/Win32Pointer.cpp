#include "platform/win32/Win32Pointer.h"

#include <windows.h>

namespace tessivo {

Point Win32Pointer::position() const {
  POINT point{};
  GetCursorPos(&point);
  return {point.x, point.y};
}

int Win32Pointer::changeDisplayCount(bool show) {
  return ShowCursor(show);
}

}  // namespace tessivo
