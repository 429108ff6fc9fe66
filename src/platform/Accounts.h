#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace tessivo {

/// The users and groups of the machine and of others. Every operation returns 0, or the system's
/// error. A server's name is empty for this machine.
class Accounts {
 public:
  virtual ~Accounts() = default;
  /// The user that the process runs as, as the system hands the name out: with the NUL at its end.
  /// Empty when it does not.
  virtual std::string currentUserName() const = 0;
  /// The groups of a server that a user belongs to, as many of their names as 1024 bytes hold.
  virtual std::uint32_t localGroupsOf(const std::string& server, const std::string& user,
                                      std::vector<std::string>& groups) const = 0;
  /// The same for the groups of a domain.
  virtual std::uint32_t globalGroupsOf(const std::string& server, const std::string& user,
                                       std::vector<std::string>& groups) const = 0;
  /// Whether the process has the administrator's full rights ("run as administrator"), which
  /// membership in the group alone does not give. Nothing when the system does not tell.
  virtual std::optional<bool> processIsElevated() const = 0;
};

}  // namespace tessivo
