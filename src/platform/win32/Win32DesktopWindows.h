#pragma once

#include "platform/DesktopWindows.h"

namespace tessivo {

/// The windows of Windows.
class Win32DesktopWindows : public DesktopWindows {
 public:
  WindowHandle under(Point screen) const override;
  bool isUnder(WindowHandle window, Point screen) const override;
  WindowHandle parentOf(WindowHandle window) const override;
  std::string classOf(WindowHandle window) const override;
  std::string titleOf(WindowHandle window) const override;
  bool isOurs(WindowHandle window) const override;
  Point toScreen(WindowHandle window, Point client) const override;
  void postClose(WindowHandle window) const override;
};

}  // namespace tessivo
