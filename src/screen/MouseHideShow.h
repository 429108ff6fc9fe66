#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "base/Geometry.h"
#include "base/Signal.h"
#include "platform/Clock.h"
#include "platform/DesktopWindows.h"
#include "platform/Pointer.h"
#include "platform/TimerClass.h"

namespace tessivo {

/// Where the pointer is to be hidden: the six values that `tellMePlayArea` asks for.
struct PlayArea {
  std::int32_t lngLeft = 0;  ///< pixels of the virtual screen, like the next three
  std::int32_t lngTop = 0;
  std::int32_t lngWidth = 0;
  std::int32_t lngHeight = 0;
  bool boolAreaValid = false;  ///< whether the area counts now
  std::string strWinCaption;   ///< title of a parent window that the pointer must be over
};

/// What the mouse hider needs of the system.
struct MouseHideServices {
  const Clock& clock;
  Pointer& pointer;
  const DesktopWindows& windows;
  MTimer& timers;
};

/// Hides the mouse pointer after it has rested for some seconds over the playing picture, and shows
/// it again as soon as it moves. It asks its owner, the controller, where the picture is. Shows the
/// pointer when it ends.
class MouseHideShow {
 public:
  explicit MouseHideShow(const MouseHideServices& services);
  ~MouseHideShow() { showPointer(); }
  MouseHideShow(const MouseHideShow&) = delete;
  MouseHideShow& operator=(const MouseHideShow&) = delete;

  /// Seconds of rest before the pointer is hidden.
  std::int32_t lngBeforeHideMouseSecondNum() const { return lngBeforeHideMouseSecondNum_; }
  void lngBeforeHideMouseSecondNum(std::int32_t seconds) { lngBeforeHideMouseSecondNum_ = seconds; }
  bool boolEnabled() const { return boolEnabled_; }
  /// Each change shows the pointer.
  void boolEnabled(bool enabled);

  /// The handler fills the values in; left alone they mean nowhere.
  Signal<PlayArea&> tellMePlayArea;

 private:
  void tick();
  void hideAt(Point position, std::int32_t now);
  bool isOverWindow(Point position, const std::string& caption) const;
  void hidePointer();
  void showPointer();

  MouseHideServices services_;
  std::int32_t lngBeforeHideMouseSecondNum_ = 6;
  bool boolEnabled_ = false;
  Point lastPoint_;
  std::int32_t lastActivity_ = -1;  ///< ms since midnight; -1: none yet, which is long ago
  bool hidden_ = false;
  TimerClass m_objTC_;
};

}  // namespace tessivo
