#pragma once

#include "platform/SystemPower.h"

namespace tessivo {

class Win32SystemPower : public SystemPower {
 public:
  bool systemParameters(std::uint32_t action, std::uint32_t parameter, std::uint32_t& word,
                        std::uint32_t profile) override;
  std::uint32_t setExecutionState(std::uint32_t bits) override;
};

}  // namespace tessivo
