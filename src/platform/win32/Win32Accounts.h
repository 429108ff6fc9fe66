#pragma once

#include "platform/Accounts.h"

namespace tessivo {

class Win32Accounts : public Accounts {
 public:
  std::string currentUserName() const override;
  std::uint32_t localGroupsOf(const std::string& server, const std::string& user,
                              std::vector<std::string>& groups) const override;
  std::uint32_t globalGroupsOf(const std::string& server, const std::string& user,
                               std::vector<std::string>& groups) const override;
  std::optional<bool> processIsElevated() const override;
};

}  // namespace tessivo
