#pragma once

#include "platform/Processes.h"

namespace tessivo {

class Win32Processes : public Processes {
 public:
  std::uint32_t start(const std::string& program, const std::string& arguments,
                      WindowStyle style) override;
  std::optional<std::uint32_t> enumerate(std::span<std::uint32_t> identifiers) const override;
  std::optional<ProcessModule> firstModule(std::uint32_t identifier) const override;
};

}  // namespace tessivo
