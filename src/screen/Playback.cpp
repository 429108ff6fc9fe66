#include "screen/Playback.h"

#include <utility>

#include "base/Quotes.h"
#include "base/Rounding.h"
#include "base/Text.h"
#include "screen/PlayMessages.h"

namespace tessivo {
namespace {

constexpr int kNextTurnMs = 1;
constexpr int kEarlyStopMs = 1500;
constexpr int kProgressMs = 1000;

bool firstIsMediaPlayer(std::int32_t rule) {
  return rule == playRule::kPreferMedia || rule == playRule::kMediaOnly;
}

bool usesBoth(std::int32_t rule) {
  return rule == playRule::kPreferReal || rule == playRule::kPreferMedia;
}

bool firstIsRealPlayer(std::int32_t rule) {
  return rule == playRule::kPreferReal || rule == playRule::kRealOnly;
}

}  // namespace

Playback::Playback(TimerService& timers, const Files& files, Log& log)
    : timMediaPlayDelay(timers, "timMediaPlayDelay", kNextTurnMs),
      timRealPlayDelay(timers, "timRealPlayDelay", kNextTurnMs),
      timMediaErrDelay(timers, "timMediaErrDelay", kNextTurnMs),
      timRealErrDelay(timers, "timRealErrDelay", kNextTurnMs),
      timErrDelay(timers, "timErrDelay", kNextTurnMs),
      timRealPopuWinErrCheck(timers, "timRealPopuWinErrCheck", kEarlyStopMs),
      timNoAnswer(timers, "timNoAnswer", kNoAnswerMs),
      timMediaPlayJinDu(timers, "timMediaPlayJinDu", kProgressMs),
      files_(files),
      log_(log) {
  listenToTimers();
}

void Playback::attach(MediaPlayerSlot& wmpPlayer, RealPlayerSlot& realPlayer) {
  wmpPlayer_ = &wmpPlayer;
  realPlayer_ = &realPlayer;
  listenToEngines();
  wmpPlayer.setVisible(current_ == Engine::mediaPlayer);
  realPlayer.setVisible(current_ == Engine::realPlayer);
  intVolume(volume_);
  boolMute(mute_);
  timMediaPlayJinDu.setEnabled(true);
}

void Playback::detach() {
  cancelHops();
  timErrDelay.setEnabled(false);
  timRealPopuWinErrCheck.setEnabled(false);
  timMediaPlayJinDu.setEnabled(false);
  connections_.clear();
  wmpPlayer_ = &noMediaPlayer_;
  realPlayer_ = &noRealPlayer_;
}

void Playback::listenToEngines() {
  connections_.clear();
  connections_.push_back(wmpPlayer_->playStateChange.connect(
      [this](MediaPlayState state) { mediaStateChanged(state); }));
  connections_.push_back(wmpPlayer_->mediaError.connect([this] {
    wmpPlayer_->clearErrorQueue();
    startTimer(timMediaErrDelay);
  }));
  connections_.push_back(realPlayer_->playStateChange.connect(
      [this](RealPlayState before, RealPlayState now) { realStateChanged(before, now); }));
  connections_.push_back(
      realPlayer_->errorMessage.connect([this] { timRealErrDelay.setEnabled(true); }));
  connections_.push_back(
      wmpPlayer_->preparationFailed.connect([this] { prepareOther(Engine::mediaPlayer); }));
  connections_.push_back(
      realPlayer_->preparationFailed.connect([this] { prepareOther(Engine::realPlayer); }));
  connections_.push_back(
      realPlayer_->positionChange.connect([this](std::int32_t position, std::int32_t length) {
        reportRealProgress(position, length);
      }));
}

void Playback::lngPlayRuler(std::int32_t rule) {
  if (std::exchange(rule_, rule) != rule) prepareNext("");
  reset();
}

std::string Playback::strFilePath() const {
  return wmpPlayer_->url();
}

void Playback::strFilePath(const std::string& path) {
  if (!attached()) return;
  lightReset();
  if (realPlayer_->canStop()) stopExpected_ = true;
  const std::string plain(unquoted(path));
  if (plain.empty()) prepareNext("");
  wmpPlayer_->setUrl(plain);
  realPlayer_->setSource(plain);
}

void Playback::prepareNext(const std::string& path) {
  if (!attached()) return;
  prepared_ = unquoted(path);
  if (firstCannot_ != prepared_) firstCannot_.clear();
  const std::string other = usesBoth(rule_) ? firstCannot_ : "";
  wmpPlayer_->prepare(firstIsMediaPlayer(rule_) ? prepared_ : other);
  realPlayer_->prepare(firstIsRealPlayer(rule_) ? prepared_ : other);
}

void Playback::prepareOther(Engine failed) {
  const bool first =
      failed == Engine::mediaPlayer ? firstIsMediaPlayer(rule_) : firstIsRealPlayer(rule_);
  if (!first) return;
  firstCannot_ = prepared_;
  prepareNext(prepared_);
}

bool Playback::play() {
  const std::string path = strFilePath();
  if (trim(path).empty()) {
    failLater(playMessage::kPathEmpty);
    return false;
  }
  if (!fileExists(path)) {
    failLater(playMessage::kFileMissing);
    return false;
  }
  if (state_ == playState::kPlaying || state_ == playState::kStarting) return false;
  if (state_ == playState::kStopped) seekOnStart_ = true;
  state_ = playState::kStarting;
  (mediaPlayerIsCurrent() ? timMediaPlayDelay : timRealPlayDelay).setEnabled(true);
  return true;
}

void Playback::pause() {
  if (!attached() || state_ != playState::kPlaying) return;
  state_ = playState::kPaused;
  mediaPlayerIsCurrent() ? wmpPlayer_->pause() : realPlayer_->pause();
}

void Playback::stopPlay() {
  if (state_ == playState::kStopped || state_ == playState::kStarting) return;
  prepareNext("");
  reset();
}

void Playback::intVolume(std::int16_t volume) {
  volume_ = volume;
  wmpPlayer_->setVolume(volume);
  realPlayer_->setVolume(volume);
}

void Playback::boolMute(bool mute) {
  mute_ = mute;
  wmpPlayer_->setMute(mute);
  realPlayer_->setMute(mute);
}

std::optional<std::int32_t> Playback::lngJinDu() {
  if (!attached() || !mediaPlayerIsCurrent()) return position_;
  const auto position = roundedToInt16(wmpPlayer_->currentPosition());
  if (!position) return std::nullopt;
  position_ = *position;
  return position_;
}

bool Playback::lngJinDu(std::int32_t seconds) {
  position_ = seconds;
  if (!attached()) return true;
  wmpPlayer_->setCurrentPosition(seconds);
  const auto milliseconds = roundedToInt32(seconds * 1000.0);
  if (!milliseconds) return false;
  realPlayer_->setPositionMs(*milliseconds);
  return true;
}

std::int32_t Playback::lngFileLength() const {
  if (!mediaPlayerIsCurrent()) {
    return roundedToInt32(realPlayer_->lengthMs() / 1000.0).value_or(0);
  }
  return roundedToInt32(wmpPlayer_->currentMediaDuration().value_or(0)).value_or(0);
}

void Playback::reset() {
  if (!attached()) return;
  stopMediaPlayer();
  stopRealPlayer();
  positionCleared.raise();
  cancelHops();
  clearState();
  showFirstEngineOfRule();
}

void Playback::lightReset() {
  stopMediaPlayer();
  cancelHops();
  clearState();
  showFirstEngineOfRule();
}

void Playback::stopMediaPlayer() {
  wmpPlayer_->stop();
  wmpPlayer_->setCurrentPosition(0);
}

void Playback::stopRealPlayer() {
  stopExpected_ = realPlayer_->canStop();
  if (stopExpected_) realPlayer_->stop();
}

void Playback::cancelHops() {
  timMediaErrDelay.setEnabled(false);
  timMediaPlayDelay.setEnabled(false);
  timRealErrDelay.setEnabled(false);
  timRealPlayDelay.setEnabled(false);
  timNoAnswer.setEnabled(false);
}

void Playback::clearState() {
  state_ = playState::kStopped;
  position_ = 0;
  seekOnStart_ = false;
}

void Playback::show(Engine engine) {
  current_ = engine;
  const bool media = mediaPlayerIsCurrent();
  if (media ? !wmpPlayer_->visible() : !realPlayer_->visible()) {
    media ? wmpPlayer_->setVisible(true) : realPlayer_->setVisible(true);
  }
  if (media ? realPlayer_->visible() : wmpPlayer_->visible()) {
    media ? realPlayer_->setVisible(false) : wmpPlayer_->setVisible(false);
  }
}

void Playback::showFirstEngineOfRule() {
  if (firstIsMediaPlayer(rule_)) show(Engine::mediaPlayer);
  if (firstIsRealPlayer(rule_)) show(Engine::realPlayer);
}

bool Playback::fileExists(const std::string& path) const {
  return containsNoCase(path, "http") || files_.fileExists(path);
}

}  // namespace tessivo
