#pragma once

#include <cstdint>
#include <string>

#include "platform/Displays.h"

namespace tessivo {

/// What the shell is told of an icon in its notification area.
struct TrayIconRecord {
  WindowHandle window = 0;            ///< that hears of the icon
  std::uint32_t identifier = 0;       ///< of the icon, among those of the window
  std::uint32_t flags = 0;            ///< which of the following count: the shell's NIF_ bits
  std::uint32_t callbackMessage = 0;  ///< comes with the mouse message as its lParam
  int icon = 0;                       ///< number of an icon among the program's resources
  std::string tip;                    ///< at most 127 UTF-16 characters count
  std::uint32_t state = 0;
  std::uint32_t stateMask = 0;
  std::string info;             ///< the balloon's text, at most 255 characters
  std::uint32_t timeoutMs = 0;  ///< of the balloon
  std::string infoTitle;        ///< at most 63 characters
  std::uint32_t infoFlags = 0;  ///< the shell's NIIF_ bits
};

/// The icons of the notification area. A refusal is not reported: the icon is missing then.
class TrayIcons {
 public:
  virtual ~TrayIcons() = default;
  virtual void add(const TrayIconRecord& record) = 0;
  /// An icon that is not there is ignored.
  virtual void remove(const TrayIconRecord& record) = 0;
};

}  // namespace tessivo
