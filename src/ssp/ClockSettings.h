#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <string_view>

#include "ui/Control.h"

namespace tessivo::ssp {

enum class ClockSize { small, medium, large };

struct ClockSettings {
  ClockSize size = ClockSize::medium;
  std::size_t colour = 0;  ///< index into kClockColours
  bool seconds = true;
  bool date = true;

  friend bool operator==(const ClockSettings&, const ClockSettings&) = default;
};

struct ClockColour {
  const char* key;   ///< in the file
  const char* name;  ///< for the user
  ui::Colour colour;
};

/// Quiet colours: the clock shines all night.
inline constexpr std::array<ClockColour, 6> kClockColours{{{"moon", "月白", 0xB8C8D4},
                                                           {"sand", "沙黄", 0xC8B48C},
                                                           {"amber", "琥珀", 0xC88C46},
                                                           {"jade", "青玉", 0x78B4A0},
                                                           {"sky", "天蓝", 0x6E9BC8},
                                                           {"ash", "烟灰", 0x828282}}};

/// The settings in the text of an ini file; what is missing or not understood has its default.
ClockSettings parseClockSettings(std::string_view text);
std::string clockSettingsText(const ClockSettings& settings);

}  // namespace tessivo::ssp
