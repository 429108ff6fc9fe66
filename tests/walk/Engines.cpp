#include "walk/Engines.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "screen/Playback.h"

namespace tessivo::walk {
namespace {

constexpr int kLongestSeconds = 20;
constexpr int kMs = 1000;
constexpr int kReportMs = 500;
constexpr std::uint64_t kEarlyMs = 1500;

/// How an attempt to play goes.
enum class Fate { plays, fails, endsEarly, silent };

Fate drawFate(World& world, const EngineMood& mood) {
  const int drawn = world.dice.below(100);
  if (drawn < mood.failPercent) return Fate::fails;
  if (drawn < mood.failPercent + mood.silentPercent) return Fate::silent;
  if (drawn < mood.failPercent + mood.silentPercent + mood.earlyEndPercent) return Fate::endsEarly;
  return Fate::plays;
}

/// After the time for which the program waits for an answer.
int tooLate(World& world) {
  return world.dice.between(Playback::kNoAnswerMs + 1000, 2 * Playback::kNoAnswerMs);
}

void mayThrow(World& world, const EngineMood& mood, const char* member) {
  if (!mood.throws || !world.dice.oneIn(40)) return;
  world.note(std::string("an engine throws in ") + member);
  throw EngineFailure(member);
}

void mayLetMessagesThrough(World& world, const EngineMood& mood) {
  if (mood.letsMessagesThrough && world.dice.oneIn(10)) mood.letsMessagesThrough();
}

}  // namespace

void Later::after(int ms, std::function<void()> act) {
  const auto id = std::make_shared<TimerService::Id>(0);
  *id = world_.time.start(std::max(1, ms), [this, id, act = std::move(act)] {
    world_.time.stop(*id);
    waiting_.erase(*id);
    world_.guarded(act);
  });
  waiting_.insert(*id);
}

void Later::forget() {
  for (const TimerService::Id id : std::exchange(waiting_, {})) world_.time.stop(id);
}

void WalkMediaPlayer::setUrl(const std::string& url) {
  mayThrow(world_, mood_, "setUrl");
  giveUp();
  url_ = url;
  position_ = 0;
  duration_.reset();
  state_ = MediaPlayState::undefined;
}

void WalkMediaPlayer::giveUp() {
  if (plays()) position_ = currentPosition();
  attempt_.forget();
  end_.forget();
  trying_ = false;
}

void WalkMediaPlayer::play() {
  mayThrow(world_, mood_, "play");
  if (plays() || trying_) return;
  if (state_ == MediaPlayState::paused) {
    attempt_.after(world_.dice.between(1, 30), [this] { begin(); });
    return;
  }
  if (prepared == url_) prepared.clear();  // what was opened ahead is this attempt
  trying_ = true;
  const int delay = world_.dice.percent(50) ? 1 : world_.dice.between(1, 700);
  switch (drawFate(world_, mood_)) {
    case Fate::silent:
      world_.note("Media Player does not answer");
      if (world_.dice.oneIn(2)) attempt_.after(tooLate(world_), [this] { begin(); });
      ++mood_.failures;  // as which it counts when it has not answered for long enough
      return;
    case Fate::fails:
      return attempt_.after(delay, [this] { failNow(); });
    default:
      return attempt_.after(delay, [this] { begin(); });
  }
}

void WalkMediaPlayer::begin() {
  if (!duration_)
    duration_ = world_.dice.between(mood_.shortestHalfSeconds, kLongestSeconds * 2) / 2.0;
  trying_ = false;
  state_ = MediaPlayState::playing;
  since_ = world_.time.ticksMs();
  scheduleEnd();
  world_.note("Media Player plays " + url_);
  playStateChange.raise(state_);
}

void WalkMediaPlayer::failNow() {
  giveUp();
  state_ = MediaPlayState::stopped;
  world_.note("Media Player fails");
  ++mood_.failures;
  mediaError.raise();
}

void WalkMediaPlayer::scheduleEnd() {
  end_.forget();
  const double left = std::max(0.0, *duration_ - position_);
  end_.after(static_cast<int>(std::lround(left * kMs)), [this] {
    giveUp();
    position_ = 0;
    state_ = MediaPlayState::mediaEnded;
    world_.note("Media Player ended");
    playStateChange.raise(state_);
  });
}

void WalkMediaPlayer::pause() {
  mayThrow(world_, mood_, "pause");
  if (!plays()) return;
  giveUp();
  state_ = MediaPlayState::paused;
  notices_.after(1, [this] { playStateChange.raise(MediaPlayState::paused); });
}

void WalkMediaPlayer::stop() {
  mayThrow(world_, mood_, "stop");
  const bool was = plays() || trying_ || state_ == MediaPlayState::paused;
  giveUp();
  state_ = MediaPlayState::stopped;
  if (was) notices_.after(1, [this] { playStateChange.raise(MediaPlayState::stopped); });
}

double WalkMediaPlayer::currentPosition() const {
  if (!plays()) return position_;
  return position_ + static_cast<double>(world_.time.ticksMs() - since_) / kMs;
}

void WalkMediaPlayer::setCurrentPosition(double seconds) {
  position_ = std::clamp(seconds, 0.0, duration_.value_or(kLongestSeconds));
  since_ = world_.time.ticksMs();
  if (plays()) scheduleEnd();
}

void WalkRealPlayer::setSource(const std::string& source) {
  mayThrow(world_, mood_, "setSource");
  stop();
  source_ = source;
  position_ = 0;
  lengthMs_ = 0;
  mayLetMessagesThrough(world_, mood_);
}

void WalkRealPlayer::become(RealPlayState state) {
  payOwedStop();
  const RealPlayState before = std::exchange(state_, state);
  playStateChange.raise(before, state);
}

void WalkRealPlayer::play() {
  mayThrow(world_, mood_, "play");
  toldToPlay_ = world_.time.ticksMs();
  if (plays() || (active_ && state_ != RealPlayState::paused)) return;
  if (state_ == RealPlayState::paused) {
    attempt_.after(world_.dice.between(1, 30), [this] { begin(); });
    return;
  }
  if (prepared == source_) prepared.clear();
  active_ = true;
  attempt_.after(1, [this] { become(RealPlayState::contacting); });
  const int delay = world_.dice.percent(50) ? 2 : world_.dice.between(2, 700);
  switch (drawFate(world_, mood_)) {
    case Fate::silent:
      world_.note("RealPlayer does not answer");
      if (world_.dice.oneIn(2)) attempt_.after(tooLate(world_), [this] { begin(); });
      ++mood_.failures;  // as which it counts when it has not answered for long enough
      break;
    case Fate::fails:
      attempt_.after(delay, [this] { failNow(); });
      break;
    case Fate::endsEarly:
      attempt_.after(delay, [this] { endNow(); });
      break;
    case Fate::plays:
      attempt_.after(delay, [this] { begin(); });
      break;
  }
  mayLetMessagesThrough(world_, mood_);
}

void WalkRealPlayer::begin() {
  if (lengthMs_ == 0)
    lengthMs_ = world_.dice.between(mood_.shortestHalfSeconds, kLongestSeconds * 2) * kMs / 2;
  since_ = world_.time.ticksMs();
  end_.forget();
  end_.after(std::max(1, lengthMs_ - position_), [this] { endNow(); });
  end_.after(kReportMs, [this] { tick(); });
  world_.note("RealPlayer plays " + source_);
  become(RealPlayState::playing);
}

void WalkRealPlayer::failNow() {
  attempt_.forget();
  active_ = false;
  state_ = RealPlayState::stopped;
  world_.note("RealPlayer fails");
  ++mood_.failures;
  errorMessage.raise();
}

void WalkRealPlayer::endNow() {
  attempt_.forget();
  end_.forget();
  active_ = false;
  position_ = 0;
  world_.note("RealPlayer ended");
  // An item that is so short that it counts as one that stopped too early.
  if (world_.time.ticksMs() - toldToPlay_ <= kEarlyMs) ++mood_.failures;
  become(RealPlayState::stopped);
}

void WalkRealPlayer::tick() {
  if (!plays()) return;
  end_.after(kReportMs, [this] { tick(); });
  positionChange.raise(positionMs(), lengthMs_);
}

void WalkRealPlayer::pause() {
  mayThrow(world_, mood_, "pause");
  if (!plays()) return;
  position_ = positionMs();
  attempt_.forget();
  end_.forget();
  state_ = RealPlayState::paused;
  notices_.after(1,
                 [this] { playStateChange.raise(RealPlayState::playing, RealPlayState::paused); });
}

/// The notification of an ordered stop may come when it has long answered that it is not active,
/// but before any of the next attempt; one of an attempt that never played before that is ordered.
void WalkRealPlayer::stop() {
  mayThrow(world_, mood_, "stop");
  attempt_.forget();
  end_.forget();
  position_ = 0;
  if (!std::exchange(active_, false)) return;
  const RealPlayState before = std::exchange(state_, RealPlayState::stopped);
  owedStop_ = before;
  const bool played = before == RealPlayState::playing || before == RealPlayState::paused;
  notices_.after(played ? world_.dice.between(1, 30) : 1, [this] { payOwedStop(); });
}

void WalkRealPlayer::payOwedStop() {
  if (const auto before = std::exchange(owedStop_, std::nullopt)) {
    playStateChange.raise(*before, RealPlayState::stopped);
  }
}

std::int32_t WalkRealPlayer::positionMs() const {
  if (!plays()) return position_;
  return position_ + static_cast<std::int32_t>(world_.time.ticksMs() - since_);
}

void WalkRealPlayer::setPositionMs(std::int32_t position) {
  position_ = std::clamp(position, 0, lengthMs_ > 0 ? lengthMs_ : kLongestSeconds * kMs);
  if (!plays()) return;
  since_ = world_.time.ticksMs();
  end_.forget();
  end_.after(std::max(1, lengthMs_ - position_), [this] { endNow(); });
  end_.after(kReportMs, [this] { tick(); });
}

}  // namespace tessivo::walk
