#pragma once

#include <cstdint>
#include <string>

#include "base/Geometry.h"
#include "base/Signal.h"

namespace tessivo {

/// States of the RealPlayer slot's play-state notification; others may occur.
enum class RealPlayState { stopped = 0, contacting = 1, buffering = 2, playing = 3, paused = 4 };

/// What the mouse did on the picture of the RealPlayer slot.
enum class PictureMouse { leftUp, leftDoubleClick, rightUp };

/// The RealPlayer slot of the playback window (`realPlayer`): exactly the members, by their
/// dispatch identifiers, and the notifications that the window uses. The installed control and the
/// embedded engine implement it.
///
/// Every member is called on the user-interface thread and never throws; a member that the
/// implementation cannot serve does nothing. Notifications arrive from the message loop, never
/// from inside a call of a member. The slot owns a child window of the playback window.
class RealPlayerSlot {
 public:
  /// The settings made whenever the slot is laid out.
  enum class Setting {
    s277 = 277,
    s353 = 353,
    s295 = 295,
    s338 = 338,
    s326 = 326,
    s307 = 307,
    s225 = 225
  };

  virtual ~RealPlayerSlot() = default;

  virtual bool visible() const = 0;
  virtual void setVisible(bool visible) = 0;
  /// Placement in pixels inside the playback window's client area.
  virtual void move(const Rect& pixels) = 0;

  virtual void setSource(const std::string& source) = 0;  ///< 102; does not start it
  /// That source will be set and played next: whoever can opens it ahead. Empty: none will.
  virtual void prepare(const std::string&) {}
  virtual void play() = 0;                                ///< 257
  virtual void pause() = 0;                               ///< 258
  virtual void stop() = 0;                                ///< 202
  virtual bool canStop() const = 0;                       ///< 260: it is active
  virtual std::int32_t lengthMs() const = 0;              ///< 261
  virtual void setPositionMs(std::int32_t position) = 0;  ///< 269
  virtual void setVolume(std::int16_t volume) = 0;        ///< 227, 0..100
  virtual void setMute(bool mute) = 0;                    ///< 229
  virtual void setSetting(Setting setting, bool value) = 0;

  Signal<RealPlayState, RealPlayState> playStateChange;  ///< old state, new state
  Signal<> errorMessage;
  /// What `prepare` was handed cannot be opened.
  Signal<> preparationFailed;
  Signal<std::int32_t, std::int32_t> positionChange;  ///< position, length in milliseconds
  /// Only an implementation that sees the mouse itself raises it.
  Signal<PictureMouse> pictureMouse;
  /// The mouse is over the picture there, in pixels relative to the slot's window: raised by an
  /// implementation whose picture window is found by looking under that point.
  Signal<Point> mousePoint;
};

}  // namespace tessivo
