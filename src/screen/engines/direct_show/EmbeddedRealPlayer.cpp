#include "screen/engines/direct_show/EmbeddedRealPlayer.h"

#include <algorithm>
#include <utility>

#include "screen/engines/embedded/ErrorCode.h"
#include "screen/engines/embedded/VolumeCurve.h"

namespace tessivo {
namespace {

/// How long the destructor waits for attempts that are still closing.
constexpr DWORD kLongestGoodbyeMs = 1000;

}  // namespace

EmbeddedRealPlayer::EmbeddedRealPlayer(HWND parent, Log& log, std::shared_ptr<LastPicture> last)
    : log_(log), window_(*this, log), last_(std::move(last)) {
  window_.open(parent);
}

EmbeddedRealPlayer::~EmbeddedRealPlayer() {
  giveUpNext();
  last_->leave(window_);
  abandon();
  closing_.wait(kLongestGoodbyeMs);
}

void EmbeddedRealPlayer::setSource(const std::string& source) {
  stop();
  source_ = source;
  lengthMs_ = 0;
}

/// A source that has failed is not tried again and again.
void EmbeddedRealPlayer::prepare(const std::string& source) {
  if (next_.source == source) return;
  giveUpNext();
  if (!source.empty()) next_ = begin(source, 0, true);
}

void EmbeddedRealPlayer::giveUpNext() {
  if (next_.graph) closing_.add(std::move(next_.graph), std::move(next_.picture));
  next_ = {};
}

/// Every play is answered by the playing notification or an error, also one that takes back a pause
/// which the graph has not yet come to.
void EmbeddedRealPlayer::play() {
  if (state_ == RealPlayState::contacting) return;  // its answer is under way
  playOrderedAt_ = GetTickCount64();
  if (state_ == RealPlayState::stopped) return open();
  if (state_ == RealPlayState::paused || std::exchange(pauseOrdered_, false)) {
    resumeOrdered_ = true;
    return attempt_.graph->play();
  }
  announce(RealPlayState::playing);
  if (hasEnded_) window_.startTimer(EngineWindow::Timer::heldStop, kEarlyStopMs);
}

void EmbeddedRealPlayer::pause() {
  if (state_ != RealPlayState::playing || hasEnded_) return;
  pauseOrdered_ = true;
  attempt_.graph->pause();
}

void EmbeddedRealPlayer::stop() {
  startMs_ = 0;
  if (!canStop()) return;
  abandon();
  announce(RealPlayState::stopped);
}

void EmbeddedRealPlayer::setPositionMs(std::int32_t position) {
  if (attempt_.graph) {
    if (!hasEnded_) attempt_.graph->seek(position);
  } else {
    startMs_ = position;
  }
}

void EmbeddedRealPlayer::setVolume(std::int16_t volume) {
  volume_ = std::clamp<int>(volume, 0, 100);
  applyVolume();
}

void EmbeddedRealPlayer::setMute(bool mute) {
  muted_ = mute;
  applyVolume();
}

void EmbeddedRealPlayer::applyVolume() {
  if (attempt_.graph) attempt_.graph->setAttenuation(attenuationOf(volume_, muted_));
}

void EmbeddedRealPlayer::open() {
  hasEnded_ = false;
  announce(RealPlayState::contacting);
  if (const auto failure = takeFailure()) {
    serial_ = ++lastSerial_;
    return postEngineEvent(window_.handle(), EngineEvent::failed, serial_, *failure);
  }
  last_->nextIsComing();
  if (next_.graph && next_.source == source_ && startMs_ == 0) {
    attempt_ = std::exchange(next_, {});
    lengthMs_ = attempt_.lengthMs;
    attempt_.picture->comeIn();
    applyVolume();
    attempt_.graph->play();
  } else {
    attempt_ = begin(source_, startMs_, false);
  }
  serial_ = attempt_.graph->serial();
}

/// What is known of the source before it is tried. What failed ahead failed a moment ago.
std::optional<std::int32_t> EmbeddedRealPlayer::takeFailure() {
  if (next_.source != source_ || !next_.failure) return std::nullopt;
  return std::exchange(next_, {}).failure;
}

EmbeddedRealPlayer::Attempt EmbeddedRealPlayer::begin(const std::string& source,
                                                      std::int32_t startMs, bool waits) {
  auto picture = std::make_unique<PictureWindow>(window_.handle(), waits, log_);
  const WPARAM serial = ++lastSerial_;
  auto graph = std::make_shared<GraphThread>(
      window_.handle(), serial,
      GraphThread::Order{sourcePathOf(source), picture->handle(), startMs,
                         attenuationOf(volume_, muted_), waits});
  picture->onPaint([weak = std::weak_ptr(graph)](HDC) {
    if (const auto painter = weak.lock()) painter->repaint();
    return false;  // the renderer draws over the black
  });
  picture->onFrame([this, serial] { pictureArrived(serial); });
  closing_.start(graph);
  return {.source = source, .graph = std::move(graph), .picture = std::move(picture)};
}

void EmbeddedRealPlayer::pictureArrived(WPARAM serial) {
  if (serial != serial_ || !attempt_.graph) return;
  attempt_.picture->raise();
  last_->letGo();
}

void EmbeddedRealPlayer::forgetOrders() {
  serial_ = ++lastSerial_;
  window_.stopTimer(EngineWindow::Timer::heldStop);
  hasEnded_ = pauseOrdered_ = resumeOrdered_ = false;
  startMs_ = 0;
}

void EmbeddedRealPlayer::abandon() {
  forgetOrders();
  if (!attempt_.graph) return;
  last_->nextIsOff();
  attempt_.picture->hide();
  closing_.add(std::move(attempt_.graph), std::move(attempt_.picture));
}

void EmbeddedRealPlayer::eventOfNext(EngineEvent event, std::int32_t value) {
  if (event == EngineEvent::opened) next_.lengthMs = value;
  if (event != EngineEvent::failed) return;
  closing_.add(std::move(next_.graph), std::move(next_.picture));
  next_.failure = value;
  preparationFailed.raise();
}

void EmbeddedRealPlayer::onTimer(EngineWindow::Timer timer) {
  timer == EngineWindow::Timer::heldStop ? finish() : last_->letGo();
}

/// Changes the state at once and raises its notification from the message loop.
void EmbeddedRealPlayer::announce(RealPlayState newState) {
  const auto oldState = std::exchange(state_, newState);
  postEngineEvent(window_.handle(), EngineEvent::notify, static_cast<WPARAM>(oldState),
                  static_cast<int>(newState));
}

void EmbeddedRealPlayer::onEngineEvent(EngineEvent event, WPARAM serial, std::int32_t value) {
  if (event == EngineEvent::closed) return closing_.closed(serial);
  if (event == EngineEvent::notify) {
    return playStateChange.raise(static_cast<RealPlayState>(serial),
                                 static_cast<RealPlayState>(value));
  }
  if (next_.graph && serial == next_.graph->serial()) return eventOfNext(event, value);
  if (serial != serial_) return;
  switch (event) {
    case EngineEvent::opened:
      lengthMs_ = value;
      return;
    case EngineEvent::playing:
      return started();
    case EngineEvent::paused:
      pauseOrdered_ = false;
      return changeState(RealPlayState::paused);
    case EngineEvent::position:
      return positionChange.raise(value, lengthMs_);
    case EngineEvent::ended:
      return ended();
    case EngineEvent::failed:
      return failed(value);
    default:
      return;
  }
}

void EmbeddedRealPlayer::started() {
  last_->nextPlays();
  if (!std::exchange(resumeOrdered_, false)) return changeState(RealPlayState::playing);
  const auto oldState = std::exchange(state_, RealPlayState::playing);
  playStateChange.raise(oldState, state_);
}

void EmbeddedRealPlayer::ended() {
  const ULONGLONG playedMs = GetTickCount64() - playOrderedAt_;
  if (playedMs >= kEarlyStopMs) return finish();
  hasEnded_ = true;
  window_.startTimer(EngineWindow::Timer::heldStop, static_cast<UINT>(kEarlyStopMs - playedMs));
}

void EmbeddedRealPlayer::finish() {
  forgetOrders();
  last_->keep(window_, closing_, std::move(attempt_.graph), std::move(attempt_.picture));
  changeState(RealPlayState::stopped);
}

void EmbeddedRealPlayer::failed(std::int32_t reason) {
  log_.error("DirectShow cannot play " + source_ + ": " + hexOf(reason));
  abandon();
  last_->nextIsOff();  // without an attempt, too: it may have failed ahead
  state_ = RealPlayState::stopped;
  errorMessage.raise();
}

void EmbeddedRealPlayer::changeState(RealPlayState state) {
  const auto oldState = std::exchange(state_, state);
  if (oldState != state) playStateChange.raise(oldState, state);
}

void EmbeddedRealPlayer::onResized() {
  if (next_.graph) {
    next_.picture->fill();
    next_.graph->fitPicture();
  }
  if (!attempt_.graph) return;
  attempt_.picture->fill();
  attempt_.graph->fitPicture();
}

void EmbeddedRealPlayer::onMouse(EngineWindow::Gesture gesture, MouseButton button, bool inside) {
  using Gesture = EngineWindow::Gesture;
  if (gesture == Gesture::doubleClick && button == MouseButton::left) {
    pictureMouse.raise(PictureMouse::leftDoubleClick);
  }
  if (gesture != Gesture::up || !inside) return;
  if (button == MouseButton::left) pictureMouse.raise(PictureMouse::leftUp);
  if (button == MouseButton::right) pictureMouse.raise(PictureMouse::rightUp);
}

}  // namespace tessivo
