#pragma once

#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "platform/Accounts.h"
#include "platform/ProcessToken.h"

namespace tessivo {

struct FakeAccounts : Accounts {
  std::string currentUserName() const override { return user; }
  std::uint32_t localGroupsOf(const std::string& server, const std::string& name,
                              std::vector<std::string>& groups) const override {
    asked.push_back("local [" + server + "] " + name);
    groups = local;
    return error;
  }
  std::uint32_t globalGroupsOf(const std::string& server, const std::string& name,
                               std::vector<std::string>& groups) const override {
    asked.push_back("global [" + server + "] " + name);
    groups = global;
    return error;
  }

  std::optional<bool> processIsElevated() const override { return elevated; }

  std::optional<bool> elevated = true;
  std::string user = std::string("operator\0", 9);
  std::vector<std::string> local;
  std::vector<std::string> global;
  std::uint32_t error = 0;
  mutable std::vector<std::string> asked;
};

/// Notes what becomes of the token's privileges; each name's identifier is its length.
struct FakeProcessToken : ProcessToken {
  std::uint32_t open(std::uint32_t access) override {
    openedWith.push_back(access);
    return openError;
  }
  std::uint32_t lookUp(const std::string& privilege, std::uint64_t& identifier) const override {
    lookedUp.push_back(privilege);
    if (privilege == unknown) return 1313;
    identifier = privilege.size();
    return 0;
  }
  std::uint32_t adjust(bool disableAll, const TokenPrivilege& privilege) override {
    adjusted.emplace_back(disableAll, privilege);
    return refuseAll ? 6 : 0;
  }

  std::vector<std::uint32_t> openedWith;
  std::uint32_t openError = 0;
  std::string unknown;
  bool refuseAll = false;
  mutable std::vector<std::string> lookedUp;
  std::vector<std::pair<bool, TokenPrivilege>> adjusted;
};

}  // namespace tessivo
