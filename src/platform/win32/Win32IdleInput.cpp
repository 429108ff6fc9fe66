#include "platform/win32/Win32IdleInput.h"

#include <windows.h>

namespace tessivo {

std::optional<std::uint32_t> Win32IdleInput::lastInputTick() const {
  LASTINPUTINFO info{};
  info.cbSize = sizeof info;
  static_assert(sizeof info == 8);
  if (!GetLastInputInfo(&info)) return std::nullopt;
  return info.dwTime;
}

std::uint32_t Win32IdleInput::tickCount() const {
  return GetTickCount();
}

}  // namespace tessivo
