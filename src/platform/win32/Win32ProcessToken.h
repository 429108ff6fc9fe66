#pragma once

#include <windows.h>

#include "platform/ProcessToken.h"

namespace tessivo {

class Win32ProcessToken : public ProcessToken {
 public:
  std::uint32_t open(std::uint32_t access) override;
  std::uint32_t lookUp(const std::string& privilege, std::uint64_t& identifier) const override;
  std::uint32_t adjust(bool disableAll, const TokenPrivilege& privilege) override;

 private:
  HANDLE token_ = nullptr;
};

}  // namespace tessivo
