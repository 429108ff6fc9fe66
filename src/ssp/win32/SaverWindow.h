#pragma once

#include <windows.h>

#include <functional>
#include <string>

#include "base/Geometry.h"
#include "platform/Log.h"
#include "platform/win32/Gdi.h"
#include "ssp/Size.h"

namespace tessivo::ssp {

/// The window of a screen saver: black, without a frame, above everything, not in the task bar,
/// never active, no pointer over it. It shows a picture of its own size that the program draws
/// into. It keeps its place when monitors come and go: none of it may stay on the operator's.
class SaverWindow final {
 public:
  /// What the window tells from the message loop, perhaps more than once.
  struct Events {
    std::function<void()> onInput;  ///< a key, a button or the wheel
    std::function<void()> onEnd;    ///< a close, or the end of the session
  };

  /// Covers the area (pixels of the virtual screen), hidden at first.
  SaverWindow(const Rect& area, const std::string& title, Events events, Log& log);
  ~SaverWindow();
  SaverWindow(const SaverWindow&) = delete;
  SaverWindow& operator=(const SaverWindow&) = delete;

  /// False when the system had no window or no picture that large; the log has the reason.
  bool isOpen() const { return window_ != nullptr && picture_ != nullptr; }
  Size size() const { return {area_.width, area_.height}; }
  HWND window() const { return window_; }

  /// The picture; black at first.
  HDC canvas() const { return canvas_; }
  /// That part of the picture has changed and is carried to the screen.
  void refresh(const Rect& changed);
  void blacken(const Rect& part);
  /// Shows the window with the picture as it is.
  void show();

  /// A message that any thread may post to the window; `onPosted` is called for it from the loop.
  static constexpr UINT kPosted = WM_APP + 1;
  void setPosted(std::function<void()> onPosted) { onPosted_ = std::move(onPosted); }

 private:
  static LRESULT CALLBACK windowProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
  LRESULT handle(UINT message, WPARAM wParam, LPARAM lParam);
  void create(const std::string& title);
  void makePicture();
  void putBack();
  void paint();

  Events events_;
  std::function<void()> onPosted_;
  Log& log_;
  Rect area_;
  HWND window_ = nullptr;
  HDC canvas_ = nullptr;
  UniqueGdi<HBITMAP> picture_;
  HGDIOBJ picturesPlace_ = nullptr;  ///< what was selected in the canvas before
};

}  // namespace tessivo::ssp
