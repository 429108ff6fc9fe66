#pragma once

#include "platform/Messaging.h"

namespace tessivo {

class Win32Messaging : public Messaging {
 public:
  WindowHandle findTopLevel(const std::string& title) const override;
  bool sendCopyData(WindowHandle target, std::uintptr_t wParam, std::uintptr_t number,
                    std::span<const std::uint8_t> bytes) override;
  void bringToForeground(WindowHandle window) override;
};

}  // namespace tessivo
