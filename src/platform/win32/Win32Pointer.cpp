#include "platform/win32/Win32Pointer.h"

#include <windows.h>

namespace tessivo {

Point Win32Pointer::position() const {
  POINT point{};
  GetCursorPos(&point);
  return {point.x, point.y};
}

}  // namespace tessivo
