#pragma once

#include <string>

#include "platform/Clock.h"
#include "platform/TimerService.h"
#include "platform/win32/Gdi.h"
#include "ssp/ClockFace.h"
#include "ssp/ClockSettings.h"
#include "ssp/WanderPath.h"
#include "ssp/win32/SaverProgram.h"
#include "ssp/win32/SaverWindow.h"
#include "ui/Timer.h"

namespace tessivo::ssp {

/// The clock on a saver's window: drawn anew with each second, a few pixels further.
class ClockSaver final : public Saver {
 public:
  /// Draws the first picture. All that is handed in must outlive it.
  ClockSaver(SaverWindow& window, const ClockSettings& settings, const Clock& clock,
             TimerService& timers);

 private:
  void tick();
  void layOut(const std::string& date);
  /// The block where it is now, in pixels of the window.
  Rect place() const;
  void draw(const LocalTime& now);

  SaverWindow& window_;
  ClockSettings settings_;
  const Clock& clock_;
  std::string date_;
  ClockBlock block_;
  UniqueGdi<HFONT> timeFont_;
  UniqueGdi<HFONT> dateFont_;
  WanderPath path_;
  ui::Timer timer_;
};

}  // namespace tessivo::ssp
