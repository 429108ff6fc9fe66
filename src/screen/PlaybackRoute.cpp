// The way of a play request: from the first engine over its failure to the second engine or to the
// error event, by the play rule.
#include <utility>

#include "base/Rounding.h"
#include "screen/PlayMessages.h"
#include "screen/Playback.h"

namespace tessivo {
namespace {

/// Every timer of the route is one-shot: it disables itself before it acts.
void onShot(ui::Timer& timer, std::function<void()> act) {
  timer.onTimer.listen([&timer, act = std::move(act)] {
    timer.setEnabled(false);
    act();
  });
}

bool usesMediaPlayer(std::int32_t rule) {
  return rule == playRule::kPreferReal || rule == playRule::kPreferMedia ||
         rule == playRule::kMediaOnly;
}

bool usesRealPlayer(std::int32_t rule) {
  return rule == playRule::kPreferReal || rule == playRule::kPreferMedia ||
         rule == playRule::kRealOnly;
}

}  // namespace

void Playback::listenToTimers() {
  onShot(timMediaPlayDelay, [this] { startMediaPlayer(); });
  onShot(timRealPlayDelay, [this] { startRealPlayer(); });
  onShot(timMediaErrDelay, [this] { handleMediaError(); });
  onShot(timRealErrDelay, [this] { handleRealError(); });
  onShot(timErrDelay, [this] {
    const std::string reason = timErrDelay.tag();
    log_.error("play error: " + reason + " | " + strFilePath());
    PlayErr.raise(reason);
  });
  onShot(timRealPopuWinErrCheck, [] {});  // its enabled state is all that counts
  onShot(timNoAnswer, [this] { handleNoAnswer(); });
  timMediaPlayJinDu.onTimer.listen([this] { reportMediaProgress(); });
}

void Playback::startMediaPlayer() {
  if (!usesMediaPlayer(rule_)) return;
  if (rule_ == playRule::kPreferReal && !mediaPlayerIsCurrent()) {
    show(Engine::mediaPlayer);
    // Starting RealPlayer gave it its path anew, which made it forget where to start.
    if (seekOnStart_) wmpPlayer_->setCurrentPosition(position_);
  }
  awaitAnswer();
  wmpPlayer_->play();
}

void Playback::startRealPlayer() {
  if (!usesRealPlayer(rule_)) return;
  wmpPlayer_->setUrl(wmpPlayer_->url());  // makes it give up its present attempt
  show(Engine::realPlayer);
  // An engine that is not active owes no stopped notification any more; a flag left over would
  // swallow the failure or the end of this file.
  if (!realPlayer_->canStop()) stopExpected_ = false;
  timRealPopuWinErrCheck.setEnabled(false);  // one left from an earlier start would close too soon
  startTimer(timRealPopuWinErrCheck);
  awaitAnswer();
  realPlayer_->play();
}

void Playback::handleMediaError() {
  if (rule_ == playRule::kPreferMedia) startTimer(timRealPlayDelay);
  if (rule_ == playRule::kPreferReal) giveUp(playMessage::kMediaFailedLast);
  if (rule_ == playRule::kMediaOnly) giveUp(playMessage::kMediaOnlyFailed);
}

void Playback::handleRealError() {
  if (rule_ == playRule::kPreferReal) startTimer(timMediaPlayDelay);
  if (rule_ == playRule::kPreferMedia) giveUp(playMessage::kRealFailedLast);
  if (rule_ == playRule::kRealOnly) giveUp(playMessage::kRealOnlyFailed);
}

void Playback::awaitAnswer() {
  timNoAnswer.setEnabled(false);
  startTimer(timNoAnswer);
}

void Playback::handleNoAnswer() {
  // It is "playing" still where the first engine did so for a moment.
  if (state_ != playState::kStarting && state_ != playState::kPlaying) return;
  log_.error("no answer of " + currentName() + " for " + std::to_string(kNoAnswerMs / 1000) +
             " s: " + strFilePath());
  if (mediaPlayerIsCurrent()) return handleMediaError();
  stopRealPlayer();  // unlike one that failed it may still try
  handleRealError();
}

void Playback::giveUp(const char* message) {
  reset();
  failLater(message);
}

/// What follows a failure is the owner's decision; perhaps nothing does.
void Playback::failLater(const char* message) {
  if (!attached()) return;
  prepareNext("");
  timErrDelay.setTag(message);
  startTimer(timErrDelay);
}

void Playback::mediaStateChanged(MediaPlayState state) {
  if (state == MediaPlayState::mediaEnded) {
    log_.info("ended: " + strFilePath());
    reset();
    PlayOver.raise();
  } else if (state == MediaPlayState::playing) {
    notePlaying();
    wmpPlayer_->setMute(mute_);
  }
}

void Playback::realStateChanged(RealPlayState before, RealPlayState now) {
  if (now == RealPlayState::playing) {
    notePlaying();
    if (const auto ms = roundedToInt32(position_ * 1000.0); seekOnStart_ && ms) {
      realPlayer_->setPositionMs(*ms);
    }
    seekOnStart_ = false;  // a later resume goes on where it paused
    realPlayer_->setMute(mute_);
  } else if (now == RealPlayState::stopped) {
    const bool expected = std::exchange(stopExpected_, false);  // one order, one notification
    if (!isOfThisItem(before, expected)) return;
    if (timRealPopuWinErrCheck.enabled()) {
      timRealPopuWinErrCheck.setEnabled(false);
      timRealErrDelay.setEnabled(true);
    } else {
      log_.info("ended: " + strFilePath());
      lightReset();
      PlayOver.raise();
    }
  }
}

/// RealPlayer may send the notification of an ordered stop when it has long answered that it is not
/// active, even when the next item starts, or never. What it stopped from tells whose it is.
bool Playback::isOfThisItem(RealPlayState stoppedFrom, bool expected) const {
  if (state_ == playState::kStopped || mediaPlayerIsCurrent()) return false;
  const bool underWay = !seekOnStart_;  // it plays or played
  if (expected) return underWay && !timRealPopuWinErrCheck.enabled();
  if (underWay) return true;
  const bool toldToPlay = !timRealPlayDelay.enabled();
  return toldToPlay && stoppedFrom != RealPlayState::playing &&
         stoppedFrom != RealPlayState::paused;
}

}  // namespace tessivo
