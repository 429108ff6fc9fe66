#include "ssp/SlideShow.h"

#include <utility>
#include <vector>

namespace tessivo::ssp {
namespace {

constexpr int kMsPerSecond = 1000;

}  // namespace

SlideShow::SlideShow(const Files& files, TimerService& timers, SlideStage& stage,
                     const PictureSettings& settings, std::uint32_t seed)
    : files_(files),
      stage_(stage),
      settings_(settings),
      order_(seed),
      stay_(timers, "timStay", settings.staySeconds * kMsPerSecond),
      retry_(timers, "timRetry", kRetryMs) {
  stay_.onTimer.listen([this] {
    stay_.setEnabled(false);
    isDue_ = true;
    goOn();
  });
  retry_.onTimer.listen([this] { beginAgain(); });
}

void SlideShow::start() {
  beginAgain();
}

void SlideShow::beginAgain() {
  retry_.setEnabled(false);
  beginRound();
  findNext();
}

void SlideShow::beginRound() {
  std::vector<std::string> names;
  for (auto& name : files_.filesIn(settings_.folder).value_or(std::vector<std::string>{})) {
    if (isPictureName(name)) names.push_back(std::move(name));
  }
  order_.begin(std::move(names), settings_.order);
  roundHad_ = false;
}

void SlideShow::findNext() {
  next_ = Next::pending;
  auto name = order_.next();
  if (!name && roundHad_) {
    beginRound();
    name = order_.next();
  }
  if (!name) return settle(Next::none);
  if (*name == shown_) return settle(Next::same);
  fetched_ = *name;
  stage_.load(settings_.folder + "\\" + *name);
}

void SlideShow::loaded(bool succeeded) {
  succeeded ? settle(Next::fetched) : findNext();
}

void SlideShow::settle(Next next) {
  next_ = next;
  if (next != Next::none) roundHad_ = true;
  if (isDue_) goOn();
}

void SlideShow::goOn() {
  if (next_ == Next::pending) return;
  if (next_ == Next::none) {
    shown_.clear();
    stage_.showNotice();
    return retry_.setEnabled(true);
  }
  if (next_ == Next::fetched) {
    shown_ = fetched_;
    stage_.show();
  }
  isDue_ = false;
  stay_.setEnabled(true);
  findNext();
}

}  // namespace tessivo::ssp
