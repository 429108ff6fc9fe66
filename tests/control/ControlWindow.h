#pragma once

#include <windows.h>

namespace tessivo::test_control {

/// The windows of the control: its own, and the picture's that fills it. The picture knows what to
/// do with no mouse message; it tells where the mouse is.
class ControlWindow {
 public:
  class Owner {
   public:
    virtual void onMouseMove(int x, int y) = 0;
    virtual void onButtonDown(int x, int y) = 0;
    virtual void onTick() = 0;

   protected:
    ~Owner() = default;
  };

  explicit ControlWindow(Owner& owner) : owner_(owner) {}
  ~ControlWindow() { close(); }
  ControlWindow(const ControlWindow&) = delete;
  ControlWindow& operator=(const ControlWindow&) = delete;

  bool open(HWND parent, const RECT& area);
  void close();
  void move(const RECT& area);
  HWND handle() const { return window_; }

  void makePicture();
  void destroyPicture();
  HWND picture() const { return picture_; }

  /// Ticks every so many milliseconds, until it closes or 0 is given.
  void tickEvery(UINT ms);

 private:
  static LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
  static LRESULT CALLBACK pictureProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
  void fill();

  Owner& owner_;
  HWND window_ = nullptr;
  HWND picture_ = nullptr;
};

}  // namespace tessivo::test_control
