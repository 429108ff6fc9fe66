#pragma once

#include <optional>
#include <string>

#include "base/Geometry.h"
#include "base/Signal.h"
#include "platform/MouseButton.h"

namespace tessivo {

/// States of the Media Player slot that the playback window looks at; others may occur.
enum class MediaPlayState { undefined = 0, stopped = 1, paused = 2, playing = 3, mediaEnded = 8 };

/// The Media Player slot of the playback window (`wmpPlayer`): exactly the members and the
/// notifications that the window uses. The installed control and the embedded engine implement it.
///
/// Every member is called on the user-interface thread, never throws and never waits, for a file or
/// for a decoder: the panel must stay alive. A member that the implementation cannot serve does
/// nothing. Notifications arrive from the message loop, never from inside a call of a member, and
/// listeners may destroy the slot in any of them. The slot owns a child window of the playback
/// window.
class MediaPlayerSlot {
 public:
  virtual ~MediaPlayerSlot() = default;

  virtual bool visible() const = 0;
  virtual void setVisible(bool visible) = 0;
  /// Placement in pixels inside the playback window's client area.
  virtual void move(const Rect& pixels) = 0;

  /// The file or URL as it was set. Setting does not start it; setting also the present value
  /// gives up an attempt that is under way.
  virtual std::string url() const = 0;
  virtual void setUrl(const std::string& url) = 0;

  /// That file or URL will be set and played next: whoever can opens it ahead. Empty: nothing will.
  virtual void prepare(const std::string&) {}

  /// `controls.…` Every play is answered, by `playStateChange(playing)` or by `mediaError`, also
  /// one while it plays already; not when stop, setUrl or the next play comes before the answer.
  virtual void play() = 0;
  virtual void pause() = 0;
  virtual void stop() = 0;
  /// Seconds. A position set while nothing plays is where the next play starts.
  virtual double currentPosition() const = 0;
  virtual void setCurrentPosition(double seconds) = 0;

  virtual MediaPlayState playState() const = 0;
  /// `currentMedia.duration` in seconds; nothing while there is no current media.
  virtual std::optional<double> currentMediaDuration() const = 0;

  /// `settings.…`
  virtual void setVolume(int volume) = 0;  ///< 0..100
  virtual void setMute(bool mute) = 0;
  virtual void setEnableErrorDialogs(bool enable) = 0;
  virtual void setInvokeUrls(bool invoke) = 0;

  virtual void setEnableContextMenu(bool enable) = 0;
  virtual bool fullScreen() const = 0;
  virtual void setFullScreen(bool fullScreen) = 0;
  virtual void clearErrorQueue() = 0;

  Signal<MediaPlayState> playStateChange;
  Signal<> mediaError;
  /// What `prepare` was handed cannot be opened.
  Signal<> preparationFailed;
  Signal<MouseButton> click;  ///< pressed and released
  Signal<> doubleClick;
  Signal<MouseButton> mouseDown;
  Signal<MouseButton> mouseUp;
};

}  // namespace tessivo
