#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "base/Geometry.h"
#include "platform/Clock.h"
#include "ssp/ClockSettings.h"
#include "ssp/Size.h"

namespace tessivo::ssp {

/// "15:04:05", or "15:04" without the seconds.
std::string clockTimeText(const LocalTime& time, bool seconds);
/// "2026年11月21日 星期六".
std::string clockDateText(const LocalTime& time);

/// Milliseconds until the next second has just begun, 10..1010: never so few that a timer which is
/// early finds the old second once more.
int msToNextSecond(const LocalTime& time);

/// The size of a text in the clock's font of that many pixels of height.
using MeasureText = std::function<Size(const std::string& text, std::int32_t fontHeight)>;

/// The time and the date below it as one block. Rectangles inside the block.
struct ClockBlock {
  Size size;
  std::int32_t timeFont = 1;  ///< pixels of height
  std::int32_t dateFont = 0;  ///< 0: no date
  Rect time;
  Rect date;
};

/// Lays the block out so that it takes no more than nine tenths of the area in either direction and
/// can wander; in an area of a few pixels it may be larger than that. `date` is empty for a clock
/// without.
ClockBlock layOutClock(const ClockSettings& settings, const std::string& date, Size area,
                       const MeasureText& measure);

}  // namespace tessivo::ssp
