#include "screen/engines/media_foundation/EmbeddedMediaPlayer.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "screen/engines/embedded/ErrorCode.h"
#include "screen/engines/embedded/RunsOnWine.h"
#include "screen/engines/embedded/VolumeCurve.h"

namespace tessivo {
namespace {

/// How long the destructor waits for attempts that are still closing.
constexpr DWORD kLongestGoodbyeMs = 1000;

}  // namespace

EmbeddedMediaPlayer::EmbeddedMediaPlayer(HWND parent, Log& log, std::shared_ptr<LastPicture> last)
    : log_(log), window_(*this, log), last_(std::move(last)) {
  window_.open(parent);
}

EmbeddedMediaPlayer::~EmbeddedMediaPlayer() {
  giveUpNext();
  last_->leave(window_);
  abandon();
  closing_.wait(kLongestGoodbyeMs);
}

void EmbeddedMediaPlayer::setUrl(const std::string& url) {
  abandon();
  url_ = url;
  position_ = 0;
  duration_.reset();
  state_ = MediaPlayState::undefined;
}

/// A path that has failed is not tried again and again.
void EmbeddedMediaPlayer::prepare(const std::string& url) {
  if (next_.url == url) return;
  giveUpNext();
  if (!url.empty()) next_ = begin(url, 0, true);
}

void EmbeddedMediaPlayer::giveUpNext() {
  if (next_.presentation) closing_.add(std::move(next_.presentation), std::move(next_.picture));
  next_ = {};
}

/// Every play is answered by the playing notification or an error, also one that takes back a pause
/// which the session has not yet come to.
void EmbeddedMediaPlayer::play() {
  playOrdered_ = true;
  pauseOnStart_ = false;
  if (starting_) return;  // its answer is under way
  if (state_ != MediaPlayState::playing || std::exchange(pauseOrdered_, false)) {
    return goToPosition();
  }
  playOrdered_ = false;
  postEngineEvent(window_.handle(), EngineEvent::notify, serial_, static_cast<int>(state_));
}

void EmbeddedMediaPlayer::pause() {
  if (state_ != MediaPlayState::playing) return;
  pauseOnStart_ = starting_;
  if (starting_) return;
  aim_ = position_ = currentPosition();
  pauseOrdered_ = true;
  attempt_.presentation->pause();
}

void EmbeddedMediaPlayer::stop() {
  position_ = 0;
  if (!attempt_.presentation) return;
  abandon();
  state_ = MediaPlayState::stopped;
  postEngineEvent(window_.handle(), EngineEvent::notify, serial_, static_cast<int>(state_));
}

bool EmbeddedMediaPlayer::moves() const {
  return state_ == MediaPlayState::playing && !starting_ && !pauseOrdered_;
}

double EmbeddedMediaPlayer::currentPosition() const {
  return moves() ? attempt_.presentation->position() : position_;
}

void EmbeddedMediaPlayer::setCurrentPosition(double seconds) {
  position_ = std::isfinite(seconds) ? std::max(seconds, 0.0) : 0;
  if (moves()) goToPosition();
}

void EmbeddedMediaPlayer::setVolume(int volume) {
  volume_ = std::clamp(volume, 0, 100);
  applyVolume();
}

void EmbeddedMediaPlayer::setMute(bool mute) {
  muted_ = mute;
  applyVolume();
}

void EmbeddedMediaPlayer::applyVolume() {
  if (attempt_.presentation) attempt_.presentation->setAmplitude(amplitudeOf(volume_, muted_));
}

/// Starts, resumes or seeks: plays from position_.
void EmbeddedMediaPlayer::goToPosition() {
  const bool moved = std::exchange(aim_, position_) != position_;
  starting_ = true;
  // A session of Wine is stuck for good when it is started twice: take a new one.
  if (!attempt_.presentation || runsOnWine()) return open();
  const bool resumes = state_ == MediaPlayState::paused && !moved;
  attempt_.presentation->start(resumes ? std::nullopt : std::optional(position_));
}

/// One that was there goes on showing its last frame until it has closed, a paused one until the
/// next has its first.
void EmbeddedMediaPlayer::open() {
  if (state_ == MediaPlayState::paused) {
    last_->keep(window_, closing_, std::move(attempt_.presentation), std::move(attempt_.picture));
  } else if (attempt_.presentation) {
    closing_.add(std::move(attempt_.presentation), std::move(attempt_.picture));
  }
  if (const auto failure = takeFailure()) {
    serial_ = ++lastSerial_;
    return postEngineEvent(window_.handle(), EngineEvent::failed, serial_, *failure);
  }
  last_->nextIsComing();
  if (next_.presentation && next_.url == url_ && position_ == 0) {
    attempt_ = std::exchange(next_, {});
    duration_ = attempt_.duration;
    attempt_.picture->comeIn();
    applyVolume();
    attempt_.presentation->go();
  } else {
    attempt_ = begin(url_, position_, false);
  }
  serial_ = attempt_.presentation->serial();
}

/// What is known of the url before it is tried. What failed ahead failed a moment ago.
std::optional<std::int32_t> EmbeddedMediaPlayer::takeFailure() {
  if (url_.empty()) return E_INVALIDARG;
  if (next_.url != url_ || !next_.failure) return std::nullopt;
  return std::exchange(next_, {}).failure;
}

EmbeddedMediaPlayer::Attempt EmbeddedMediaPlayer::begin(const std::string& url, double seconds,
                                                        bool waits) {
  auto picture = std::make_unique<PictureWindow>(window_.handle(), waits, log_);
  const WPARAM serial = ++lastSerial_;
  auto presentation = std::make_shared<MediaPresentation>(
      window_.handle(), serial,
      MediaPresentation::Order{sourcePathOf(url), picture->handle(), seconds,
                               amplitudeOf(volume_, muted_), waits});
  picture->onPaint([weak = std::weak_ptr(presentation)](HDC dc) {
    const auto painter = weak.lock();
    return painter && painter->paint(dc);
  });
  picture->onFrame([this, serial] { pictureArrived(serial); });
  closing_.start(presentation);
  return {.url = url, .presentation = std::move(presentation), .picture = std::move(picture)};
}

void EmbeddedMediaPlayer::pictureArrived(WPARAM serial) {
  if (serial != serial_ || !attempt_.presentation) return;
  attempt_.picture->raise();
  last_->letGo();
}

void EmbeddedMediaPlayer::forgetOrders() {
  serial_ = ++lastSerial_;
  starting_ = pauseOnStart_ = pauseOrdered_ = playOrdered_ = false;
}

void EmbeddedMediaPlayer::abandon() {
  forgetOrders();
  if (!attempt_.presentation) return;
  last_->nextIsOff();
  attempt_.picture->hide();
  closing_.add(std::move(attempt_.presentation), std::move(attempt_.picture));
}

void EmbeddedMediaPlayer::eventOfNext(EngineEvent event, std::int32_t value) {
  if (event == EngineEvent::opened) next_.duration = value / 1000.0;
  if (event != EngineEvent::failed) return;
  closing_.add(std::move(next_.presentation), std::move(next_.picture));
  next_.failure = value;
  preparationFailed.raise();
}

void EmbeddedMediaPlayer::onEngineEvent(EngineEvent event, WPARAM serial, std::int32_t value) {
  if (event == EngineEvent::closed) return closing_.closed(serial);
  if (next_.presentation && serial == next_.presentation->serial()) {
    return eventOfNext(event, value);
  }
  if (serial != serial_) return;
  switch (event) {
    case EngineEvent::opened:
      duration_ = value / 1000.0;
      return;
    case EngineEvent::playing:
      return started();
    case EngineEvent::paused:
      return paused();
    case EngineEvent::ended:
      return ended();
    case EngineEvent::failed:
      return failed(value);
    case EngineEvent::notify:
      return playStateChange.raise(static_cast<MediaPlayState>(value));
    default:
      return;
  }
}

void EmbeddedMediaPlayer::started() {
  starting_ = false;
  last_->nextPlays();
  if (position_ != aim_) goToPosition();  // it was sought while it started
  if (!starting_ && std::exchange(pauseOnStart_, false)) {
    pauseOrdered_ = true;
    attempt_.presentation->pause();
  }
  if (!std::exchange(playOrdered_, false)) return changeState(MediaPlayState::playing);
  state_ = MediaPlayState::playing;
  playStateChange.raise(state_);
}

void EmbeddedMediaPlayer::paused() {
  pauseOrdered_ = false;
  if (runsOnWine()) {
    // It cannot be started again, and goes on working for the sound: its last picture is enough.
    attempt_.presentation->close();
    serial_ = ++lastSerial_;
  }
  changeState(MediaPlayState::paused);
}

void EmbeddedMediaPlayer::ended() {
  forgetOrders();
  last_->keep(window_, closing_, std::move(attempt_.presentation), std::move(attempt_.picture));
  position_ = 0;
  state_ = MediaPlayState::stopped;
  playStateChange.raise(MediaPlayState::mediaEnded);
}

void EmbeddedMediaPlayer::failed(std::int32_t reason) {
  log_.error("Media Foundation cannot play " + url_ + ": " + hexOf(reason));
  abandon();
  last_->nextIsOff();  // without an attempt, too: it may have failed ahead
  position_ = 0;
  state_ = MediaPlayState::stopped;
  mediaError.raise();
}

void EmbeddedMediaPlayer::changeState(MediaPlayState state) {
  if (std::exchange(state_, state) != state) playStateChange.raise(state);
}

void EmbeddedMediaPlayer::onResized() {
  if (next_.presentation) {
    next_.picture->fill();
    next_.presentation->fitPicture();
  }
  if (!attempt_.presentation) return;
  attempt_.picture->fill();
  attempt_.presentation->fitPicture();
}

void EmbeddedMediaPlayer::onMouse(EngineWindow::Gesture gesture, MouseButton button, bool inside) {
  switch (gesture) {
    case EngineWindow::Gesture::down:
      pressed_ = button;
      return mouseDown.raise(button);
    case EngineWindow::Gesture::doubleClick:
      pressed_.reset();
      return doubleClick.raise();
    case EngineWindow::Gesture::up:
      return release(button, inside);
  }
}

void EmbeddedMediaPlayer::release(MouseButton button, bool inside) {
  const bool clicked = pressed_ == button && inside;
  pressed_.reset();
  if (!clicked) return mouseUp.raise(button);
  // A listener of the first event may destroy this object, and the second is not raised then.
  const HWND window = window_.handle();
  mouseUp.raise(button);
  if (IsWindow(window)) click.raise(button);
}

}  // namespace tessivo
