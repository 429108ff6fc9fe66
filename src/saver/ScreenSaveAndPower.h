#pragma once

#include <cstdint>

#include "platform/SystemPower.h"

namespace tessivo {

/// Switches the system's own screen saver and its power saving off while the program runs, so that
/// a show that nobody touches is never blanked, and on when it ends. What was before is not
/// remembered: the end always switches both on. What the system answers to a change is ignored.
class ScreenSaveAndPower {
 public:
  explicit ScreenSaveAndPower(SystemPower& system) : system_(system) {}

  void CloseScreenSave();
  void OpenScreenSave();
  /// Whether the system's screen saver is on.
  bool boolCurrentScreenSaveState();
  /// The idle time after which the system's screen saver begins.
  void SetScreenSaveTimeout(std::uint32_t seconds);
  /// The system may sleep and switch its displays off again.
  void EnablePowerSaver();
  /// The system stays awake and its displays on, until `EnablePowerSaver` or the end of the
  /// process.
  void DisEnablePowerSaver();

 private:
  SystemPower& system_;
};

}  // namespace tessivo
