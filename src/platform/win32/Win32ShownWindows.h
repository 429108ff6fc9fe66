#pragma once

#include <windows.h>

#include "platform/Log.h"
#include "platform/ShownWindows.h"

namespace tessivo {

/// A window-procedure hook (`WH_CALLWNDPROC`) on the thread that makes it. One a thread.
class Win32ShownWindows : public ShownWindows {
 public:
  explicit Win32ShownWindows(Log& log) : log_(log) {}
  ~Win32ShownWindows() override { stop(); }
  Win32ShownWindows(const Win32ShownWindows&) = delete;
  Win32ShownWindows& operator=(const Win32ShownWindows&) = delete;

  void watch(std::function<void(const ShownWindow&)> onShown) override;
  void stop() override;

 private:
  static LRESULT CALLBACK procedure(int code, WPARAM wParam, LPARAM lParam);

  Log& log_;
  HHOOK hook_ = nullptr;
  std::function<void(const ShownWindow&)> onShown_;
};

}  // namespace tessivo
