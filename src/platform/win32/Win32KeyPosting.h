#pragma once

#include "platform/KeyPosting.h"

namespace tessivo {

class Win32KeyPosting : public KeyPosting {
 public:
  std::uint32_t scanCodeOf(std::uint32_t virtualKey) const override;
  void post(WindowHandle window, std::uint32_t message, std::uint32_t virtualKey,
            std::int32_t keyData) override;
};

}  // namespace tessivo
