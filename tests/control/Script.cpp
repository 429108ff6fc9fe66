#include "control/Script.h"

#include <cstdlib>
#include <limits>
#include <sstream>
#include <stdexcept>
#include <thread>
#include <utility>

namespace tessivo::test_control {
namespace {

constexpr std::int32_t kContactingMs = 100;
constexpr std::int32_t kEarlyStopMs = 300;
constexpr std::int32_t kErrorMs = 200;
constexpr std::int32_t kPositionEachMs = 200;
constexpr std::int32_t kCrashMs = 300;

void violateAccess() {
  volatile std::uintptr_t nowhere = 16;
  *reinterpret_cast<volatile int*>(nowhere) = 1;
}

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
  if (part_ == "stuck") lengthMs_ = std::numeric_limits<std::int32_t>::max();
}

void Script::play() {
  if (part_ == "silent") return;
  if (part_ == "throw") throw std::runtime_error("the control throws");
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
  hasPlayed_ = hasPlayed_ || state == kPlaying;
  if (part_ == "play") stage_.showPicture(state == kPlaying || state == kPaused);
  stage_.tellPlayState(oldState, state);
}

void Script::tick() {
  sincePlayMs_ += static_cast<std::int32_t>(kTickMs);
  if (state_ == kPlaying) return tickWhilePlaying();
  if (state_ != kContacting) return;
  if ((part_ == "play" || part_ == "stuck") && sincePlayMs_ >= kContactingMs) change(kPlaying);
  if (part_ == "crash" && sincePlayMs_ >= kCrashMs) violateAccess();
  if (part_ == "crash-thread" && sincePlayMs_ >= kCrashMs) std::thread(violateAccess).detach();
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
