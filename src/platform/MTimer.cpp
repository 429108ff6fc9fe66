#include "platform/MTimer.h"

#include <utility>

namespace tessivo {

std::uint32_t MTimer::start(std::int32_t intervalMs, std::shared_ptr<TimerEvent> relay) {
  const std::uint32_t identifier = system_.set(intervalMs, *this);
  if (identifier != 0) registry_[keyOf(identifier)] = std::move(relay);
  return identifier;
}

void MTimer::stop(std::uint32_t identifier) {
  system_.kill(identifier);
  registry_.erase(keyOf(identifier));
}

void MTimer::timerProc(std::uint32_t identifier) {
  const auto found = registry_.find(keyOf(identifier));
  if (found == registry_.end()) return;
  // A listener may stop the timer, and with it this entry.
  const auto relay = found->second;
  relay->raise();
}

std::string MTimer::keyOf(std::uint32_t identifier) {
  return std::to_string(identifier) + "K";
}

}  // namespace tessivo
