#include "base/TimeText.h"

namespace tessivo {
namespace {

std::string twoDigits(std::int32_t value) {
  const std::string digits = std::to_string(value < 0 ? -static_cast<std::int64_t>(value) : value);
  return (value < 0 ? "-" : "") + (digits.size() < 2 ? "0" + digits : digits);
}

}  // namespace

std::string strGetTimStringBySecValue(std::int32_t seconds) {
  return twoDigits(seconds / 3600) + ":" + twoDigits(seconds % 3600 / 60) + ":" +
         twoDigits(seconds % 60);
}

}  // namespace tessivo
