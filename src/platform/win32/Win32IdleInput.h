#pragma once

#include "platform/IdleInput.h"

namespace tessivo {

/// `GetLastInputInfo` and `GetTickCount`.
class Win32IdleInput : public IdleInput {
 public:
  std::optional<std::uint32_t> lastInputTick() const override;
  std::uint32_t tickCount() const override;
};

}  // namespace tessivo
