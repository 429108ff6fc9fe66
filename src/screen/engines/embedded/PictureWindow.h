#pragma once

#include <windows.h>

#include <functional>

namespace tessivo {

/// The window inside an engine's window that one attempt draws its video into. Each attempt has
/// its own, so that a renderer which is still closing never touches the picture of the next one.
/// It is disabled: Windows hands the mouse over it to the engine's window. User-interface thread
/// only.
class PictureWindow {
 public:
  /// Visible at once (a renderer that begins on a hidden window may never show anything) and on
  /// top of an earlier one, which goes on showing its last frame below. `onPaint` draws the
  /// present frame, if there is one; the window's black is below it.
  PictureWindow(HWND engineWindow, std::function<void(HDC)> onPaint);
  ~PictureWindow();
  PictureWindow(const PictureWindow&) = delete;
  PictureWindow& operator=(const PictureWindow&) = delete;

  HWND handle() const { return window_; }
  void hide();
  /// Fills the engine's window again after that has changed its size.
  void fill();

 private:
  static LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

  HWND window_ = nullptr;
  std::function<void(HDC)> onPaint_;
};

}  // namespace tessivo
