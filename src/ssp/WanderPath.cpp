#include "ssp/WanderPath.h"

#include <algorithm>
#include <cmath>

namespace tessivo::ssp {
namespace {

/// So often the way turns sideways at the top and at the bottom before it leaves them: the first
/// time it has not been along the whole edge yet.
constexpr int kTurnsAtTheEnds = 2;

/// Goes on by `step`, not beyond the ends 0 and `room`; at an end the direction turns. Whether it
/// did.
template <typename Number>
bool walk(Number& place, bool& forward, Number step, Number room) {
  place = std::clamp<Number>(forward ? place + step : place - step, 0, room);
  const bool before = forward;
  if (place <= 0) forward = true;
  if (place >= room) forward = false;
  return forward != before;
}

}  // namespace

WanderPath::WanderPath(Size area, Size block) : area_(area), turnsToWait_(kTurnsAtTheEnds) {
  setBlock(block);
}

void WanderPath::setBlock(Size block) {
  block_ = {std::max(block.width, 1), std::max(block.height, 1)};
  room_ = {std::max(area_.width - block_.width, 0), std::max(area_.height - block_.height, 0)};
  x_ = std::min(x_, room_.width);
  y_ = std::min<double>(y_, room_.height);
  const std::int32_t side = std::min(kStep, block_.width);
  const std::int32_t steps = (room_.width + side - 1) / side;
  // Two ways across take it down by no more than its height, so that nothing is left out where the
  // ways are farthest apart.
  const double perWay = std::max(block_.height - 1, 1) / 2.0;
  stepDown_ = steps > 0 ? perWay / steps : std::min(kStep, block_.height);
}

Point WanderPath::position() const {
  return {x_, static_cast<std::int32_t>(y_)};
}

void WanderPath::advance() {
  const bool turned = walk(x_, rightward_, std::min(kStep, block_.width), room_.width);
  const bool waits = turnsToWait_ > 0 && room_.width > 0;
  if (waits && turned) --turnsToWait_;
  if (waits) return;
  if (walk(y_, downward_, stepDown_, static_cast<double>(room_.height))) {
    turnsToWait_ = kTurnsAtTheEnds;
  }
}

}  // namespace tessivo::ssp
