#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "platform/Accounts.h"
#include "platform/Log.h"

namespace tessivo {

/// Whether the user may change what belongs to all users of the machine. The settings dialog and
/// the player check ask.
class CheckUserFigure {
 public:
  CheckUserFigure(const Accounts& accounts, Log& log) : accounts_(accounts), log_(log) {}

  /// Whether the user is a member of the local group "Administrators", by that name alone: where
  /// the system's language gives the group another one, nobody is. The log says what decided, with
  /// the system's answer and whether the process is elevated: one that is not is refused what its
  /// user may do.
  bool boolUserBlongToAdminsGroup() const;
  /// The names of the user's groups: of this machine when `localGroups`, whatever the server, else
  /// of the server's domain. One empty text when there are none or they cannot be had.
  std::vector<std::string> GetUserGroups(const std::string& serverName, const std::string& userName,
                                         bool localGroups) const;
  /// With a NUL at its end, which the question for the groups does not mind.
  std::string getCurrentUserName() const { return accounts_.currentUserName(); }

 private:
  std::vector<std::string> groupsOf(const std::string& serverName, const std::string& userName,
                                    bool localGroups, std::uint32_t& status) const;

  const Accounts& accounts_;
  Log& log_;
};

}  // namespace tessivo
