#pragma once

#include <windows.h>

#include "platform/HiddenWinProc.h"
#include "platform/Log.h"

namespace tessivo {

class Win32HiddenWinProc final : public HiddenWinProc {
 public:
  explicit Win32HiddenWinProc(Log& log);
  ~Win32HiddenWinProc() override { removeHiddenWinProc(); }
  Win32HiddenWinProc(const Win32HiddenWinProc&) = delete;
  Win32HiddenWinProc& operator=(const Win32HiddenWinProc&) = delete;

  void installHiddenWinProc(WindowHandle window, Listener& listener) override;
  void removeHiddenWinProc() override;

 private:
  static LRESULT CALLBACK hiddenWinProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
  void hear(UINT message, LPARAM lParam);

  Log& log_;
  UINT taskbarCreated_;
  HWND window_ = nullptr;
  Listener* listener_ = nullptr;
};

}  // namespace tessivo
