#include "platform/win32/Win32SystemPower.h"

#include <windows.h>

namespace tessivo {

bool Win32SystemPower::systemParameters(std::uint32_t action, std::uint32_t parameter,
                                        std::uint32_t& word, std::uint32_t profile) {
  return SystemParametersInfoW(action, parameter, &word, profile) != 0;
}

std::uint32_t Win32SystemPower::setExecutionState(std::uint32_t bits) {
  return SetThreadExecutionState(bits);
}

}  // namespace tessivo
