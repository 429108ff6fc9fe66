#include "screen/engines/embedded/LastPicture.h"

#include <utility>

namespace tessivo {
namespace {

/// From the end of an item to the order to play the next.
constexpr UINT kNextIsOrderedMs = 400;
/// From the report that an item plays to its first frame.
constexpr UINT kFirstFrameMs = 250;

}  // namespace

void LastPicture::keep(EngineWindow& window, ClosingAttempts& closing,
                       std::shared_ptr<AttemptThread> attempt,
                       std::unique_ptr<PictureWindow> picture) {
  letGo();
  if (!attempt) return;
  window_ = &window;
  closing_ = &closing;
  attempt_ = std::move(attempt);
  picture_ = std::move(picture);
  stay(kNextIsOrderedMs);
}

void LastPicture::hide(EngineWindow& window) {
  window_ == &window ? window.hideLater() : window.setVisible(false);
}

void LastPicture::nextIsComing() {
  if (window_) window_->stopTimer(EngineWindow::Timer::lastPicture);
}

void LastPicture::nextPlays() {
  stay(kFirstFrameMs);
}

void LastPicture::nextIsOff() {
  stay(kNextIsOrderedMs);
}

void LastPicture::stay(UINT ms) {
  if (window_) window_->startTimer(EngineWindow::Timer::lastPicture, ms);
}

void LastPicture::letGo() {
  EngineWindow* const window = std::exchange(window_, nullptr);
  if (!window) return;
  window->stopTimer(EngineWindow::Timer::lastPicture);
  window->hideNow();
  picture_->hide();
  closing_->add(std::move(attempt_), std::move(picture_));
}

void LastPicture::leave(EngineWindow& window) {
  if (window_ == &window) letGo();
}

}  // namespace tessivo
