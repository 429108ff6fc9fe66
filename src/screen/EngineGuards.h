#pragma once

#include <deque>
#include <vector>

#include "base/Signal.h"
#include "platform/DesktopWindows.h"
#include "platform/Log.h"
#include "platform/ShownWindows.h"
#include "platform/TimerService.h"
#include "screen/CaughtWindows.h"
#include "screen/MediaPlayerSlot.h"
#include "screen/RealPlayerSlot.h"
#include "ui/Timer.h"

namespace tessivo {

/// Against what the engines do on their own: windows that pop up, a full screen of their own, and a
/// picture window that keeps the mouse to itself. Part of the playback window, which lays both
/// engines out at the origin of its client area.
class EngineGuards {
 public:
  EngineGuards(TimerService& timers, const DesktopWindows& windows, CaughtWindows& caughtWindows,
               Log& log);

  /// From before the engines are made until they have gone: windows that they pop up are closed.
  void open(WindowHandle form);
  void close();
  /// The engines, which outlive the guards or are taken away by `detach`.
  void attach(MediaPlayerSlot& wmpPlayer, RealPlayerSlot& realPlayer);
  void detach();

  /// Closes the window soon when an engine has popped it up: one with a caption that the program
  /// has not made and that belongs to nobody or to the playback window. Callable inside the
  /// window's message handling.
  void noteShown(const ShownWindow& shown);

  ui::Timer timRealPlayerNewWinCheck;         ///< looks for RealPlayer's picture window
  ui::Timer timDelayCloseMediaPlayerPopuWin;  ///< closes the window whose handle is its tag
  ui::Timer timDisableWMPFullScreen;          ///< ends Windows Media Player's own full screen

 private:
  void probe(Point offset);
  void closeLater(WindowHandle window);
  void closeTaggedWindow();

  const DesktopWindows& windows_;
  CaughtWindows& caughtWindows_;
  Log& log_;
  WindowHandle form_ = 0;
  bool open_ = false;
  MediaPlayerSlot* wmpPlayer_ = nullptr;
  std::vector<Connection> connections_;
  std::deque<WindowHandle> waiting_;  ///< to be closed after the one in the tag
};

}  // namespace tessivo
