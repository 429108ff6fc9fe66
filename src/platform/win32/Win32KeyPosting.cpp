#include "platform/win32/Win32KeyPosting.h"

#include <windows.h>

namespace tessivo {

std::uint32_t Win32KeyPosting::scanCodeOf(std::uint32_t virtualKey) const {
  return MapVirtualKeyW(virtualKey, MAPVK_VK_TO_VSC);
}

void Win32KeyPosting::post(WindowHandle window, std::uint32_t message, std::uint32_t virtualKey,
                           std::int32_t keyData) {
  PostMessageW(reinterpret_cast<HWND>(window), message, virtualKey, keyData);
}

}  // namespace tessivo
