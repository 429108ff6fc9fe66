#include "ssp/SlideShow.h"

#include <utility>
#include <vector>

namespace tessivo::ssp {
namespace {

constexpr int kMsPerSecond = 1000;

}  // namespace

SlideShow::SlideShow(TimerService& timers, SlideStage& stage, const PictureSettings& settings,
                     std::uint32_t seed)
    : stage_(stage),
      settings_(settings),
      order_(seed),
      stay_(timers, "timStay", settings.staySeconds * kMsPerSecond),
      retry_(timers, "timRetry", kRetryMs),
      pause_(timers, "timPause", kPauseMs) {
  stay_.onTimer.listen([this] {
    stay_.setEnabled(false);
    isDue_ = true;
    goOn();
  });
  retry_.onTimer.listen([this] {
    retry_.setEnabled(false);
    askForList();
  });
  pause_.onTimer.listen([this] {
    pause_.setEnabled(false);
    load();
  });
}

void SlideShow::start() {
  askForList();
}

void SlideShow::askForList() {
  next_ = Next::pending;
  awaited_ = Awaited::list;
  stage_.list(settings_.folder);
}

void SlideShow::listed(std::optional<std::vector<std::string>> names) {
  if (awaited_ != Awaited::list) return;
  awaited_ = Awaited::nothing;
  auto pictures = std::move(names).value_or(std::vector<std::string>{});
  std::erase_if(pictures, [](const std::string& name) { return !isPictureName(name); });
  auto untried = pictures;
  std::erase_if(untried, [this](const std::string& name) { return failed_.contains(name); });
  if (untried.empty() && !pictures.empty()) {
    // All have failed, perhaps for a time only. Once more, but slowly.
    failed_.clear();
    failures_ = kTriesWithoutPause;
    untried = std::move(pictures);
  }
  order_.begin(std::move(untried), settings_.order);
  roundHad_ = false;
  findNext();
}

void SlideShow::findNext() {
  next_ = Next::pending;
  const auto name = order_.next();
  if (!name) return roundHad_ ? askForList() : settle(Next::none);
  if (*name == shown_) return settle(Next::same);
  fetch(*name);
}

void SlideShow::fetch(const std::string& name) {
  fetched_ = name;
  if (failures_ < kTriesWithoutPause) return load();
  if (shown_.empty()) stage_.showNotice();
  pause_.setEnabled(true);
}

void SlideShow::load() {
  awaited_ = Awaited::picture;
  stage_.load(settings_.folder + "\\" + fetched_);
}

void SlideShow::loaded(bool succeeded) {
  if (awaited_ != Awaited::picture) return;
  awaited_ = Awaited::nothing;
  if (!succeeded) {
    noteFailure();
    return findNext();
  }
  failures_ = 0;
  settle(Next::fetched);
}

void SlideShow::noteFailure() {
  if (failures_ < kTriesWithoutPause) ++failures_;
  if (failed_.size() < kMostFailedNames) failed_.insert(fetched_);
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
