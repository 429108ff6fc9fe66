#pragma once

#include <cstdint>
#include <string>

#include "platform/OsVersion.h"

namespace tessivo {

/// The operating systems that the program tells apart (`CheckOSVersion::enumOSVersionFlag`).
namespace osVersionFlag {
inline constexpr std::int32_t kUnrecognised = 10;
inline constexpr std::int32_t kWin32s = 11;
inline constexpr std::int32_t kWindows95 = 12;
inline constexpr std::int32_t kWindows98 = 13;
inline constexpr std::int32_t kWindowsMe = 14;
inline constexpr std::int32_t kNt351 = 151;
inline constexpr std::int32_t kNt4 = 152;
inline constexpr std::int32_t kWindows2000 = 16;
inline constexpr std::int32_t kWindowsXp = 17;
inline constexpr std::int32_t kServer2003 = 18;
inline constexpr std::int32_t kVista = 19;
}  // namespace osVersionFlag

/// Names the operating system. The tray form chooses its icon by it.
class CheckOSVersion {
 public:
  explicit CheckOSVersion(const OsVersion& version) : version_(version) {}

  /// Finds out and hands out the name and the flag; the properties hold them from then on.
  void getOSVersion(std::string& name, std::int32_t& flag);

  std::int32_t enumOSVersionFlag() const { return enumOSVersionFlag_; }
  const std::string& strOSName() const { return strOSName_; }

 private:
  OsVersion version_;
  std::int32_t enumOSVersionFlag_ = osVersionFlag::kUnrecognised;
  std::string strOSName_ = "无法识别的操作系统";
};

}  // namespace tessivo
