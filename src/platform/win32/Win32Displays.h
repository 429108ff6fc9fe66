#pragma once

#include "platform/Displays.h"

namespace tessivo {

/// The display monitors of Windows. Stateless: each call asks the system.
class Win32Displays : public Displays {
 public:
  std::vector<MonitorHandle> enumerate() const override;
  std::optional<DisplayInfo> info(MonitorHandle monitor) const override;
  MonitorHandle fromPoint(Point point) const override;
  MonitorHandle fromWindow(WindowHandle window) const override;
  int displayMonitorCount() const override;
  bool sameDisplayFormat() const override;
  int virtualScreenWidth() const override;
  int virtualScreenHeight() const override;
  Rect primaryScreen() const override;
  TwipsPerPixel twipsPerPixel() const override;
};

}  // namespace tessivo
