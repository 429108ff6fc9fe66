#include "screen/engines/embedded/LastPicture.h"

#include <utility>

namespace tessivo {
namespace {

/// From the end of an item to the order to play the next.
constexpr UINT kNextIsOrderedMs = 400;
/// From the report that an item plays to its first frame.
constexpr UINT kFirstFrameMs = 250;

}  // namespace

void LastPicture::keep(std::shared_ptr<AttemptThread> attempt,
                       std::unique_ptr<PictureWindow> picture) {
  letGo();
  attempt_ = std::move(attempt);
  picture_ = std::move(picture);
  stay(kNextIsOrderedMs);
}

void LastPicture::nextIsComing() {
  window_.stopTimer(EngineWindow::Timer::lastPicture);
}

void LastPicture::nextPlays() {
  stay(kFirstFrameMs);
}

void LastPicture::nextFailed() {
  stay(kNextIsOrderedMs);
}

void LastPicture::stay(UINT ms) {
  if (attempt_) window_.startTimer(EngineWindow::Timer::lastPicture, ms);
}

void LastPicture::letGo() {
  window_.stopTimer(EngineWindow::Timer::lastPicture);
  if (!attempt_) return;
  picture_->hide();
  closing_.add(std::move(attempt_), std::move(picture_));
}

}  // namespace tessivo
