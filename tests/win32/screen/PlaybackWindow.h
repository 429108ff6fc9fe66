#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "fakes/FakeLog.h"
#include "platform/win32/Win32DesktopWindows.h"
#include "platform/win32/Win32Displays.h"
#include "platform/win32/Win32Files.h"
#include "platform/win32/Win32TimerService.h"
#include "platform/win32/Win32WindowProcedures.h"
#include "screen/CaughtWindows.h"
#include "screen/engines/ChosenEngineFactory.h"
#include "screen/frmScreen.h"
#include "ui/win32/Win32Toolkit.h"

namespace tessivo {

/// The playback window with real windows, timers and engines, as the program composes it.
struct PlaybackWindow {
  explicit PlaybackWindow(const EngineChoices& choices) : engines(choices, log) {
    screen.setNormal({500, 60, 400, 400});
    screen.setMaximum({0, 0, 1280, 1024});
    screen.load();
    screen.setWindowPos(screen.normal());
    screen.setTopmost(true);
    screen.show();
    screen.intVolume(30);
    screen.PlayErr.listen([this](const std::string&) { ++failures; });
    screen.PlayOver.listen([this] { ++ends; });
  }

  HWND handle() const { return reinterpret_cast<HWND>(screen.nativeHandle()); }

  /// The timers that are on, by their names.
  std::vector<std::string> runningTimers() {
    Playback& playback = screen.playback();
    EngineGuards& guards = screen.guards();
    std::vector<std::string> names;
    for (const ui::Timer* timer :
         {&playback.timMediaPlayDelay, &playback.timRealPlayDelay, &playback.timMediaErrDelay,
          &playback.timRealErrDelay, &playback.timErrDelay, &playback.timRealPopuWinErrCheck,
          &playback.timNoAnswer, &playback.timMediaPlayJinDu, &guards.timRealPlayerNewWinCheck,
          &guards.timDelayCloseMediaPlayerPopuWin, &guards.timDisableWMPFullScreen,
          &screen.timDBClickEvent, &screen.timDelayRaiseClickEvent, &screen.timSetTimShowBackZOrder,
          &screen.timFrmPosiReport}) {
      if (timer->enabled()) names.push_back(timer->name());
    }
    return names;
  }

  FakeLog log;
  Win32Displays displays;
  Win32Files files;
  Win32DesktopWindows windows;
  Win32TimerService timers{log};
  ui::Win32Toolkit toolkit{displays.twipsPerPixel(), log};
  Win32WindowProcedures procedures{log};
  CaughtWindows caughtWindows{windows, procedures};
  ChosenEngineFactory engines;
  frmScreen screen{{toolkit, timers, displays, files, log, engines, windows, caughtWindows}};
  int failures = 0;
  int ends = 0;
};

}  // namespace tessivo
