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
/// never active, no pointer over it. It shows a picture of its own size that the program draws into
/// and has one opinion: a key, a button, a close or the end of the session end the program.
class SaverWindow final {
 public:
  /// Covers the area (pixels of the virtual screen), hidden at first. `onEnd` is called from the
  /// message loop, perhaps more than once.
  SaverWindow(const Rect& area, const std::string& title, std::function<void()> onEnd, Log& log);
  ~SaverWindow();
  SaverWindow(const SaverWindow&) = delete;
  SaverWindow& operator=(const SaverWindow&) = delete;

  /// False when the system had no window or no picture that large; the log has the reason.
  bool isOpen() const { return window_ != nullptr && picture_ != nullptr; }
  Size size() const { return size_; }
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
  void create(const Rect& area, const std::string& title);
  void makePicture();
  void paint();

  std::function<void()> onEnd_;
  std::function<void()> onPosted_;
  Log& log_;
  Size size_;
  HWND window_ = nullptr;
  HDC canvas_ = nullptr;
  UniqueGdi<HBITMAP> picture_;
  HGDIOBJ picturesPlace_ = nullptr;  ///< what was selected in the canvas before
};

}  // namespace tessivo::ssp
