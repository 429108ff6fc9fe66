#include "platform/TimerClass.h"

#include <utility>

namespace tessivo {

void TimerClass::lngInterval(std::int32_t ms) {
  if (!boolEnabled_ && ms > 0) lngInterval_ = ms;
}

void TimerClass::boolEnabled(bool enabled) {
  if (enabled == boolEnabled_) return;
  enabled ? start() : stop();
}

void TimerClass::start() {
  auto relay = std::make_shared<TimerEvent>();
  identifier_ = timers_.start(lngInterval_, relay);
  if (identifier_ == 0) return;
  itsTimeToRaiseEvent_ = relay->ItsTimeToRaiseEvent.connect([this] { ItsTime.raise(); });
  m_objTE_ = std::move(relay);
  boolEnabled_ = true;
}

void TimerClass::stop() {
  timers_.stop(std::exchange(identifier_, 0));
  itsTimeToRaiseEvent_.disconnect();
  m_objTE_.reset();
  boolEnabled_ = false;
}

}  // namespace tessivo
