#include "platform/DateTimeText.h"

#include <cstdio>

namespace tessivo {

std::string dateTimeText(const LocalTime& time) {
  char text[80];
  const int seconds = time.msOfDay / 1000;
  std::snprintf(text, sizeof text, "%04d-%02d-%02d %02d:%02d:%02d", time.year, time.month, time.day,
                seconds / 3600, seconds / 60 % 60, seconds % 60);
  return text;
}

}  // namespace tessivo
