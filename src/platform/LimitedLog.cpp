#include "platform/LimitedLog.h"

#include <algorithm>
#include <utility>

namespace tessivo {

void LimitedLog::info(std::string_view text) {
  if (mayPass()) log_.info(text);
}

void LimitedLog::error(std::string_view text) {
  if (mayPass()) log_.error(text);
}

bool LimitedLog::mayPass() {
  const std::uint64_t now = clock_.ticksMs();
  creditMs_ = std::min(kBurst * kMsALine, creditMs_ + (now - std::exchange(since_, now)));
  if (creditMs_ < kMsALine) {
    ++leftOut_;
    return false;
  }
  creditMs_ -= kMsALine;
  if (const auto count = std::exchange(leftOut_, 0); count > 0) {
    log_.info("requests not logged: " + std::to_string(count));
  }
  return true;
}

}  // namespace tessivo
