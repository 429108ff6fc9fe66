#include "platform/win32/Win32SystemPower.h"

#include <windows.h>

namespace tessivo {

bool Win32SystemPower::systemParameters(std::uint32_t action, std::uint32_t parameter,
                                        std::uint32_t& word, std::uint32_t profile) {
  const bool done = SystemParametersInfoW(action, parameter, &word, profile) != 0;
  // Wine leaves a change in the buffer of its connection to the X server, where it is lost when the
  // process ends right away. A question that waits for the X server's answer sends it off.
  BOOL active = FALSE;
  SystemParametersInfoW(SPI_GETSCREENSAVEACTIVE, 0, &active, 0);
  return done;
}

std::uint32_t Win32SystemPower::setExecutionState(std::uint32_t bits) {
  return SetThreadExecutionState(bits);
}

}  // namespace tessivo
