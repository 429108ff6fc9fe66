#include "ssp/ClockFace.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <cmath>

#include "base/TimeText.h"

namespace tessivo::ssp {
namespace {

constexpr int kMsPerSecond = 1000;
constexpr int kTimerSlackMs = 10;
/// So wide is no other time, whatever the font does with its figures.
constexpr const char* kWidestTime = "88:88:88";
constexpr const char* kWidestTimeWithoutSeconds = "88:88";
constexpr std::int32_t kDatePart = 4;  ///< the date's font is that part of the time's

/// Of the side of a square as large as the area: a narrow strip is to be filled, too.
double fontPartOf(ClockSize size) {
  constexpr std::array<double, 3> kParts{0.09, 0.15, 0.24};
  return kParts.at(static_cast<std::size_t>(size));
}

ClockBlock blockWith(std::int32_t timeFont, bool seconds, const std::string& date,
                     const MeasureText& measure) {
  ClockBlock block;
  block.timeFont = timeFont;
  const Size time = measure(seconds ? kWidestTime : kWidestTimeWithoutSeconds, timeFont);
  Size below;
  if (!date.empty()) {
    block.dateFont = std::max(1, timeFont / kDatePart);
    below = measure(date, block.dateFont);
  }
  block.size = {std::max(time.width, below.width), time.height + below.height};
  block.time = {0, 0, block.size.width, time.height};
  block.date = {0, time.height, block.size.width, below.height};
  return block;
}

bool fits(Size block, Size area) {
  // In 64 bits: areas are as wide as windows can be.
  return std::int64_t{block.width} * 10 <= std::int64_t{area.width} * 9 &&
         std::int64_t{block.height} * 10 <= std::int64_t{area.height} * 9;
}

}  // namespace

std::string clockTimeText(const LocalTime& time, bool seconds) {
  const std::string text = strGetTimStringBySecValue(time.msOfDay / kMsPerSecond);
  return seconds ? text : text.substr(0, text.rfind(':'));
}

std::string clockDateText(const LocalTime& time) {
  constexpr std::array<const char*, 7> kWeekdays{"日", "一", "二", "三", "四", "五", "六"};
  const std::chrono::year_month_day day(std::chrono::year(time.year),
                                        std::chrono::month(static_cast<unsigned>(time.month)),
                                        std::chrono::day(static_cast<unsigned>(time.day)));
  const std::chrono::weekday weekday{std::chrono::sys_days(day)};
  return std::to_string(time.year) + "年" + std::to_string(time.month) + "月" +
         std::to_string(time.day) + "日 星期" + kWeekdays.at(weekday.c_encoding());
}

int msToNextSecond(const LocalTime& time) {
  return kMsPerSecond - time.msOfDay % kMsPerSecond + kTimerSlackMs;
}

ClockBlock layOutClock(const ClockSettings& settings, const std::string& date, Size area,
                       const MeasureText& measure) {
  const double side = std::sqrt(static_cast<double>(area.width) * area.height);
  // The largest font that fits; fonts grow evenly, so that halving finds it.
  std::int32_t least = 1;
  std::int32_t most = std::max(1, static_cast<std::int32_t>(side * fontPartOf(settings.size)));
  while (least < most) {
    const std::int32_t middle = least + (most - least + 1) / 2;
    const bool fitting = fits(blockWith(middle, settings.seconds, date, measure).size, area);
    (fitting ? least : most) = fitting ? middle : middle - 1;
  }
  return blockWith(least, settings.seconds, date, measure);
}

}  // namespace tessivo::ssp
