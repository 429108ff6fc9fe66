#include "prereq/CheckOSVersion.h"

#include <algorithm>
#include <array>

namespace tessivo {
namespace {

constexpr std::uint32_t kAny = 0xFFFFFFFF;

struct KnownVersion {
  std::uint32_t platform;
  std::uint32_t major;
  std::uint32_t minor;
  const char* name;
  std::int32_t flag;
};

constexpr std::array kKnown{
    KnownVersion{0, kAny, kAny, "Windows 3.0", osVersionFlag::kWin32s},
    KnownVersion{1, 4, 0, "Windows 95", osVersionFlag::kWindows95},
    KnownVersion{1, 4, 10, "Windows 98", osVersionFlag::kWindows98},
    // Spelled so on purpose.
    KnownVersion{1, 4, 90, "Windows Mellinnium", osVersionFlag::kWindowsMe},
    KnownVersion{2, 3, kAny, "Windows NT 3.51", osVersionFlag::kNt351},
    KnownVersion{2, 4, kAny, "Windows NT 4.0", osVersionFlag::kNt4},
    KnownVersion{2, 5, 0, "Windows 2000", osVersionFlag::kWindows2000},
    KnownVersion{2, 5, 1, "Windows XP", osVersionFlag::kWindowsXp},
    KnownVersion{2, 5, 2, "Windows Server 2003", osVersionFlag::kServer2003},
    KnownVersion{2, 6, kAny, "Windows Vista", osVersionFlag::kVista},
};

bool fits(std::uint32_t known, std::uint32_t value) {
  return known == kAny || known == value;
}

}  // namespace

void CheckOSVersion::getOSVersion(std::string& name, std::int32_t& flag) {
  const auto* const known = std::ranges::find_if(kKnown, [this](const KnownVersion& entry) {
    return entry.platform == version_.platform && fits(entry.major, version_.major) &&
           fits(entry.minor, version_.minor);
  });
  if (known != kKnown.end()) {
    strOSName_ = known->name;
    enumOSVersionFlag_ = known->flag;
  }
  name = strOSName_;
  flag = enumOSVersionFlag_;
}

}  // namespace tessivo
