#include "saver/ScreenSaveAndPower.h"

namespace tessivo {
namespace {

// SystemParametersInfo's actions.
constexpr std::uint32_t kSetScreenSaveTimeout = 15;
constexpr std::uint32_t kGetScreenSaveActive = 16;
constexpr std::uint32_t kSetScreenSaveActive = 17;
// What becomes of the user's profile: written, and every window told.
constexpr std::uint32_t kUpdateAndSend = 3;

constexpr std::uint32_t kContinuous = 0x80000000;
constexpr std::uint32_t kSystemRequired = 1;
constexpr std::uint32_t kDisplayRequired = 2;

}  // namespace

void ScreenSaveAndPower::CloseScreenSave() {
  std::uint32_t word = 0;
  system_.systemParameters(kSetScreenSaveActive, 0, word, kUpdateAndSend);
}

void ScreenSaveAndPower::OpenScreenSave() {
  std::uint32_t word = 0;
  system_.systemParameters(kSetScreenSaveActive, 1, word, kUpdateAndSend);
}

bool ScreenSaveAndPower::boolCurrentScreenSaveState() {
  std::uint32_t word = 0;
  system_.systemParameters(kGetScreenSaveActive, 0, word, 0);
  return word != 0;
}

void ScreenSaveAndPower::SetScreenSaveTimeout(std::uint32_t seconds) {
  std::uint32_t word = 0;
  system_.systemParameters(kSetScreenSaveTimeout, seconds, word, kUpdateAndSend);
}

void ScreenSaveAndPower::EnablePowerSaver() {
  system_.setExecutionState(kContinuous);
}

void ScreenSaveAndPower::DisEnablePowerSaver() {
  system_.setExecutionState(kContinuous | kSystemRequired | kDisplayRequired);
}

}  // namespace tessivo
