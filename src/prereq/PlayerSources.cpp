#include "prereq/PlayerSources.h"

#include "prereq/CheckOSVersion.h"

namespace tessivo {
namespace {

constexpr PlayerSources kWindows2000{
    {"Windows Media Player 9", "wmpInstall_2000.exe", "wmpW2000.htm"},
    {"RealPlayer 10", "rpInstall_2000.exe", "realW2000.htm"}};
constexpr PlayerSources kWindowsXp{{"Windows Media Player 11", "wmpInstall_XP.exe", "wmpXP.htm"},
                                   {"RealPlayer 11", "rpInstall_XP.exe", "realXP.htm"}};
// RealPlayer's is the one for Windows XP.
constexpr PlayerSources kVista{
    {"Windows Media Player 11 for Vista", "wmpInstall_Vista.exe", "wmpVista.htm"},
    {"RealPlayer 11", "rpInstall_XP.exe", "realXP.htm"}};
constexpr PlayerSources kOlder{{"", "", "wmpW2000.htm"}, {"", "", "realW2000.htm"}};
constexpr PlayerSources kUnknown{{"", "", "wmpVista.htm"}, {"", "", "realXP.htm"}};

}  // namespace

const PlayerSources& playerSources(std::int32_t flag) {
  switch (flag) {
    case osVersionFlag::kWindows2000:
      return kWindows2000;
    case osVersionFlag::kWindowsXp:
    case osVersionFlag::kServer2003:
      return kWindowsXp;
    case osVersionFlag::kVista:
      return kVista;
    case osVersionFlag::kUnrecognised:
      return kUnknown;
    default:
      return kOlder;
  }
}

}  // namespace tessivo
