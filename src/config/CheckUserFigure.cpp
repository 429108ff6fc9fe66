#include "config/CheckUserFigure.h"

#include <algorithm>

#include "base/Text.h"

namespace tessivo {
namespace {

constexpr const char* kAdministrators = "administrators";

std::string listed(const std::vector<std::string>& groups) {
  if (groups.front().empty()) return "none known";
  std::string all;
  for (const std::string& group : groups) all += (all.empty() ? "\"" : ", \"") + group + '"';
  return all;
}

/// As it is said to people, without the NUL at its end.
std::string shown(const std::string& userName) {
  return userName.substr(0, userName.find('\0'));
}

std::string shown(std::optional<bool> elevated) {
  return !elevated ? "unknown" : *elevated ? "elevated" : "not elevated";
}

}  // namespace

bool CheckUserFigure::boolUserBlongToAdminsGroup() const {
  const std::string user = getCurrentUserName();
  std::uint32_t status = 0;
  const auto groups = groupsOf("", user, true, status);
  const std::string wanted = toUpper(kAdministrators);
  const bool belongs = !groups.front().empty() &&
                       std::any_of(groups.begin(), groups.end(),
                                   [&](const auto& group) { return toUpper(group) == wanted; });
  log_.info(std::string("the user is ") + (belongs ? "an" : "no") +
            R"( administrator (by membership in the local group "Administrators"): user ")" +
            shown(user) + "\", groups " + listed(groups) + ", status " + std::to_string(status) +
            ", process " + shown(accounts_.processIsElevated()));
  return belongs;
}

std::vector<std::string> CheckUserFigure::GetUserGroups(const std::string& serverName,
                                                        const std::string& userName,
                                                        bool localGroups) const {
  std::uint32_t ignored = 0;
  return groupsOf(serverName, userName, localGroups, ignored);
}

std::vector<std::string> CheckUserFigure::groupsOf(const std::string& serverName,
                                                   const std::string& userName, bool localGroups,
                                                   std::uint32_t& status) const {
  std::vector<std::string> groups;
  if (localGroups) {
    status = accounts_.localGroupsOf("", userName, groups);
  } else {
    const std::string server = serverName.starts_with("\\\\") ? serverName : "\\\\" + serverName;
    status = accounts_.globalGroupsOf(server, userName, groups);
  }
  if (status != 0 || groups.empty()) return {""};
  return groups;
}

}  // namespace tessivo
