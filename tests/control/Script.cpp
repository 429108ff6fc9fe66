#include "control/Script.h"

#include <cstdlib>
#include <sstream>
#include <utility>

namespace tessivo::test_control {
namespace {

constexpr std::int32_t kContactingMs = 100;
constexpr std::int32_t kEarlyStopMs = 300;
constexpr std::int32_t kErrorMs = 200;
constexpr std::int32_t kPositionEachMs = 200;

}  // namespace

std::unique_ptr<Script> Script::fromEnvironment(Stage& stage) {
  const char* text = std::getenv("TESSIVO_TEST_CONTROL_SCRIPT");
  if (!text || *text == '\0') return nullptr;
  return std::unique_ptr<Script>(new Script(stage, text));
}

Script::Script(Stage& stage, const std::string& text) : stage_(stage) {
  std::istringstream words(text);
  words >> part_;
  if (std::int32_t length = 0; words >> length) lengthMs_ = length;
}

void Script::play() {
  if (part_ == "silent") return;
  if (state_ == kPaused) return change(kPlaying);
  if (state_ != kStopped) return;
  sincePlayMs_ = 0;
  positionMs_ = 0;
  change(kContacting);
}

void Script::pause() {
  if (state_ == kPlaying) change(kPaused);
}

void Script::stop() {
  if (isActive()) change(kStopped);
}

void Script::change(std::int32_t state) {
  const std::int32_t oldState = std::exchange(state_, state);
  if (part_ == "play") stage_.showPicture(state == kPlaying || state == kPaused);
  stage_.tellPlayState(oldState, state);
}

void Script::tick() {
  sincePlayMs_ += static_cast<std::int32_t>(kTickMs);
  if (state_ == kPlaying) return tickWhilePlaying();
  if (state_ != kContacting) return;
  if (part_ == "play" && sincePlayMs_ >= kContactingMs) change(kPlaying);
  if (part_ == "early-stop" && sincePlayMs_ >= kEarlyStopMs) change(kStopped);
  if (part_ == "error" && sincePlayMs_ >= kErrorMs) {
    state_ = kStopped;
    stage_.tellError();
  }
}

void Script::tickWhilePlaying() {
  positionMs_ += static_cast<std::int32_t>(kTickMs);
  if (positionMs_ >= lengthMs_) return change(kStopped);
  if (sincePlayMs_ % kPositionEachMs == 0) stage_.tellPosition(positionMs_, lengthMs_);
}

}  // namespace tessivo::test_control
