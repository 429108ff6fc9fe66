#include "base/Rounding.h"
#include "base/TimeText.h"
#include "screen/Playback.h"

namespace tessivo {
namespace {

std::int32_t percentOf(double position, double length) {
  return roundedToInt32(position / length * 100).value_or(0);
}

}  // namespace

void Playback::notePlaying() {
  const bool fresh = state_ != playState::kPlaying;
  state_ = playState::kPlaying;
  timNoAnswer.setEnabled(false);
  playing.raise();
  if (!fresh) return;
  log_.info("playing: " + strFilePath() + " | " + currentName() + " | " +
            strGetTimStringBySecValue(lngFileLength()));
}

void Playback::reportMediaProgress() {
  if (wmpPlayer_->playState() != MediaPlayState::playing) return;
  const auto position = roundedToInt32(wmpPlayer_->currentPosition());
  if (!position) return;
  const std::int32_t length = lngFileLength();
  const auto duration = wmpPlayer_->currentMediaDuration();
  const std::string positionText = strGetTimStringBySecValue(duration ? *position : 0);
  const std::string lengthText =
      strGetTimStringBySecValue(roundedToInt32(duration.value_or(0)).value_or(0));
  JinDu.raise(length >= 1 ? percentOf(*position, length) : 0, *position, positionText, length,
              lengthText);
}

void Playback::reportRealProgress(std::int32_t positionMs, std::int32_t lengthMs) {
  const std::int32_t seconds = positionMs / 1000;
  if (seconds == lastRealSecond_) return;
  lastRealSecond_ = seconds;
  JinDu.raise(lengthMs == 0 ? 0 : percentOf(positionMs, lengthMs), seconds,
              strGetTimStringBySecValue(seconds), lengthMs / 1000,
              strGetTimStringBySecValue(lengthMs / 1000));
}

}  // namespace tessivo
