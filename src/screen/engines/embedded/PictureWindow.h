#pragma once

#include <windows.h>

#include <functional>
#include <utility>

#include "platform/Log.h"

namespace tessivo {

/// The window inside an engine's window that one attempt draws its video into. Each attempt has
/// its own, so that a renderer which is still closing never touches the picture of the next one.
/// It is disabled: Windows hands the mouse over it to the engine's window. User-interface thread
/// only.
class PictureWindow {
 public:
  /// Visible at once (a renderer that begins on a hidden window may never show anything), but below
  /// all earlier ones, whose pictures stay to be seen until this one is raised. `aside`: it lies
  /// beside the engine's visible area until it is told to come in.
  /// `log`, which outlives the window, has what the calls below throw.
  PictureWindow(HWND engineWindow, bool aside, Log& log);
  ~PictureWindow();
  PictureWindow(const PictureWindow&) = delete;
  PictureWindow& operator=(const PictureWindow&) = delete;

  HWND handle() const { return window_; }
  /// `paint` draws the whole window with the present frame; false when there is none: black then.
  void onPaint(std::function<bool(HDC)> paint) { paint_ = std::move(paint); }
  /// `arrived` is called from the message loop after noteFrame.
  void onFrame(std::function<void()> arrived) { arrived_ = std::move(arrived); }
  /// The renderer has its first frame for that window. Any thread; a window that has gone is
  /// ignored.
  static void noteFrame(HWND picture);

  void comeIn();
  /// Above all earlier ones.
  void raise();
  void hide();
  /// Fills the engine's window again after that has changed its size.
  void fill();

 private:
  void paint();

  static LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

  HWND window_ = nullptr;
  bool aside_;
  Log& log_;
  std::function<bool(HDC)> paint_;
  std::function<void()> arrived_;
};

}  // namespace tessivo
