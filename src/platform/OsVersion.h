#pragma once

#include <cstdint>

namespace tessivo {

/// What the operating system calls itself.
struct OsVersion {
  std::uint32_t platform = 0;  ///< 0 Win32s, 1 Windows 95 and its kin, 2 Windows NT and its kin
  std::uint32_t major = 0;
  std::uint32_t minor = 0;
};

}  // namespace tessivo
